/// A session that polls in virtual time, and what a window foresees of it.
#ifndef KX_TESTS_TOOLS_KXPANEL_LINE_LIMIT_TIMED_POLLING_H
#define KX_TESTS_TOOLS_KXPANEL_LINE_LIMIT_TIMED_POLLING_H

#include "kxpanel/line/limit/answer_times.h"
#include "panel/session/session.h"
#include "tools/faults/faulty_line.h"

namespace kxpanel
{

/// Stations 1 to 3, without faults.
kx::FaultyLineSettings threeStations(int baud, int parityBits = 0);

/// Of "D0:10 D100@2/500": station 1 unless it is named; behind a slash the interval in
/// milliseconds.
QList<kx::PolledRange> polledRanges(const QString& words);

class TimedPolling
{
public:
    /// Polls until it plans by what stations take.
    /// @param maxWords longest request; 0: as takes the least time
    /// @param replyTimeout milliseconds; the longest reply at 2400 baud takes 1.2 s
    TimedPolling(const kx::FaultyLineSettings& line, const QList<kx::PolledRange>& watched,
                 int maxWords, int replyTimeout = 2000);

    /// Microseconds from the end of a cycle to that of the next, on average over so many, and over
    /// so many milliseconds at least.
    qint64 measured(int cycles = 3, qint64 atLeast = 0);
    /// The same as it is foreseen, by the answers so far.
    qint64 predicted() const;
    AnswerPace pace() const;

private:
    void onExchange(const kx::ExchangeRecord& record);

    kx::VirtualClock m_clock;
    kx::FaultyLine m_line;
    kx::LineTiming m_timing;
    QList<kx::PolledRange> m_watched;
    int m_maxWords;
    int m_replyTimeout;
    std::unique_ptr<kx::Session> m_session;
    AnswerTimes m_answers;
    QList<qint64> m_ends; ///< of cycles, microseconds
};

} // namespace kxpanel

#endif
