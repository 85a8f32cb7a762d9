#include "kxhost/raw/raw_exchange.h"

namespace kx
{

namespace
{

const int ADAPTER_DELAY = 20;  // milliseconds that adapters may keep bytes of one stream back
const int NETWORK_DELAY = 100; // the same of a network
const int MOST_KEPT = 4096;    // bytes
const int MILLISECOND = 1000;  // microseconds

int roundedUp(qint64 microseconds)
{
    return static_cast<int>((microseconds + MILLISECOND - 1) / MILLISECOND);
}

} // namespace

RawExchange::RawExchange(Line* line, const QByteArray& request, const Waits& waits)
    : m_line(line), m_request(request), m_waits(waits)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_patience.setSingleShot(true);
    m_patience.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &RawExchange::onTime);
    connect(&m_patience, &QTimer::timeout, this, &RawExchange::onTimeout);
    connect(line, &Line::bytesArrived, this, &RawExchange::onBytes);
    connect(line, &Line::failed, this, &RawExchange::onLost);
    connect(line, &Line::interrupted, this, &RawExchange::end);
}

void RawExchange::start()
{
    m_state = State::Silencing;
    m_timer.start(frameGap());
    m_patience.start(frameGap() + m_waits.timeout);
}

int RawExchange::frameGap() const
{
    return qMax(m_waits.quiet, roundedUp(m_line->timing().frameGap()));
}

int RawExchange::endSilence() const
{
    return m_line->timing().baud == 0 ? NETWORK_DELAY : qMax(frameGap(), ADAPTER_DELAY);
}

// Bytes may lie in the port that came before the time was up.
void RawExchange::onTime()
{
    const QByteArray waiting = m_line->takeWaiting();
    if (!waiting.isEmpty())
        onBytes(waiting);
    else if (m_state == State::Silencing)
        send();
    else
        end();
}

void RawExchange::onTimeout()
{
    onBytes(m_line->takeWaiting());
    end();
}

void RawExchange::send()
{
    m_line->discardWaiting();
    if (m_state == State::Ended)
        return; // the line turned out to be lost
    m_state = State::Collecting;
    m_wasSent = true;
    m_transmission = roundedUp(m_line->timing().transmissionTime(m_request.size()));
    m_patience.start(static_cast<int>(m_transmission) + m_waits.timeout);
    m_clock.start();
    m_line->write(m_request);
}

void RawExchange::onBytes(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    if (m_state == State::Silencing) {
        m_timer.start(frameGap());
    } else if (m_state == State::Collecting) {
        m_received += bytes.left(MOST_KEPT - static_cast<int>(m_received.size()));
        m_lastByteAt = qMax<qint64>(0, m_clock.elapsed() - m_transmission);
        m_timer.start(endSilence());
    }
}

void RawExchange::onLost(const QString& error)
{
    m_error = error;
    end();
}

void RawExchange::end()
{
    if (m_state == State::Ended)
        return;
    m_state = State::Ended;
    m_timer.stop();
    m_patience.stop();
    emit finished();
}

} // namespace kx
