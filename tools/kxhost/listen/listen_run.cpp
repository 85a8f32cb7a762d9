#include "kxhost/listen/listen_run.h"

#include "exchange/loop_clock.h"
#include "kxhost/terminal/console.h"
#include "kxhost/views/watch/watch_screen.h"
#include "listen/heard_text.h"

#include <chrono>

namespace kx
{

namespace
{

const qint64 NANOSECONDS_PER_MICROSECOND = 1000;
const int MILLISECONDS_PER_SECOND = 1000;

QSerialPort::Parity parityOf(char letter)
{
    if (letter == 'N')
        return QSerialPort::NoParity;
    return letter == 'E' ? QSerialPort::EvenParity : QSerialPort::OddParity;
}

qint64 microsecondsSince(const QElapsedTimer& clock)
{
    return clock.nsecsElapsed() / NANOSECONDS_PER_MICROSECOND;
}

/// Since 1970-01-01 UTC.
qint64 microsecondsOfDay()
{
    using namespace std::chrono;
    return duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
}

int wholeMilliseconds(qint64 microseconds)
{
    return static_cast<int>(microseconds / MICROSECONDS_PER_MILLISECOND + 1);
}

} // namespace

ListenRun::ListenRun(const ListenOptions& options, CaptureFile* capture)
    : m_options(options),
      m_line(options.port, options.timing, parityOf(options.parity)),
      m_listener(options.timing, options.replyTimeout * MICROSECONDS_PER_MILLISECOND),
      m_capture(capture)
{
    m_line.setReadOnly();
    for (QTimer* const timer : {&m_silence, &m_noReply, &m_end})
        timer->setSingleShot(true);
    m_silence.setInterval(wholeMilliseconds(m_listener.silence()));
    m_noReply.setTimerType(Qt::PreciseTimer); // others may be early
    m_noReply.setInterval(options.replyTimeout + 1);
    m_end.setInterval(options.seconds * MILLISECONDS_PER_SECOND);
    connect(&m_silence, &QTimer::timeout, this, &ListenRun::onSilence);
    connect(&m_noReply, &QTimer::timeout, this, &ListenRun::onSilence);
    connect(&m_end, &QTimer::timeout, this, &ListenRun::finish);
    connect(&m_line, &Line::opened, this, &ListenRun::onOpened);
    connect(&m_line, &Line::bytesArrived, this, &ListenRun::onBytes);
    connect(&m_line, &Line::failed, this, &ListenRun::onFailure);
}

void ListenRun::start()
{
    m_line.open();
}

void ListenRun::onOpened()
{
    m_wasOpen = true;
    m_clock.start();
    if (m_options.seconds > 0)
        m_end.start();
    const QString settings = lineSettingsText(m_options.timing, QLatin1Char(m_options.parity));
    if (m_options.json)
        printJson({{QStringLiteral("event"), QStringLiteral("listening")},
                   {QStringLiteral("port"), m_line.name()},
                   {QStringLiteral("settings"), settings}});
    else
        say(QStringLiteral("listening at %1, %2; Ctrl-C ends").arg(m_line.name(), settings));
}

void ListenRun::onBytes(const QByteArray& bytes)
{
    m_silence.start();
    m_noReply.start();
    show(m_listener.add(bytes, microsecondsSince(m_clock)));
}

void ListenRun::onSilence()
{
    // The timer may run out before bytes are taken that a busy program has not come to.
    const QByteArray waiting = m_line.takeWaiting();
    if (!waiting.isEmpty())
        onBytes(waiting);
    else
        show(m_listener.settle(microsecondsSince(m_clock)));
}

void ListenRun::onFailure(const QString& error)
{
    m_failure = error;
    finish();
}

void ListenRun::show(const Heard& heard)
{
    const qint64 now = microsecondsSince(m_clock);
    const qint64 today = microsecondsOfDay();
    for (const HeardPiece& piece : heard.pieces)
        m_capture->add(piece, today - (now - piece.lastRead));
    const QDateTime time = QDateTime::currentDateTime();
    for (const HeardExchange& exchange : heard.exchanges)
        print(exchange, time.addMSecs(-((now - heardAt(exchange)) / MICROSECONDS_PER_MILLISECOND)));
    if (!m_capture->failure().isEmpty() && m_failure.isEmpty())
        onFailure(m_capture->failure());
}

void ListenRun::print(const HeardExchange& exchange, const QDateTime& time) const
{
    if (m_options.json)
        return printJson(heardJson(exchange, time));
    say(heardRow(exchange, time));
    if (!m_options.frames)
        return;
    for (const QString& row : heardFrames(exchange))
        say(row);
}

void ListenRun::finish()
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    for (QTimer* const timer : {&m_silence, &m_noReply, &m_end})
        timer->stop();
    if (m_wasOpen)
        printSummary();
    m_line.close();
    emit finished();
}

void ListenRun::printSummary()
{
    const qint64 now = microsecondsSince(m_clock);
    show(m_listener.finish(now));
    const LineCounts& counts = m_listener.counts();
    const ListenSummary summary = {counts, m_options.timing, now};
    if (m_options.json)
        printJson(listenJson(summary));
    for (const QString& row : m_options.json ? QStringList() : listenRows(summary))
        say(row);
    if (!m_failure.isEmpty() || counts.frames > 0)
        return;
    m_failure = counts.bytes == 0
                    ? QStringLiteral("%1: nothing was heard").arg(m_line.name())
                    : QStringLiteral("%1: no frame in what was heard; check --baud and --parity")
                          .arg(m_line.name());
}

} // namespace kx
