#ifndef KX_KXPANEL_LINE_CYCLE_LINE_RECORD_H
#define KX_KXPANEL_LINE_CYCLE_LINE_RECORD_H

#include "kxpanel/exchanges/exchange_history.h"
#include "kxpanel/exchanges/exchange_times.h"
#include "kxpanel/exchanges/reply_times.h"
#include "kxpanel/exchanges/station_sign.h"
#include "kxpanel/line/cycle/cycle_marks.h"

#include <QtCore/QMap>
#include <QtCore/QSet>

namespace kxpanel
{

/// The reply came later than the station's usually do: more than twice its median, and by more
/// than a frame gap, or a millisecond where none is kept.
/// @param usual the median in microseconds
bool isLateReply(qint64 turnaround, qint64 usual, const kx::LineTiming& timing);

/// The latest exchanges with their times on the line. Places are those of its history.
class LineRecord
{
public:
    static constexpr int MOST = 5000; ///< exchanges kept

    struct Mark {
        ExchangeTimes times;
        bool isLate = false;
        bool beginsCycle = false;
    };

    /// Some that followed each other.
    struct Cycles {
        int count = 0;
        qint64 time = 0; ///< of all together, microseconds
    };

    explicit LineRecord(int most = MOST) : m_history(most) {}

    void add(const Exchange& exchange, const kx::LineTiming& timing);
    /// Which stations are silent, of an exchange that is not added, or later.
    void hear(const Exchange& exchange);
    /// Forgets all, reply times as well: another line.
    void clear();

    const ExchangeHistory& history() const { return m_history; }
    /// @param place one that is kept
    const Mark& mark(qint64 place) const
    {
        return m_marks[static_cast<size_t>(place - m_history.begin())];
    }

    /// The first that was not over at a time; history().end() when all were.
    qint64 firstAfter(qint64 time) const;
    /// The one that had the line at a time, or was the last before it; -1: none.
    qint64 placeAt(qint64 time) const;
    /// How the line was used between two times, the latter behind the former.
    LineShares shares(qint64 from, qint64 to) const;
    /// As many of the latest cycles that are over as are known, and no more than `most`.
    Cycles latestCycles(int most) const;

    /// Of each station that was asked, since it was cleared; whole replies of its own.
    const QMap<int, ReplyTimes>& replyTimes() const { return m_replies; }
    /// Of exchanges that are kept, rising.
    QList<int> stations() const { return m_kept.keys(); }
    /// That did not answer when they were asked last, rising.
    QList<int> silentStations() const;
    bool isFull() const { return m_history.size() >= m_history.most(); }

private:
    void leave(int station);

    ExchangeHistory m_history;
    std::deque<Mark> m_marks; ///< of each exchange in the history
    QMap<int, ReplyTimes> m_replies;
    QMap<int, int> m_kept; ///< exchanges in the history, by station
    QSet<int> m_silent;
    CycleMarks m_cycles;
};

} // namespace kxpanel

#endif
