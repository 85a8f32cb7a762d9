#include "panel/jobs/recipe_transfer.h"

#include "panel/text/frame_text.h"

#include <algorithm>

namespace kx
{

namespace
{

QString blockText(const VARIABLE& block)
{
    const RegisterType* const type = findRegisterType(block.regType);
    return QStringLiteral("%1:%2@%3")
        .arg(addressText(type, block.address))
        .arg(block.count / registersPerAddress(type))
        .arg(block.station);
}

} // namespace

RecipeTransfer::RecipeTransfer(DriverSession* session, const RecipeLayout& layout,
                               RecipeDirection direction)
    : m_session(session), m_layout(layout), m_direction(direction)
{
    connect(session, &DriverSession::exchanged, this, &RecipeTransfer::takeExchange);
    connect(session, &DriverSession::lineFailed, this, &RecipeTransfer::abort);
}

void RecipeTransfer::start()
{
    if (m_direction == RecipeDirection::Download)
        std::copy(m_layout.buffer.begin(), m_layout.buffer.end(),
                  m_session->recipeBuffer().begin());
    m_session->start();
    startPass();
}

void RecipeTransfer::startPass()
{
    m_session->setRecipe(m_layout.passes.at(m_pass).forLink(m_session->settings().link));
    if (m_direction == RecipeDirection::Download)
        m_session->requestRecipeWrite();
    else
        m_session->requestRecipeRead();
}

void RecipeTransfer::takeExchange(const ExchangeRecord& record)
{
    if (m_isEnded)
        return;
    noteUnsettled(record);
    if (record.result == REPLY_RETRY)
        return;
    if (record.result != REPLY_ACCEPTED) {
        end(QStringLiteral("%1: %2").arg(blockText(record.job), reasonOf(record)));
        return;
    }
    m_done << blockText(record.job);
    emit blockDone(m_done.last());
    if (m_isEnded || m_session->isRecipePending())
        return;
    if (++m_pass < m_layout.passes.size())
        startPass();
    else
        end(QString());
}

void RecipeTransfer::noteUnsettled(const ExchangeRecord& record)
{
    // A refusal tells of this request only: an earlier try may have been obeyed.
    const bool wasSent =
        record.replyKind != ReplyKind::NotSent && record.replyKind != ReplyKind::NeverSilent;
    if (record.result == REPLY_ACCEPTED)
        m_maybeDone.clear();
    else if (wasSent && record.replyKind != ReplyKind::Exception)
        m_maybeDone = blockText(record.job);
}

void RecipeTransfer::abort(const QString& reason)
{
    if (!m_isEnded)
        end(reason);
}

void RecipeTransfer::end(const QString& failure)
{
    m_isEnded = true;
    m_isComplete = failure.isEmpty();
    m_failure = failure;
    m_session->stop();
    if (const VARIABLE* const job = m_session->jobGivenUp())
        m_maybeDone = blockText(*job);
    m_session->cancelRecipe();
    emit finished();
}

QList<quint32> RecipeTransfer::values(const QList<RecipeRow>& rows) const
{
    QList<quint32> values;
    for (int i = 0; i < rows.size(); ++i) {
        const RecipeRow& row = rows.at(i);
        const int offset = m_layout.offsets.at(i);
        values << (offset < 0 ? static_cast<quint32>(m_session->values(row.range).first())
                              : valueInBuffer(row, offset, m_session->recipeBuffer()));
    }
    return values;
}

} // namespace kx
