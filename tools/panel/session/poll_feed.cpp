#include "panel/session/poll_feed.h"

#include "registers/register_types.h"

#include <utility>

namespace kx
{

namespace
{

/// What took the whole time-out is silence, even if a line that floats made up a character. Damaged
/// bytes cost no time-out, and may be a reply.
PollSchedule::Outcome outcomeOf(const ExchangeRecord& record, bool isTry)
{
    switch (record.replyKind) {
    case ReplyKind::Exception:
        return isGatewayException(record.exceptionCode) ? PollSchedule::Outcome::Silent
                                                        : PollSchedule::Outcome::Answered;
    case ReplyKind::Good:
    case ReplyKind::WrongByteCount:
        return PollSchedule::Outcome::Answered;
    case ReplyKind::None:
    case ReplyKind::Short:
    case ReplyKind::Foreign:
        return PollSchedule::Outcome::Silent;
    case ReplyKind::Bad:
        return isTry ? PollSchedule::Outcome::Silent : PollSchedule::Outcome::Unknown;
    default:
        return PollSchedule::Outcome::Unknown;
    }
}

} // namespace

PollFeed::PollFeed(tarvelan* object, const LoopClock* clock, int replyTimeout)
    : m_driver(object), m_clock(clock), m_schedule(replyTimeout * MICROSECONDS_PER_MILLISECOND)
{
    for (const RegisterType& type : REGISTER_TYPES)
        m_typeNames << QString::fromLatin1(type.name);
}

void PollFeed::replace(const QList<PolledRange>& polls)
{
    m_schedule.setPolls(polls, m_clock->now());
    m_offered = -1;
    m_taken = -1;
}

void PollFeed::offer()
{
    withhold();
    giveUp();
    m_offered = m_schedule.next(m_clock->now());
    if (m_offered < 0)
        return;
    const AddressRange& range = m_schedule.poll(m_offered).range;
    VARIABLE job = VARIABLE();
    job.kind = CYCLIC_READ_JOB;
    job.station = range.station;
    job.regType = m_typeNames.at(registerTypeRow(range.type));
    job.address = range.address;
    job.count = range.driverCount();
    m_driver->readList.append(job);
}

void PollFeed::begin()
{
    m_taken = std::exchange(m_offered, -1);
    m_isTry = m_taken >= 0 && m_schedule.isTry(m_taken);
    if (m_taken >= 0)
        m_schedule.begin(m_taken, m_clock->now());
}

/// The driver gave up what was taken when its session was stopped.
void PollFeed::giveUp()
{
    const int poll = std::exchange(m_taken, -1);
    if (poll >= 0)
        m_schedule.end(poll, PollSchedule::Outcome::Unknown, m_clock->now());
}

PollSchedule::Step PollFeed::end(const ExchangeRecord& record)
{
    const int poll = std::exchange(m_taken, -1);
    if (poll < 0)
        return PollSchedule::Step();
    return m_schedule.end(poll, outcomeOf(record, m_isTry), m_clock->now());
}

} // namespace kx
