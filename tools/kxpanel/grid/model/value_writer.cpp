#include "kxpanel/grid/model/value_writer.h"

#include "kxpanel/tags/tag_list.h"
#include "panel/jobs/write_job.h"
#include "panel/values/value_address.h"
#include "registers/register_types.h"

#include <QtCore/QDateTime>

#include <algorithm>
#include <utility>

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

/// As the controller will give it back: what is typed below 0 into registers without a sign.
kx::TagAssignment asRead(const kx::TagAssignment& assignment)
{
    kx::TagAssignment read = assignment;
    const RegisterClass registers = read.assignment.range.type->registerClass;
    for (qint64& value : read.assignment.values)
        value &= registers == DOUBLE_WORD_CLASS ? 0xFFFFFFFF : 0xFFFF;
    return read;
}

/// Of a job that has begun: whether its request may have been carried out. A controller that gets
/// one late, or whose reply is lost, has done it.
bool leavesOpen(kx::FailureKind kind)
{
    switch (kind) {
    case kx::FailureKind::None:
    case kx::FailureKind::Exception:
    case kx::FailureKind::NotWhole:
    case kx::FailureKind::NeverSilent:
    case kx::FailureKind::CannotOpen:
    case kx::FailureKind::DriverInUse:
    case kx::FailureKind::OutOfRange:
    case kx::FailureKind::TooLong:
    case kx::FailureKind::NotWritable:
    case kx::FailureKind::QueueFull:
        return false;
    default:
        return true;
    }
}

} // namespace

ValueWriter::ValueWriter(const TagList* tags, const JobStarter& startJob, QObject* parent)
    : QObject(parent), m_tags(tags), m_startJob(startJob), m_now(&QDateTime::currentMSecsSinceEpoch)
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
    write.name = assignment.tag.name;
    write.text = kx::valuesText(asRead(assignment));
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

void ValueWriter::callOff()
{
    for (const int number : std::exchange(m_waiting, {})) {
        ValueWrite& write = m_writes[number];
        write.phase = ValueWrite::Failed;
        write.reason = tr("called off before it was sent");
        write.endedAt = m_now();
        emit changed(number);
        tellEnd(ValueWrite(write));
    }
}

void ValueWriter::follow()
{
    for (const int number : m_writes.keys()) {
        const WatchedValue* const value = m_tags->find(number);
        if (!value || !isOf(m_writes[number].assignment, value->tag))
            forget(number);
    }
}

void ValueWriter::forget(int number)
{
    ValueWrite write = m_writes.take(number);
    emit changed(number);
    if (m_waiting.removeAll(number) == 0)
        return;
    write.phase = ValueWrite::Failed;
    write.reason = tr("its row was removed or changed before it was sent");
    tellEnd(write);
}

void ValueWriter::writeNext()
{
    if (m_waiting.isEmpty())
        return tellAllEnded();
    m_writing = m_waiting.dequeue();
    m_ticket = Machine::newTicket();
    ValueWrite& write = m_writes[m_writing];
    write.phase = ValueWrite::Writing;
    m_underWay = write;
    const kx::Assignment assignment = write.assignment;
    emit changed(m_writing);
    m_hasBegun = std::make_shared<std::atomic<bool>>(false);
    m_startJob(m_ticket, [assignment, hasBegun = m_hasBegun](kx::Session* session) {
        *hasBegun = true;
        return std::unique_ptr<kx::Job>(
            new kx::WriteJob(session, QList<kx::Assignment>{assignment}));
    });
}

void ValueWriter::onClockSet(qint64 by)
{
    const qint64 now = m_now();
    for (ValueWrite& write : m_writes) {
        if (write.endedAt > 0) // one that has ended since knows the new time
            write.endedAt = std::min(write.endedAt + by, now);
    }
}

void ValueWriter::onJobEnded(int ticket, const kx::Failure& failure)
{
    if (ticket != m_ticket || ticket == 0)
        return;
    m_ticket = 0;
    m_underWay.phase = failure.isNone() ? ValueWrite::Confirmed : ValueWrite::Failed;
    m_underWay.reason = failure.text;
    m_underWay.mayBeDone = *m_hasBegun && leavesOpen(failure.kind);
    m_underWay.endedAt = m_now();
    const auto write = m_writes.find(m_writing);
    // Its value may have gone, or another one may have been asked for, and waits.
    if (write != m_writes.end() && write->phase == ValueWrite::Writing) {
        *write = m_underWay;
        emit changed(m_writing);
    }
    tellEnd(ValueWrite(m_underWay));
    if (m_ticket == 0)
        writeNext();
}

void ValueWriter::tellEnd(const ValueWrite& write)
{
    if (write.phase == ValueWrite::Confirmed)
        ++m_written;
    else
        m_failed << write;
    emit ended(write);
}

void ValueWriter::tellAllEnded()
{
    const int written = std::exchange(m_written, 0);
    emit allEnded(written, std::exchange(m_failed, {}));
}

} // namespace kxpanel
