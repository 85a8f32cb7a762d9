#ifndef KX_KXHOST_RAW_RAW_EXCHANGE_H
#define KX_KXHOST_RAW_RAW_EXCHANGE_H

#include "exchange/lines/line.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

namespace kx
{

/// Sends bytes once and collects whatever comes, without a driver.
///
///     State       Event                        Next state
///     Waiting     start()                      Silencing
///     Silencing   bytes                        Silencing, silence anew
///                 silent long enough           sent, Collecting
///                 not silent within time-out   Ended, wasSent() false
///     Collecting  bytes                        Collecting, silence anew
///                 silence behind bytes, or
///                 the time-out                 Ended
///     each        the line is lost, stop()     Ended
class RawExchange : public QObject
{
    Q_OBJECT

public:
    struct Waits {
        int timeout; ///< milliseconds from the end of the request
        int quiet;   ///< milliseconds of silence before the request, at least the frame gap
    };

    /// @param line open; stays the caller's and outlives this
    /// @param request at least 1 byte
    RawExchange(Line* line, const QByteArray& request, const Waits& waits);

    void start();
    void stop() { end(); }

    bool wasSent() const { return m_wasSent; }
    const QByteArray& received() const { return m_received; }
    /// Milliseconds from the end of the request to the last byte; 0 when none came.
    qint64 milliseconds() const { return m_lastByteAt; }
    /// One line; empty unless the line was lost.
    const QString& error() const { return m_error; }

signals:
    /// Once.
    void finished();

private:
    enum class State { Waiting, Silencing, Collecting, Ended };

    void onTime();
    void onTimeout();
    void onBytes(const QByteArray& bytes);
    void onLost(const QString& error);
    void send();
    void end();
    int frameGap() const;
    int endSilence() const;

    Line* m_line;
    QByteArray m_request;
    Waits m_waits;
    State m_state = State::Waiting;
    QTimer m_timer{this};      ///< until the line has been silent
    QTimer m_patience{this};   ///< until the time-out
    QElapsedTimer m_clock;     ///< since the request was handed over
    qint64 m_transmission = 0; ///< milliseconds of the request
    qint64 m_lastByteAt = 0;
    QByteArray m_received;
    QString m_error;
    bool m_wasSent = false;
};

} // namespace kx

#endif
