#include "kxhost/watch/prompt_writer.h"

#include "kxhost/commands/write_report.h"
#include "kxhost/options/tags_arguments.h"
#include "panel/files/whole_range.h"
#include "panel/values/value_address.h"

namespace kx
{

PromptWriter::PromptWriter(Session* session, int station, const QList<Tag>& tags,
                           const ValueFormat& order)
    : m_session(session), m_station(station), m_tags(tags), m_order(order)
{
}

/// Blanks at the end are of the value where it is a text.
bool PromptWriter::parse(const QString& line, TagAssignment* typed, QString* error) const
{
    const QString trimmed = line.trimmed();
    if (!parseTagAssignment(trimmed, m_tags, m_order, typed, error))
        return false;
    if (typed->tag.format.kind != ValueKind::Ascii)
        return true;
    return parseTagAssignment(line.mid(line.indexOf(trimmed)), m_tags, m_order, typed, error);
}

void PromptWriter::take(const QString& line)
{
    TagAssignment typed;
    QString error;
    if (!parse(line, &typed, &error)) {
        emit message(error);
        return;
    }
    const QString fault = requestFault(typed.tag, m_session->settings().maxWords);
    if (!fault.isEmpty()) {
        emit message(faultyText(line, fault));
        return;
    }
    if (typed.tag.range.station < 0)
        typed.tag.range.station = m_station;
    typed.assignment.range.station = typed.tag.range.station;
    emit message(line + QLatin1String(": writing"));
    m_waiting << typed;
    if (m_waiting.size() == 1)
        writeNext();
}

/// One at a time: the bits of a word that are typed one after the other would undo each other.
void PromptWriter::writeNext()
{
    auto* const job = new WriteJob(m_session, {m_waiting.first().assignment}, this);
    connect(job, &WriteJob::assignmentFinished, this, &PromptWriter::onOutcome);
    connect(job, &Job::finished, job, &QObject::deleteLater);
    job->start();
}

void PromptWriter::onOutcome(const WriteOutcome& outcome)
{
    const TagAssignment written = m_waiting.takeFirst();
    const bool isDone = outcome.failure.isNone();
    emit message(QStringLiteral("%1 at station %2: %3%4")
                     .arg(valueName(written.tag.range, written.tag.format, 0),
                          QString::number(written.tag.range.station),
                          isDone ? QStringLiteral("confirmed")
                                 : QLatin1String("not written, ") + outcome.failure.text,
                          besidesText(written, outcome)));
    if (!m_waiting.isEmpty())
        writeNext();
}

} // namespace kx
