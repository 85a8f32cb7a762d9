/// A line that takes its time: requests arrive and replies leave at some pace, with the
/// controllers' turnaround between them.
///
///     host    |request......|                       |
///     line                  |<--- turnaround ------>|reply......|
///
/// Without pace and turnaround all bytes pass at once.
#ifndef KX_KXSIM_LINE_TIMED_LINE_H
#define KX_KXSIM_LINE_TIMED_LINE_H

#include "kxsim/line/slave_line.h"
#include "kxsim/timing/arriving_bytes.h"
#include "kxsim/timing/leaving_bytes.h"
#include "kxsim/timing/precise_timer.h"
#include "kxsim/timing/turnaround.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

namespace kxsim
{

struct LineTiming {
    Pace pace;
    DurationRange turnaround;
    quint32 seed = 1; ///< of a turnaround that differs
};

class TimedLine
{
public:
    /// Its time begins now. `line` must outlive it.
    TimedLine(SlaveLine* line, const LineTiming& timing);

    /// Since it was made.
    Moment now() const;

    /// Readable when a host has sent something: call receive() then.
    int descriptor() const { return m_line->descriptor(); }

    /// Readable when something is due as of the latest setAlarm(): take what has arrived,
    /// and send what is due.
    int alarm() const { return m_timer.descriptor(); }
    void setAlarm();

    /// Lets what the host has sent travel; false when the line is lost.
    bool receive();

    /// Whether something has arrived; then takes it.
    bool takeArrived(ArrivingBytes::Arrival* arrival);

    /// Nothing is on its way to the controllers.
    bool isQuiet() const { return m_arriving.isEmpty(); }

    /// Lets a reply leave after the turnaround and a further delay.
    /// @param requestEnd when its request had arrived
    void reply(const QByteArray& bytes, Moment requestEnd, Moment delay);

    /// Hands the host the bytes that are due. Returns the replies that begin with them.
    QList<QByteArray> sendDue();

    /// See SlaveLine::reopen().
    bool reopen();

private:
    using Clock = std::chrono::steady_clock;

    SlaveLine* m_line;
    Clock::time_point m_start = Clock::now();
    Turnaround m_turnaround;
    ArrivingBytes m_arriving;
    LeavingBytes m_leaving;
    PreciseTimer m_timer;
};

} // namespace kxsim

#endif
