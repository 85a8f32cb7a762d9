#include "exchange/lines/tcp_line.h"

#include "exchange/lines/gateway_address.h"
#include "system/translated_text.h"

namespace kx
{

TcpLine::TcpLine(const QString& host, quint16 port, QObject* parent)
    : Line(parent), m_host(host), m_port(port)
{
    m_connecting.setSingleShot(true);
    connect(&m_connecting, &QTimer::timeout, this, &TcpLine::giveUp);
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        m_connecting.stop();
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        emit opened();
    });
    m_socket.setReadBufferSize(BoundedReader::MOST_AT_ONCE);
    connect(&m_reader, &BoundedReader::bytesArrived, this, &Line::bytesArrived);
    connect(&m_socket, &QAbstractSocket::errorOccurred, this, &TcpLine::onError);
}

QString TcpLine::name() const
{
    return gatewayText({m_host, m_port});
}

LineTiming TcpLine::timing() const
{
    LineTiming network;
    network.baud = 0;
    return network;
}

void TcpLine::open()
{
    m_connecting.start(m_connectTimeout);
    m_socket.connectToHost(m_host, m_port);
}

void TcpLine::giveUp()
{
    // Once round the event loop: a busy program finds the timer before the connection.
    if (m_connecting.interval() > 0)
        return m_connecting.start(0);
    m_socket.abort();
    emit failed(Text::tr("%1: no connection within %2 seconds")
                    .arg(name(), QString::number(m_connectTimeout / 1000.0)));
}

void TcpLine::close()
{
    m_connecting.stop();
    m_socket.abort();
}

// Left to the event loop, bytes would leave only when a busy program comes to it.
void TcpLine::write(const QByteArray& bytes)
{
    m_socket.write(bytes);
    m_socket.flush();
}

void TcpLine::onError(QAbstractSocket::SocketError error)
{
    // Nothing lay in the socket when somebody looked.
    if (error == QAbstractSocket::SocketTimeoutError)
        return;
    const bool wasConnecting = m_connecting.isActive();
    const QString reason = m_socket.errorString();
    close();
    emit failed((wasConnecting ? Text::tr("%1: cannot connect: %2")
                               : Text::tr("%1: the connection is lost: %2"))
                    .arg(name(), reason));
}

} // namespace kx
