/// The exchange cycle between the driver and a line.
#ifndef KX_EXCHANGE_EXCHANGE_LOOP_H
#define KX_EXCHANGE_EXCHANGE_LOOP_H

#include "exchange/current_exchange.h"
#include "exchange/exchange_settings.h"
#include "exchange/line_silence.h"
#include "exchange/lines/line.h"
#include "exchange/loop_clock.h"
#include "exchange/replies/owed_replies.h"
#include "exchange/replies/statistics.h"
#include "exchange/replies/stray_bytes.h"

#include <QtCore/QObject>

namespace kx
{

/// Polls the driver for a request, transmits it, collects the reply, hands it over
/// and obeys the result. Event driven: start() returns at once.
///
/// Bytes left over from before are thrown away before each request, and the line
/// has been silent; what they were is counted. When it does not fall silent for as long
/// as the time-out, the request is not transmitted and the driver gets an empty reply. A reply is
/// handed over when it is complete, refused by the station (an exception) or beyond repair, else as
/// far as it came by the time-out. A reply of another request is thrown away and the wait goes on;
/// when nothing better comes the driver gets an empty reply. See ReplyCollector.
///
/// A reply may come after its time-out, and replies to reads carry no address. So a
/// request is held back while a late reply could be taken for its own, until that
/// reply came or the settle time is over; see OwedReplies.
///
/// When the line is interrupted, the driver gets an empty reply to the request in
/// flight, and nothing is sent until the line is open again.
///
/// Broadcasts (station 0) are answered by nobody: after the turnaround delay the
/// driver gets an empty reply, repeats the request up to its retry limit and
/// counts it as failed. A request longer than its frame, or of no byte, is not whole; it
/// is never transmitted, and the driver gets an empty reply.
///
/// On a serial line the bytes of a reply are left in the port until it can be whole, instead of
/// taken one by one; see setReporting(). One look at half of its time shows whether the line keeps
/// time. While another reply is owed each byte is taken as it comes.
///
/// "Time" is the one that was waited for: before it counts, the bytes are taken that lie in the
/// port, which a busy program has not come to. A reply among them is accepted, although nobody
/// can tell whether it came in time.
///
///     State               Event                     Done                       Next state
///     Stopped             start()                                              AwaitingSilence
///                         start(), line not open                               AwaitingLine
///     AwaitingSilence     time, silent              the driver is asked        as Asked
///                         time, not silent yet                                 the same
///                         time, patience over       the driver is asked        as Asked, but a
///                                                                              request fails
///                                                                              unsent
///     AwaitingLateReply   bytes                     thrown away                AwaitingSilence
///                         time                      the driver is asked        as Asked
///     Idle                time, or wake()           the driver is asked        as Asked
///     both                time, not silent                                     AwaitingSilence
///     Asked               nothing to send           idle()                     Idle
///       (passed at once)  could be mistaken         held back                  AwaitingLateReply
///                         not whole                 empty reply, exchanged()   AwaitingSilence
///                         a broadcast               transmitted                AwaitingTurnaround
///                         else                      transmitted                AwaitingReply
///     AwaitingReply       bytes, reply whole        handed over, exchanged()   AwaitingSilence
///                         bytes, not whole yet      kept                       the same
///                         time to look, not whole   kept                       the same
///                         time-out                  what came is handed over,  AwaitingSilence
///                                                   exchanged()
///     AwaitingTurnaround  time                      empty reply, exchanged()   AwaitingSilence
///     both                line interrupted          empty reply, exchanged()   AwaitingLine
///     AwaitingLine        line open again                                      AwaitingSilence
///     all but Stopped     line interrupted                                     AwaitingLine
///                         line lost                 lineFailed()               Stopped
///                         stop()                                               Stopped
///     all others          bytes                     thrown away, silence anew  the same
///
/// Lives in the thread of its line and its clock; move all three to another together.
class ExchangeLoop : public QObject
{
    Q_OBJECT

public:
    /// The line stays the caller's, has been opened by start() and outlives the loop,
    /// as does the clock; without one the system's is used.
    ExchangeLoop(const DriverEntryPoints& entryPoints, Line* line, const ExchangeSettings& settings,
                 LoopClock* clock = nullptr, QObject* parent = nullptr);

    void start();
    /// A request in flight is given up without telling the driver, which hands it
    /// out again after the next start().
    void stop();
    bool isRunning() const { return m_state != State::Stopped; }
    /// The job of the request that was transmitted and not answered: that is in flight, or was
    /// when the loop stopped. Else null.
    const VARIABLE* jobInFlight() const;

    /// Asks the driver at once instead of after the idle interval: for new work.
    void wake()
    {
        if (m_state == State::Idle)
            proceed();
    }

    /// While idle: asks the driver then, if that is before the idle interval is over.
    /// @param time microseconds on the clock; not one that has passed
    void wakeBy(qint64 time)
    {
        const qint64 idle = m_settings.idleInterval * MICROSECONDS_PER_MILLISECOND;
        const qint64 wait = time - now();
        if (m_state == State::Idle && wait > 0 && wait < idle)
            m_clock->wakeAfter(wait);
    }

    const Statistics& statistics() const { return m_statistics; }
    /// Milliseconds since the first start().
    qint64 elapsed() const
    {
        return m_startedAt < 0 ? 0 : (now() - m_startedAt) / MICROSECONDS_PER_MILLISECOND;
    }

signals:
    /// After the driver dealt with the reply.
    void exchanged(const kx::ExchangeRecord& record);
    /// The driver has nothing to send; each time it is asked in vain.
    void idle();
    /// The line is lost; the loop has stopped.
    void lineFailed(const QString& error);

private:
    enum class State {
        Stopped,
        AwaitingSilence,
        AwaitingLateReply,
        Idle,
        AwaitingReply,
        AwaitingTurnaround,
        AwaitingLine
    };

    void proceed();
    void act();
    void poll();
    void giveUp(const FRAME_PRO& request);
    bool isHeldBack(const FRAME_PRO& request);
    void transmit();
    void awaitReply();
    void leaveBytesForAWhile();
    void onBytes(const QByteArray& bytes);
    void finish(const CollectedReply& reply);
    void onLineLost(const QString& error);
    void onInterrupted();
    void onOpened();
    void waitForSilence();
    qint64 now() const { return m_clock->now(); }

    DriverEntryPoints m_driver;
    Line* m_line;
    ExchangeSettings m_settings;
    State m_state = State::Stopped;
    SystemClock m_systemClock{this};
    LoopClock* m_clock;
    qint64 m_startedAt = -1; ///< as now()
    LineSilence m_silence;   ///< by now()
    qint64 m_timeOutAt = 0;  ///< of the request in flight, as now()
    bool m_hasGivenUp = false;
    bool m_isHolding = false; ///< a request is held back
    FRAME_PRO m_heldBack = FRAME_PRO();
    Statistics m_statistics;
    OwedReplies m_owed; ///< by now()
    StrayBytes m_stray{&m_statistics.thrownAway};
    CurrentExchange m_current{&m_owed, &m_stray, &m_statistics};
};

} // namespace kx

#endif
