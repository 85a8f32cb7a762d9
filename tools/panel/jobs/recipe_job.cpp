#include "panel/jobs/recipe_job.h"

#include "registers/register_types.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

QString blockText(const AddressRange& block)
{
    return QStringLiteral("%1:%2@%3")
        .arg(addressText(block.type, block.address))
        .arg(block.values)
        .arg(block.station);
}

} // namespace

RecipeJob::RecipeJob(Session* session, const RecipeLayout& layout, RecipeDirection direction,
                     QObject* parent)
    : Job(session, parent), m_layout(layout), m_direction(direction)
{
    connect(session, &Session::recipeBlockDone, this, &RecipeJob::onBlock);
    connect(session, &Session::recipeFinished, this, &RecipeJob::onEnd);
}

void RecipeJob::begin()
{
    const bool isDownload = m_direction == RecipeDirection::Download;
    if (isDownload && !session()->loadRecipe(m_layout.buffer))
        return endEarly(failureOf(FailureKind::TooLong,
                                  Text::tr("the words do not fit into the recipe buffer")));
    await([direction = m_direction, passes = m_layout.passes](Session* session) {
        return session->transferRecipe(direction, passes);
    });
}

void RecipeJob::onBlock(int handle, const AddressRange& block)
{
    if (!isAwaited(handle))
        return;
    m_done << blockText(block);
    takeCoils(block);
    emit blockDone(m_done.last());
    if (isRunning())
        emit progress(static_cast<int>(m_done.size()), blocks());
}

/// Coils never reach the recipe buffer.
void RecipeJob::takeCoils(const AddressRange& block)
{
    if (m_direction == RecipeDirection::Download || block.type->registerClass != BIT_CLASS)
        return;
    int index = 0;
    for (const qint64 value : session()->uploadedValues())
        m_coils[recipeCellKey(block, index++)] = value;
}

void RecipeJob::onEnd(int handle, const RecipeEnd& recipeEnd)
{
    if (!takesEnd(handle))
        return;
    if (recipeEnd.unsettled.type)
        m_maybeDone = blockText(recipeEnd.unsettled);
    if (isSessionOver(recipeEnd.failure))
        return endEarly(recipeEnd.failure);
    Failure failure = recipeEnd.failure;
    if (failure.range.type)
        failure.text.prepend(blockText(failure.range) + QLatin1String(": "));
    noteFailure(failure);
    m_isComplete = failure.isNone();
    const bool hasValues = m_isComplete && m_direction == RecipeDirection::Upload;
    for (size_t i = 0; hasValues && i < m_layout.buffer.size(); ++i)
        m_words.push_back(session()->recipeWord(static_cast<int>(i)));
    end();
}

QList<QList<qint64>> RecipeJob::values(const QList<RecipeRow>& rows) const
{
    QList<QList<qint64>> values;
    if (m_direction == RecipeDirection::Download || !m_isComplete
        || rows.size() != m_layout.offsets.size())
        return values;
    for (int i = 0; i < rows.size(); ++i) {
        const RecipeRow& row = rows.at(i);
        const int offset = m_layout.offsets.at(i);
        if (offset >= 0) {
            values << valueInBuffer(row, offset, m_words);
        } else {
            const auto coil = m_coils.find(recipeCellKey(row.range, 0));
            values << QList<qint64>{coil == m_coils.end() ? 0 : coil->second};
        }
    }
    return values;
}

} // namespace kx
