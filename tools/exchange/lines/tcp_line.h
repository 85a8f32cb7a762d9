#ifndef KX_EXCHANGE_LINES_TCP_LINE_H
#define KX_EXCHANGE_LINES_TCP_LINE_H

#include "exchange/lines/bounded_reader.h"
#include "exchange/lines/line.h"

#include <QtCore/QTimer>
#include <QtNetwork/QTcpSocket>

namespace kx
{

/// A gateway that carries the serial line's bytes over the network unchanged.
class TcpLine : public Line
{
    Q_OBJECT

public:
    /// @param host a name or an IP address, without brackets
    TcpLine(const QString& host, quint16 port, QObject* parent = nullptr);

    /// See gatewayText().
    QString name() const override;
    LineTiming timing() const override;
    /// Gives up after 5 seconds, unless another time was set.
    void open() override;
    /// @param milliseconds above 0; of the openings from now on
    void setConnectTimeout(int milliseconds) { m_connectTimeout = milliseconds; }
    void close() override;
    bool isOpen() const override { return m_socket.state() == QAbstractSocket::ConnectedState; }
    void write(const QByteArray& bytes) override;
    QByteArray takeWaiting() override { return m_reader.takeWaiting(); }
    QByteArray discardWaiting() override { return m_socket.readAll(); }

private:
    void giveUp();
    void onError(QAbstractSocket::SocketError error);

    QTcpSocket m_socket{this};
    BoundedReader m_reader{&m_socket, this};
    QTimer m_connecting{this};
    QString m_host;
    quint16 m_port;
    int m_connectTimeout = 5000; ///< milliseconds
};

} // namespace kx

#endif
