#include "exchange/exchange_loop.h"

#include "exchange/replies/reply_verdict.h"
#include "exchange/replies/whole_frame.h"

namespace kx
{

namespace
{

const qint64 MICROSECONDS_PER_MILLISECOND = 1000;
const int MOST_KEPT = 4096; // bytes of what came for one request

} // namespace

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
    connect(line, &Line::bytesArrived, this, &ExchangeLoop::takeBytes);
    connect(line, &Line::failed, this, &ExchangeLoop::loseLine);
    connect(line, &Line::interrupted, this, &ExchangeLoop::awaitLine);
    connect(line, &Line::opened, this, &ExchangeLoop::resume);
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
    if (m_state == State::AwaitingReply || m_state == State::AwaitingTurnaround) {
        m_repeating = true;
        m_hasGivenUp = true;
    }
    m_state = State::Stopped;
    m_clock->cancel();
}

void ExchangeLoop::wake()
{
    if (m_state == State::Idle)
        proceed();
}

qint64 ExchangeLoop::elapsed() const
{
    return m_startedAt < 0 ? 0 : (now() - m_startedAt) / MICROSECONDS_PER_MILLISECOND;
}

void ExchangeLoop::waitForSilence()
{
    m_silence.setFrameGap(m_line->timing().frameGap());
    if (m_state != State::AwaitingSilence)
        m_silence.await(now());
    m_state = State::AwaitingSilence;
    m_clock->wakeAfter(m_silence.nextAt() - now());
}

// Bytes may lie in the port that came before the time was up: a busy program finds the
// timer first.
void ExchangeLoop::proceed()
{
    const State before = m_state;
    const QByteArray waiting = m_line->takeWaiting();
    if (!waiting.isEmpty())
        takeBytes(waiting);
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
        return finish(m_collector.incomplete());
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
    const bool isRepeat = isWhole && m_repeating && bytesOf(request) == m_record.request;
    if (isWhole && !m_silence.isEnough(now()))
        return giveUp(request);
    if (isWhole && isHeldBack(request))
        return;
    prepare(request, isRepeat);
    if (isWhole)
        transmit();
    else
        finish({ReplyKind::NotSent, QByteArray()});
}

void ExchangeLoop::giveUp(const FRAME_PRO& request)
{
    prepare(request, false);
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

void ExchangeLoop::prepare(const FRAME_PRO& request, bool isRepeat)
{
    m_collector.begin(request);
    m_record = ExchangeRecord();
    m_record.job = request.job;
    m_record.repeated = isRepeat;
    m_record.sentAt = QDateTime::currentDateTime();
}

void ExchangeLoop::transmit()
{
    m_record.request = bytesOf(m_collector.request());
    const QByteArray discarded = m_line->discardWaiting();
    m_statistics.bytesReceived += discarded.size();
    m_stray.add(discarded);
    m_stray.sort(&m_owed, nullptr);
    // The line may turn out to be lost while bytes are thrown away, or while writing.
    const auto isLost = [this] { return !isRunning() || m_state == State::AwaitingLine; };
    if (!isLost())
        m_line->write(m_record.request);
    if (!isLost())
        awaitReply();
}

void ExchangeLoop::awaitReply()
{
    const FRAME_PRO& request = m_collector.request();
    const qint64 transmission = m_line->timing().transmissionTime(request.sendLen);
    m_transmittedAt = now() + transmission;
    m_silence.heardUntil(m_transmittedAt);
    const bool isBroadcast = request.frame[0] == 0;
    m_state = isBroadcast ? State::AwaitingTurnaround : State::AwaitingReply;
    const int wait = isBroadcast ? m_settings.turnaround : m_settings.replyTimeout;
    m_clock->wakeAfter(transmission + wait * MICROSECONDS_PER_MILLISECOND);
    const qint64 owed = qint64(wait) + m_settings.settleTime();
    if (!isBroadcast)
        m_owed.add(request, m_transmittedAt + owed * MICROSECONDS_PER_MILLISECOND);
}

void ExchangeLoop::takeBytes(const QByteArray& bytes)
{
    if (m_state == State::AwaitingReply) {
        m_silence.heardUntil(now());
        const QByteArray kept = bytes.left(MOST_KEPT - static_cast<int>(m_record.reply.size()));
        m_record.reply += kept;
        m_statistics.bytesReceived += bytes.size() - kept.size();
        const auto reply = m_collector.add(bytes, now() - m_transmittedAt, m_line->timing());
        if (reply)
            finish(*reply);
        return;
    }
    m_statistics.bytesReceived += bytes.size();
    m_stray.add(bytes);
    m_silence.heardUntil(now());
    // It may be the late reply that a request is held back for.
    if (m_state == State::AwaitingLateReply)
        waitForSilence();
}

void ExchangeLoop::finish(CollectedReply reply)
{
    m_record.replyKind = reply.kind;
    m_record.foreignReplies = m_collector.foreignReplies();
    if (reply.kind != ReplyKind::NeverSilent)
        m_silence.setNoisy(reply.kind == ReplyKind::Bad);
    if (reply.kind == ReplyKind::Exception)
        m_record.exceptionCode = exceptionCodeOf(reply.bytes);
    m_record.finishedAt = QDateTime::currentDateTime();
    m_collector.settle(reply);
    m_record.result = m_driver.dealRcvFrame(reply.bytes, m_record.errorText);
    m_repeating = m_record.result == REPLY_RETRY;
    m_statistics.add(m_record);
    // A pseudo-terminal delivers at once what a serial line carries for milliseconds.
    m_silence.heardUntil(m_transmittedAt
                         + m_line->timing().transmissionTime(m_record.reply.size()));
    if (reply.kind == ReplyKind::Lost)
        m_state = State::AwaitingLine;
    else
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

void ExchangeLoop::awaitLine()
{
    if (!isRunning())
        return;
    m_clock->cancel();
    const bool isInFlight = m_state == State::AwaitingReply || m_state == State::AwaitingTurnaround;
    m_state = State::AwaitingLine;
    if (isInFlight)
        finish({ReplyKind::Lost, QByteArray()});
}

void ExchangeLoop::resume()
{
    if (m_state != State::AwaitingLine)
        return;
    ++m_statistics.reopened;
    m_silence.heardUntil(now());
    waitForSilence();
}

} // namespace kx
