#include "exchange/exchange_loop.h"

#include "exchange/replies/whole_frame.h"

namespace kx
{

ExchangeLoop::ExchangeLoop(const DriverEntryPoints& entryPoints, Line* line,
                           const ExchangeSettings& settings, LoopClock* clock, QObject* parent)
    : QObject(parent),
      m_driver(entryPoints),
      m_line(line),
      m_settings(settings),
      m_clock(clock ? clock : &m_systemClock),
      m_silence(settings.quiet * MICROSECONDS_PER_MILLISECOND,
                settings.replyTimeout * MICROSECONDS_PER_MILLISECOND)
{
    qRegisterMetaType<ExchangeRecord>(); // for listeners in other threads
    connect(m_clock, &LoopClock::woken, this, &ExchangeLoop::proceed);
    connect(line, &Line::bytesArrived, this, &ExchangeLoop::onBytes);
    connect(line, &Line::failed, this, &ExchangeLoop::onLineLost);
    connect(line, &Line::interrupted, this, &ExchangeLoop::onInterrupted);
    connect(line, &Line::opened, this, &ExchangeLoop::onOpened);
}

void ExchangeLoop::start()
{
    if (isRunning())
        return;
    if (m_startedAt < 0)
        m_startedAt = now();
    m_hasGivenUp = false;
    m_silence.heardUntil(now());
    if (m_line->isOpen())
        waitForSilence();
    else
        m_state = State::AwaitingLine;
}

void ExchangeLoop::stop()
{
    if (!isRunning())
        return; // the clock may be another's
    if (m_state == State::AwaitingReply || m_state == State::AwaitingTurnaround) {
        m_current.giveUp();
        m_hasGivenUp = true;
    }
    m_state = State::Stopped;
    m_line->setReporting(true);
    m_clock->cancel();
}

const VARIABLE* ExchangeLoop::jobInFlight() const
{
    const bool isInFlight = m_state == State::AwaitingReply || m_state == State::AwaitingTurnaround;
    return isInFlight || m_hasGivenUp ? &m_current.record().job : nullptr;
}

void ExchangeLoop::waitForSilence()
{
    m_silence.setFrameGap(m_line->timing().frameGap());
    if (m_state != State::AwaitingSilence)
        m_silence.await(now());
    m_state = State::AwaitingSilence;
    m_clock->wakeExactlyAfter(m_silence.nextAt() - now());
}

// Bytes may lie in the port that came before the time was up: a busy program finds the
// timer first.
void ExchangeLoop::proceed()
{
    const State before = m_state;
    const QByteArray waiting = m_line->takeWaiting();
    if (!waiting.isEmpty())
        onBytes(waiting);
    if (m_state == before)
        act();
}

void ExchangeLoop::act()
{
    switch (m_state) {
    case State::Stopped:
    case State::AwaitingLine:
        return;
    case State::AwaitingSilence:
    case State::AwaitingLateReply:
    case State::Idle:
        // A line that never falls silent must not keep the requests back for ever.
        if (!m_silence.isLong(now())
            && (m_state != State::AwaitingSilence || !m_silence.isOverdue(now())))
            return waitForSilence();
        return poll();
    case State::AwaitingReply:
        if (now() < m_timeOutAt)
            return leaveBytesForAWhile();
        return finish(m_current.incomplete());
    case State::AwaitingTurnaround:
        return finish({ReplyKind::Broadcast, QByteArray()});
    }
}

void ExchangeLoop::poll()
{
    m_stray.sort(&m_owed, m_isHolding ? &m_heldBack : nullptr);
    m_owed.forgetBefore(now());
    FRAME_PRO request = FRAME_PRO();
    if (m_driver.getSendFrame(&request) == 0) {
        m_state = State::Idle;
        m_clock->wakeAfter(m_settings.idleInterval * MICROSECONDS_PER_MILLISECOND);
        emit idle();
        return;
    }
    const bool isWhole = isWholeFrame(request);
    if (isWhole && !m_silence.isEnough(now()))
        return giveUp(request);
    if (isWhole && isHeldBack(request))
        return;
    m_current.begin(request, m_current.isRepeat(request));
    if (isWhole)
        transmit();
    else
        finish({ReplyKind::NotSent, QByteArray()});
}

void ExchangeLoop::giveUp(const FRAME_PRO& request)
{
    m_current.begin(request, false);
    m_silence.await(now());
    finish({ReplyKind::NeverSilent, QByteArray()});
}

bool ExchangeLoop::isHeldBack(const FRAME_PRO& request)
{
    const qint64 until = m_owed.blockedUntil(request);
    const bool wasHolding = m_isHolding;
    m_isHolding = until > 0;
    if (m_isHolding) {
        m_heldBack = request;
        m_statistics.heldBack += wasHolding ? 0 : 1;
        m_state = State::AwaitingLateReply;
        m_clock->wakeAfter(until - now());
    }
    return m_isHolding;
}

void ExchangeLoop::transmit()
{
    const QByteArray request = m_current.send();
    const QByteArray discarded = m_line->discardWaiting();
    m_statistics.bytesReceived += discarded.size();
    m_stray.add(discarded);
    m_stray.sort(&m_owed, nullptr);
    // The line may turn out to be lost while bytes are thrown away, or while writing.
    const auto isLost = [this] { return !isRunning() || m_state == State::AwaitingLine; };
    if (!isLost())
        m_line->write(request);
    if (!isLost())
        awaitReply();
}

void ExchangeLoop::awaitReply()
{
    const FRAME_PRO& request = m_current.request();
    const qint64 transmission = m_line->timing().transmissionTime(request.sendLen);
    const qint64 transmittedAt = now() + transmission;
    m_current.setTransmittedAt(transmittedAt);
    m_silence.heardUntil(transmittedAt);
    const bool isBroadcast = request.frame[0] == 0;
    m_state = isBroadcast ? State::AwaitingTurnaround : State::AwaitingReply;
    const int wait = isBroadcast ? m_settings.turnaround : m_settings.replyTimeout;
    m_timeOutAt = transmittedAt + wait * MICROSECONDS_PER_MILLISECOND;
    if (isBroadcast)
        return m_clock->wakeAfter(m_timeOutAt - now());
    m_owed.add(request, m_timeOutAt + m_settings.settleTime() * MICROSECONDS_PER_MILLISECOND);
    leaveBytesForAWhile();
}

void ExchangeLoop::leaveBytesForAWhile()
{
    const qint64 until = m_current.leaveBytesUntil(now(), m_line->timing());
    m_line->setReporting(until == 0);
    m_clock->wakeAfter((until == 0 ? m_timeOutAt : qMin(until, m_timeOutAt)) - now());
}

void ExchangeLoop::onBytes(const QByteArray& bytes)
{
    if (m_state == State::AwaitingReply) {
        m_silence.heardUntil(now());
        if (const auto reply = m_current.add(bytes, now(), m_line->timing()))
            finish(*reply);
        else
            leaveBytesForAWhile();
        return;
    }
    m_statistics.bytesReceived += bytes.size();
    m_stray.add(bytes);
    m_silence.heardUntil(now());
    // It may be the late reply that a request is held back for.
    if (m_state == State::AwaitingLateReply)
        waitForSilence();
}

void ExchangeLoop::finish(const CollectedReply& reply)
{
    if (reply.kind != ReplyKind::NeverSilent)
        m_silence.setNoisy(reply.kind == ReplyKind::Bad);
    m_line->setReporting(true);
    m_current.end(reply, m_driver);
    m_silence.heardUntil(m_current.carriedAt(m_line->timing()));
    if (reply.kind == ReplyKind::Lost)
        m_state = State::AwaitingLine;
    else
        waitForSilence();
    emit exchanged(m_current.record());
}

void ExchangeLoop::onLineLost(const QString& error)
{
    if (!isRunning())
        return;
    stop();
    emit lineFailed(error);
}

void ExchangeLoop::onInterrupted()
{
    if (!isRunning())
        return;
    m_clock->cancel();
    const bool isInFlight = m_state == State::AwaitingReply || m_state == State::AwaitingTurnaround;
    m_state = State::AwaitingLine;
    if (isInFlight)
        finish({ReplyKind::Lost, QByteArray()});
}

void ExchangeLoop::onOpened()
{
    if (m_state != State::AwaitingLine)
        return;
    ++m_statistics.reopened;
    m_silence.heardUntil(now());
    waitForSilence();
}

} // namespace kx
