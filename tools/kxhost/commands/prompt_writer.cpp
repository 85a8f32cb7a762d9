#include "kxhost/commands/prompt_writer.h"

#include "addresses/read_pieces.h"
#include "addresses/write_pieces.h"
#include "panel/text/frame_text.h"
#include "registers/register_types.h"

namespace kx
{

PromptWriter::PromptWriter(Session* session, int station) : m_session(session), m_station(station)
{
    connect(session, &Session::exchanged, this, &PromptWriter::onExchange);
}

void PromptWriter::take(const QString& line)
{
    Assignment assignment;
    QString error;
    if (!parseAssignment(line, &assignment, &error) || isRefused(assignment, &error)) {
        emit message(error);
        return;
    }
    if (assignment.range.station < 0)
        assignment.range.station = m_station;
    m_hasFailed = false;
    emit message(line + QLatin1String(": writing"));
    const int most = addressesPerWrite(assignment.range.type, m_session->settings().maxWords);
    for (const Assignment& piece : writePieces(assignment, most))
        m_session->write(piece);
}

bool PromptWriter::isRefused(const Assignment& assignment, QString* reason) const
{
    const RegisterType* const type = assignment.range.type;
    const QString name = QString::fromLatin1(type->name);
    if (!type->writable)
        *reason = name + QLatin1String(" cannot be written");
    else if (addressesPerWrite(type, m_session->settings().maxWords) < 1)
        *reason = tooLongText(type, m_session->settings().maxWords);
    return !reason->isEmpty();
}

void PromptWriter::onExchange(const ExchangeRecord& record)
{
    if (record.job.kind != WRITE_JOB || record.result == REPLY_RETRY)
        return;
    // A failed piece is what the user must know of a long assignment.
    if (record.result == REPLY_ACCEPTED && m_hasFailed)
        return;
    m_hasFailed = record.result != REPLY_ACCEPTED;
    const QString address = addressText(findRegisterType(record.job.regType), record.job.address);
    emit message(QStringLiteral("%1 at station %2: %3")
                     .arg(address)
                     .arg(record.job.station)
                     .arg(m_hasFailed ? QLatin1String("not written, ") + outcomeText(record)
                                      : QLatin1String("confirmed")));
}

} // namespace kx
