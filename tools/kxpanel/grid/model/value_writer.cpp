#include "kxpanel/grid/model/value_writer.h"

#include "kxpanel/tags/tag_list.h"
#include "panel/jobs/write_job.h"
#include "panel/values/value_address.h"
#include "registers/register_types.h"

#include <QtCore/QDateTime>

namespace kxpanel
{

namespace
{

bool isOf(const kx::Assignment& assignment, const kx::Tag& tag)
{
    const kx::AddressRange& range = assignment.range;
    return range.type == tag.range.type && range.station == tag.range.station
           && range.address == tag.range.address && range.values == tag.range.values
           && assignment.bit == tag.format.bit;
}

} // namespace

ValueWriter::ValueWriter(const JobStarter& startJob, QObject* parent)
    : QObject(parent), m_startJob(startJob)
{
}

bool ValueWriter::parse(const WatchedValue& value, const QString& typed,
                        kx::TagAssignment* assignment, QString* fault)
{
    kx::Tag tag = value.tag;
    tag.name = TagList::shownName(value);
    const QString text = tag.name + QLatin1Char('=') + typed;
    return kx::parseTagAssignment(text, {tag}, kx::ValueFormat(), assignment, fault);
}

QString ValueWriter::readOnlyReason(const kx::Tag& tag)
{
    if (!tag.range.type->writable)
        return tr("%1 is an input and can only be read")
            .arg(kx::valueName(tag.range, tag.format, 0));
    if (tag.format.bit >= 0 && !kx::keepsItsWords(tag.range.type))
        return tr("Bits of %1 change by themselves; write the whole word")
            .arg(QString::fromLatin1(tag.range.type->name));
    return QString();
}

void ValueWriter::write(int number, const kx::TagAssignment& assignment)
{
    m_waiting.removeAll(number);
    m_waiting.enqueue(number);
    ValueWrite write;
    write.assignment = assignment.assignment;
    write.text = kx::valuesText(assignment);
    m_writes[number] = write;
    emit changed(number);
    if (m_ticket == 0)
        writeNext();
}

const ValueWrite* ValueWriter::writeOf(int number) const
{
    const auto write = m_writes.find(number);
    return write == m_writes.end() ? nullptr : &*write;
}

void ValueWriter::follow(const TagList& tags)
{
    for (const int number : m_writes.keys()) {
        const WatchedValue* const value = tags.find(number);
        const ValueWrite& write = m_writes[number];
        if (value && isOf(write.assignment, value->tag))
            continue;
        m_waiting.removeAll(number);
        m_writes.remove(number);
        emit changed(number);
    }
}

void ValueWriter::writeNext()
{
    if (m_waiting.isEmpty())
        return;
    m_writing = m_waiting.dequeue();
    m_ticket = Machine::newTicket();
    ValueWrite& write = m_writes[m_writing];
    write.phase = ValueWrite::Writing;
    const kx::Assignment assignment = write.assignment;
    emit changed(m_writing);
    m_startJob(m_ticket, [assignment](kx::Session* session) {
        return std::unique_ptr<kx::Job>(
            new kx::WriteJob(session, QList<kx::Assignment>{assignment}));
    });
}

void ValueWriter::onJobEnded(int ticket, const kx::Failure& failure)
{
    if (ticket != m_ticket || ticket == 0)
        return;
    m_ticket = 0;
    const int number = m_writing;
    const auto write = m_writes.find(number);
    // Another value may have been asked for meanwhile, and waits.
    if (write != m_writes.end() && write->phase == ValueWrite::Writing) {
        write->phase = failure.isNone() ? ValueWrite::Confirmed : ValueWrite::Failed;
        write->reason = failure.text;
        write->endedAt = QDateTime::currentMSecsSinceEpoch();
        const ValueWrite end = *write;
        emit changed(number);
        emit ended(number, end);
    }
    if (m_ticket == 0)
        writeNext();
}

} // namespace kxpanel
