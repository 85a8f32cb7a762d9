#ifndef KX_PANEL_POLLING_POLL_SCHEDULE_H
#define KX_PANEL_POLLING_POLL_SCHEDULE_H

#include "panel/polling/polled_range.h"
#include "panel/polling/silent_stations.h"

#include <QtCore/QList>

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace kx
{

/// Which poll is next. Those without an interval take turns, cycle after cycle; those with one
/// come when they are due, one after each of the others at most, spread over their interval.
///
/// A station that does not answer is left out, but for a try now and then of one of its polls
/// after the other; see SilentStations. When it answers, those with an interval are due at once,
/// too. A poll that fails again although its station answers
/// others is left out by itself in the same way.
///
/// Times are microseconds on the loop's clock.
class PollSchedule
{
public:
    enum class Outcome {
        Answered, ///< or refused: the station is there
        Silent,
        Unknown ///< the line's fault
    };

    /// What an exchange has changed.
    struct Step {
        bool endsCycle = false;
        int silenced = 0; ///< station that fell silent; 0: none
    };

    /// @param replyTimeout microseconds
    explicit PollSchedule(qint64 replyTimeout);

    /// Polls that stay the same are due when they were; the cycle begins anew.
    void setPolls(const QList<PolledRange>& polls, qint64 now);
    const PolledRange& poll(int index) const { return m_polls[static_cast<size_t>(index)].wanted; }
    int size() const { return static_cast<int>(m_polls.size()); }

    /// The index of the poll to send now, -1 for none.
    int next(qint64 now);
    /// A single try is enough: the poll or its station was silent before.
    bool isTry(int index) const;
    /// When there may be one again, after there was none.
    qint64 nextAt() const;

    /// The poll goes out.
    void begin(int index, qint64 now);
    /// It has ended.
    Step end(int index, Outcome outcome, qint64 now);

    /// Times that a poll was not sent within its interval. Those of silent stations do not count.
    qint64 missed() const { return m_missed; }

private:
    struct State {
        PolledRange wanted;
        size_t roundPosition = 0;   ///< without an interval
        qint64 dueAt = 0;           ///< with one
        qint64 phase = 0;           ///< with one: a time at which it is due
        bool wasSent = false;       ///< at least once
        bool isOfCycle = false;     ///< no poll has a shorter interval
        bool isLeftInCycle = false; ///< neither sent nor left out in it
        int silences = 0;           ///< in a row, while its station answers others
        qint64 silentUntil = 0;     ///< when there are too many
    };
    using Due = std::pair<qint64, int>; ///< when, and the poll

    State& state(int index) { return m_polls[static_cast<size_t>(index)]; }
    const State& state(int index) const { return m_polls[static_cast<size_t>(index)]; }
    int station(int index) const { return state(index).wanted.range.station; }
    void arrange(const std::map<int, int>& sizes, qint64 now);
    void beginCycle();
    int nextInRound(qint64 now) const;
    int nextDue(qint64 now);
    bool maySend(int index, qint64 now) const;
    void advance(int index, qint64 now);
    void onAnswer(int index, qint64 now);
    void bringForward(int index, qint64 now);
    int onSilence(int index, qint64 now);
    int pollAfter(int index) const;

    qint64 m_replyTimeout;
    std::vector<State> m_polls;
    std::vector<int> m_round; ///< polls without an interval
    std::set<Due> m_due;      ///< the others
    SilentStations m_silent;
    QHash<int, int> m_tries; ///< by silent station: the poll of the round that is tried next
    size_t m_position = 0;   ///< in the round
    qint64 m_roundNumber = 0;
    bool m_wasSentInCycle = false;
    int m_leftInCycle = 0; ///< of m_due
    bool m_wasDue = false; ///< the latest poll was one with an interval
    qint64 m_missed = 0;
};

} // namespace kx

#endif
