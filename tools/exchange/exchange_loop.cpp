#include "exchange/exchange_loop.h"

namespace
{

const qint64 MICROSECONDS_PER_MILLISECOND = 1000;

} // namespace

ExchangeLoop::ExchangeLoop(const DriverEntryPoints& entryPoints, Line* line,
                           const ExchangeSettings& settings, QObject* parent)
    : QObject(parent), m_driver(entryPoints), m_line(line), m_settings(settings)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ExchangeLoop::proceed);
    connect(line, &Line::bytesArrived, this, &ExchangeLoop::takeBytes);
    connect(line, &Line::failed, this, &ExchangeLoop::loseLine);
}

void ExchangeLoop::start()
{
    if (isRunning())
        return;
    if (!m_started.isValid())
        m_started.start();
    m_hasGivenUp = false;
    m_silentSince = now();
    waitForSilence();
}

void ExchangeLoop::stop()
{
    if (m_state == State::AwaitingReply || m_state == State::AwaitingTurnaround) {
        m_repeating = true;
        m_hasGivenUp = true;
    }
    m_state = State::Stopped;
    m_timer.stop();
}

void ExchangeLoop::wake()
{
    if (m_state == State::Idle)
        proceed();
}

qint64 ExchangeLoop::now() const
{
    return m_started.nsecsElapsed() / MICROSECONDS_PER_MILLISECOND;
}

void ExchangeLoop::waitMicroseconds(qint64 duration)
{
    const qint64 milliseconds =
        (duration + MICROSECONDS_PER_MILLISECOND - 1) / MICROSECONDS_PER_MILLISECOND;
    m_timer.start(static_cast<int>(qMax(qint64(0), milliseconds)));
}

void ExchangeLoop::waitForSilence()
{
    if (m_state != State::AwaitingSilence)
        m_silenceWantedSince = now();
    m_state = State::AwaitingSilence;
    waitMicroseconds(m_silentSince + m_line->timing().frameGap() - now());
}

void ExchangeLoop::proceed()
{
    switch (m_state) {
    case State::Stopped:
        return;
    case State::AwaitingSilence:
    case State::Idle:
        if (now() < m_silentSince + m_line->timing().frameGap())
            return waitForSilence();
        return poll();
    case State::AwaitingReply:
        return handleTimeout();
    case State::AwaitingTurnaround:
        return finish(ReplyKind::Broadcast, QByteArray());
    }
}

void ExchangeLoop::poll()
{
    m_request = FRAME_PRO();
    if (m_driver.getSendFrame(&m_request) == 0) {
        m_state = State::Idle;
        m_timer.start(m_settings.idleInterval);
        emit idle();
        return;
    }
    m_collected.clear();
    m_record = ExchangeRecord();
    m_record.job = m_request.job;
    m_record.repeated = m_repeating;
    m_record.sentAt = QDateTime::currentDateTime();
    if (m_request.sendLen > FRAME_SIZE)
        finish(ReplyKind::NotSent, QByteArray());
    else
        transmit();
}

void ExchangeLoop::transmit()
{
    m_record.request =
        QByteArray(reinterpret_cast<const char*>(m_request.frame), m_request.sendLen);
    m_line->discardWaiting();
    m_line->write(m_record.request);
    if (!isRunning())
        return; // the line was lost while writing
    const qint64 transmission = m_line->timing().transmissionTime(m_request.sendLen);
    m_transmittedAt = now() + transmission;
    m_silentSince = m_transmittedAt;
    const bool isBroadcast = m_request.frame[0] == 0;
    m_state = isBroadcast ? State::AwaitingTurnaround : State::AwaitingReply;
    const int wait = isBroadcast ? m_settings.turnaround : m_settings.replyTimeout;
    waitMicroseconds(transmission + wait * MICROSECONDS_PER_MILLISECOND);
}

void ExchangeLoop::takeBytes(const QByteArray& bytes)
{
    if (m_state == State::AwaitingReply) {
        m_silentSince = qMax(m_silentSince, now());
        m_record.reply += bytes;
        m_collected += bytes;
        return judge();
    }
    m_statistics.bytesReceived += bytes.size();
    // A line that never falls silent must not keep the requests back for ever.
    const qint64 limit = m_settings.replyTimeout * MICROSECONDS_PER_MILLISECOND;
    if (m_state == State::Idle || now() < m_silenceWantedSince + limit)
        m_silentSince = qMax(m_silentSince, now());
}

void ExchangeLoop::judge()
{
    for (;;) {
        const Judgement judgement = judgeReply(m_request, m_collected);
        switch (judgement.verdict) {
        case Verdict::Incomplete:
            return;
        case Verdict::Foreign:
            ++m_record.foreignReplies;
            m_collected.remove(0, judgement.length);
            break;
        case Verdict::Good:
            return finish(ReplyKind::Good, m_collected.left(judgement.length));
        case Verdict::Bad:
            return finish(ReplyKind::Bad, m_collected.left(judgement.length));
        case Verdict::Exception:
            m_record.exceptionCode = exceptionCodeOf(m_collected);
            return finish(ReplyKind::Exception, m_collected.left(judgement.length));
        }
    }
}

void ExchangeLoop::handleTimeout()
{
    if (!m_collected.isEmpty())
        return finish(ReplyKind::Short, m_collected);
    finish(m_record.foreignReplies > 0 ? ReplyKind::Foreign : ReplyKind::None, QByteArray());
}

void ExchangeLoop::finish(ReplyKind kind, QByteArray reply)
{
    m_record.replyKind = kind;
    m_record.finishedAt = QDateTime::currentDateTime();
    m_record.result = m_driver.dealRcvFrame(reply, m_record.errorText);
    m_repeating = m_record.result == REPLY_RETRY;
    m_statistics.add(m_record);
    // A pseudo-terminal delivers at once what a serial line carries for milliseconds.
    m_silentSince = qMax(
        m_silentSince, m_transmittedAt + m_line->timing().transmissionTime(m_record.reply.size()));
    waitForSilence();
    emit exchanged(m_record);
}

void ExchangeLoop::loseLine(const QString& error)
{
    if (!isRunning())
        return;
    stop();
    emit lineFailed(error);
}
