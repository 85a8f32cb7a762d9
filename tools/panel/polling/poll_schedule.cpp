#include "panel/polling/poll_schedule.h"

#include "registers/register_types.h"

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace kx
{

namespace
{

const qint64 MILLISECOND = 1000; // microseconds
const int MOST_SILENCES = 2;     // in a row while its station answers: then the poll is left out

qint64 intervalOf(const PolledRange& poll)
{
    return poll.interval * MILLISECOND;
}

bool isPolledBefore(const PolledRange& one, const PolledRange& other)
{
    const auto key = [](const PolledRange& poll) {
        return std::make_tuple(poll.range.station, registerTypeRow(poll.range.type),
                               poll.range.address, poll.range.values, poll.interval);
    };
    return key(one) < key(other);
}

} // namespace

PollSchedule::PollSchedule(qint64 replyTimeout)
    : m_replyTimeout(replyTimeout), m_silent(replyTimeout)
{
}

void PollSchedule::setPolls(const QList<PolledRange>& polls, qint64 now)
{
    std::map<PolledRange, State, decltype(&isPolledBefore)> known(&isPolledBefore);
    for (const State& state : m_polls)
        known.emplace(state.wanted, state);
    m_polls.clear();
    std::map<int, int> sizes; // of the polls of each interval
    for (const PolledRange& poll : polls) {
        const auto kept = known.find(poll);
        m_polls.push_back(kept == known.end() ? State() : kept->second);
        m_polls.back().wanted = poll;
        if (kept == known.end())
            m_polls.back().dueAt = now;
        ++sizes[poll.interval];
    }
    arrange(sizes, now);
    beginCycle();
}

void PollSchedule::arrange(const std::map<int, int>& sizes, qint64 now)
{
    m_round.clear();
    m_due.clear();
    m_tries.clear();
    std::map<int, int> places; // in each interval's polls
    for (int index = 0; index < size(); ++index) {
        State& poll = state(index);
        const int interval = poll.wanted.interval;
        poll.isOfCycle = interval == sizes.begin()->first;
        if (interval == 0) {
            poll.roundPosition = m_round.size();
            m_round.push_back(index);
            if (m_silent.contains(station(index)) && !m_tries.contains(station(index)))
                m_tries.insert(station(index), index);
        } else {
            poll.phase = now + intervalOf(poll.wanted) * places[interval]++ / sizes.at(interval);
            m_due.insert({poll.dueAt, index});
        }
    }
}

void PollSchedule::beginCycle()
{
    m_position = 0;
    ++m_roundNumber;
    m_wasSentInCycle = false;
    m_leftInCycle = 0;
    for (State& poll : m_polls) {
        poll.isLeftInCycle = poll.isOfCycle;
        m_leftInCycle += poll.isOfCycle ? 1 : 0;
    }
}

int PollSchedule::next(qint64 now)
{
    const int due = nextDue(now);
    const int inRound = due >= 0 && !m_wasDue ? -1 : nextInRound(now);
    return inRound < 0 ? due : inRound;
}

int PollSchedule::nextInRound(qint64 now) const
{
    for (size_t position = m_position; position < m_round.size(); ++position) {
        const int index = m_round[position];
        if (maySend(index, now))
            return index;
    }
    return -1;
}

int PollSchedule::nextDue(qint64 now)
{
    while (!m_due.empty() && m_due.begin()->first <= now) {
        const int index = m_due.begin()->second;
        if (maySend(index, now))
            return index;
        advance(index, now);
    }
    return -1;
}

/// A silent station is tried by the polls of its rounds, or by any when it has none of these.
bool PollSchedule::maySend(int index, qint64 now) const
{
    const State& poll = state(index);
    if (!m_silent.contains(station(index)))
        return poll.silences < MOST_SILENCES || now >= poll.silentUntil;
    const auto tried = m_tries.constFind(station(index));
    if (tried == m_tries.constEnd())
        return now >= m_silent.tryAt(station(index));
    return *tried == index && m_silent.isDue(station(index), m_roundNumber, now);
}

bool PollSchedule::isTry(int index) const
{
    return m_silent.contains(station(index)) || state(index).silences >= MOST_SILENCES;
}

qint64 PollSchedule::nextAt() const
{
    qint64 at = m_due.empty() ? std::numeric_limits<qint64>::max() : m_due.begin()->first;
    for (const int index : m_round) {
        if (!m_silent.contains(station(index)))
            at = std::min(at, state(index).silentUntil);
        else if (m_tries.value(station(index)) == index)
            at = std::min(at, m_silent.tryAt(station(index)));
    }
    return at;
}

void PollSchedule::begin(int index, qint64 now)
{
    State& poll = state(index);
    m_wasDue = poll.wanted.interval > 0;
    m_wasSentInCycle = m_wasSentInCycle || poll.isOfCycle;
    if (m_wasDue) {
        if (poll.wasSent && !isTry(index))
            m_missed += (now - poll.dueAt) / intervalOf(poll.wanted);
        advance(index, now);
    } else {
        m_position = poll.roundPosition + 1;
    }
    poll.wasSent = true;
}

/// To the next time at which the poll is due.
void PollSchedule::advance(int index, qint64 now)
{
    State& poll = state(index);
    m_due.erase({poll.dueAt, index});
    const qint64 interval = intervalOf(poll.wanted);
    const qint64 passed = now < poll.phase ? 0 : (now - poll.phase) / interval + 1;
    poll.dueAt = poll.phase + passed * interval;
    m_due.insert({poll.dueAt, index});
    m_leftInCycle -= poll.isLeftInCycle ? 1 : 0;
    poll.isLeftInCycle = false;
}

PollSchedule::Step PollSchedule::end(int index, Outcome outcome, qint64 now)
{
    Step step;
    if (outcome == Outcome::Answered)
        onAnswer(index, now);
    else if (outcome == Outcome::Silent)
        step.silenced = onSilence(index, now);
    step.endsCycle =
        m_wasSentInCycle && (m_round.empty() ? m_leftInCycle == 0 : nextInRound(now) < 0);
    if (step.endsCycle)
        beginCycle();
    return step;
}

void PollSchedule::onAnswer(int index, qint64 now)
{
    state(index).silences = 0;
    if (!m_silent.onAnswer(station(index)))
        return;
    m_tries.remove(station(index));
    for (int other = 0; other < size(); ++other) {
        if (other != index && station(other) == station(index))
            bringForward(other, now);
    }
}

/// What counts as unanswered since its station was silent is not to wait for its time.
void PollSchedule::bringForward(int index, qint64 now)
{
    State& poll = state(index);
    if (poll.wanted.interval == 0 || poll.dueAt <= now)
        return;
    m_due.erase({poll.dueAt, index});
    poll.dueAt = now;
    m_due.insert({poll.dueAt, index});
}

int PollSchedule::onSilence(int index, qint64 now)
{
    State& poll = state(index);
    const int ofPoll = station(index);
    const bool wasSilent = m_silent.contains(ofPoll);
    if (!wasSilent && ++poll.silences >= MOST_SILENCES) {
        poll.silentUntil =
            now + SilentStations::waitAfter(poll.silences - MOST_SILENCES) * m_replyTimeout;
        return 0;
    }
    // A round of which nothing was sent is still the next one.
    m_silent.onSilence(ofPoll, m_wasSentInCycle ? m_roundNumber : m_roundNumber - 1, now);
    const int tried = pollAfter(index);
    if (tried >= 0)
        m_tries.insert(ofPoll, tried);
    return wasSilent ? 0 : ofPoll;
}

/// The next one of its station in the round, -1 when there is none.
int PollSchedule::pollAfter(int index) const
{
    const size_t after = state(index).wanted.interval > 0 ? 0 : state(index).roundPosition + 1;
    for (size_t i = 0; i < m_round.size(); ++i) {
        const int other = m_round[(after + i) % m_round.size()];
        if (station(other) == station(index))
            return other;
    }
    return -1;
}

} // namespace kx
