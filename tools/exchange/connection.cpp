#include "exchange/connection.h"

#include "exchange/lines/mbap_line.h"
#include "exchange/lines/reopening_line.h"
#include "exchange/lines/serial_line.h"
#include "exchange/lines/tcp_line.h"

#include <memory>
#include <utility>

namespace kx
{

namespace
{

std::unique_ptr<Line> gatewayLine(const ConnectionSettings& settings)
{
    auto line = std::make_unique<TcpLine>(settings.gateway.host, settings.gateway.port);
    if (settings.protocol == GatewayProtocol::Rtu)
        return line;
    return std::make_unique<MbapLine>(std::move(line));
}

std::unique_ptr<Line> bareLine(const ConnectionSettings& settings)
{
    if (!settings.gateway.host.isEmpty())
        return gatewayLine(settings);
    return std::make_unique<SerialLine>(settings.port, settings.timing, settings.parity,
                                        settings.modes);
}

std::unique_ptr<Line> lineOf(const ConnectionSettings& settings)
{
    if (settings.patience <= 0)
        return bareLine(settings);
    return std::make_unique<ReopeningLine>(bareLine(settings), settings.patience);
}

} // namespace

Connection::Connection(const ConnectionSettings& settings, QObject* parent)
    : QObject(parent), m_line(lineOf(settings).release())
{
    qRegisterMetaType<Failure>(); // for listeners in other threads
    m_line->setParent(this);
    m_start.setSingleShot(true);
    connect(&m_start, &QTimer::timeout, m_line, &Line::open);
    connect(m_line, &Line::opened, this, &Connection::onOpened);
    connect(m_line, &Line::interrupted, this, &Connection::onInterrupted);
    connect(m_line, &Line::failed, this, &Connection::onFailure);
}

void Connection::open()
{
    if (m_state != State::Closed)
        return;
    m_state = State::Opening;
    m_start.start(0);
}

void Connection::close()
{
    m_state = State::Closed;
    m_start.stop();
    m_line->close();
}

void Connection::onOpened()
{
    if (m_state == State::Closed)
        return;
    m_state = State::Open;
    emit opened();
}

void Connection::onInterrupted()
{
    if (m_state == State::Closed)
        return;
    m_state = State::Interrupted;
    emit interrupted();
}

void Connection::onFailure(const QString& error)
{
    if (m_state == State::Closed)
        return;
    const bool wasOpening = m_state == State::Opening;
    m_state = State::Closed;
    emit failed(failureOf(wasOpening ? FailureKind::CannotOpen : FailureKind::LineLost, error));
}

} // namespace kx
