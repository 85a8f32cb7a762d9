#include "panel/session/polling.h"

#include "data/reply_handling.h"
#include "panel/plan/time_out_rules.h"
#include "panel/polling/poll_plan.h"
#include "panel/session/driver_values.h"

namespace kx
{

namespace
{

const qint64 BETWEEN_PLANS = 5000000; // microseconds, for turnarounds that change

ReadRules rulesFor(const SessionSettings& settings)
{
    ReadRules rules;
    rules.usual.maxWords = settings.maxWords;
    rules.usual.maxBits = settings.maxBits;
    return rules;
}

bool isAddressRefused(const ExchangeRecord& record)
{
    return record.replyKind == ReplyKind::Exception && refusesAddresses(record.exceptionCode);
}

QList<AddressRange> rangesOf(const QList<PolledRange>& wanted)
{
    QList<AddressRange> ranges;
    for (const PolledRange& polled : wanted)
        ranges << polled.range;
    return ranges;
}

QList<AddressRange> wideOf(const QList<PolledRange>& wanted)
{
    QList<AddressRange> ranges;
    for (const PolledRange& polled : wanted) {
        if (polled.range.width > 1)
            ranges << polled.range;
    }
    return ranges;
}

/// 1 where there is none of several registers.
int longestOf(const std::vector<AddressRange>& values)
{
    int longest = 1;
    for (const AddressRange& value : values)
        longest = qMax(longest, value.width);
    return longest;
}

bool spansGap(const AddressRange& asked, const WatchedRanges& watched)
{
    int covered = 0;
    for (const AddressRange& part : watched.within(asked))
        covered += part.values;
    return covered < asked.values;
}

} // namespace

Polling::Polling(DriverPort* port, const Line* line, const SessionSettings& settings,
                 const LoopClock* clock)
    : m_port(port),
      m_line(line),
      m_settings(settings),
      m_clock(clock),
      m_learned(rulesFor(settings))
{
}

int Polling::replace(const QList<PolledRange>& ranges)
{
    m_ranges = ranges;
    m_watched = WatchedRanges(rangesOf(ranges));
    m_values = WholeValues(wideOf(ranges));
    return plan();
}

int Polling::plan()
{
    m_learned.setLine(m_settings.timingOf(m_line->timing()));
    ReadRules rules = m_learned.rules();
    RegisterPlanner registers;
    if (!m_settings.choosesLengths)
        registers = [this](const QList<AddressRange>& ranges) { return m_port->joined(ranges); };
    else if (m_line->timing().baud > 0) // how fast the line behind a gateway is, is but said
        rules = rulesWithin(m_settings.exchange.replyTimeout * MICROSECONDS_PER_MILLISECOND, rules);
    const QList<PolledRange> polls = plannedPolls(m_ranges, rules, registers);
    m_port->poll(polls);
    m_plannedAt = m_clock->now();
    return static_cast<int>(polls.size());
}

PollEvents Polling::onExchange(const ExchangeRecord& record)
{
    PollEvents events;
    if (record.result == REPLY_RETRY || !m_port->polls().hasTaken())
        return events;
    const PollSchedule::Step step = m_port->polls().end(record);
    events.endsCycle = step.endsCycle;
    events.silenced = step.silenced;
    if (!m_settings.choosesLengths)
        return events;
    if (learn(record)) {
        events.shortened = record.job.station;
        events.endsCycle = false; // it is asked for otherwise first
        plan();
    } else if (step.endsCycle && m_clock->now() >= m_plannedAt + BETWEEN_PLANS
               && m_learned.takeTurnarounds()) {
        plan();
    }
    return events;
}

/// Whether the station is to be asked otherwise from now on.
bool Polling::learn(const ExchangeRecord& record)
{
    AddressRange asked = rangeOf(record.job);
    if (asked.type)
        asked.width = longestOf(m_values.within(asked));
    if (record.result == REPLY_ACCEPTED && record.turnaround >= 0)
        m_learned.onAnswer(asked, record.turnaround);
    return record.result == REPLY_FAILED && isAddressRefused(record)
           && m_learned.onRefusal(asked, spansGap(asked, m_watched));
}

} // namespace kx
