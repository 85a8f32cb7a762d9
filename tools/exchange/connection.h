#ifndef KX_EXCHANGE_CONNECTION_H
#define KX_EXCHANGE_CONNECTION_H

#include "addresses/export.h"
#include "exchange/failure.h"
#include "exchange/lines/gateway_address.h"
#include "exchange/lines/line.h"
#include "exchange/lines/port_modes.h"

#include <QtCore/QTimer>
#include <QtSerialPort/QSerialPort>

namespace kx
{

/// What a gateway takes: the serial line's bytes, or Modbus TCP, in which a late reply is known
/// by its transaction, so that ExchangeSettings::settle may be 0.
enum class GatewayProtocol { Rtu, Tcp };

/// Which line, and how.
struct ConnectionSettings {
    QString port; ///< a serial port, as SerialLine names it; unused with a gateway
    LineTiming timing;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    GatewayAddress gateway = {QString(), 8888}; ///< used when its host is not empty
    GatewayProtocol protocol = GatewayProtocol::Rtu;
    int patience = 0; ///< milliseconds in which a lost line is opened again; 0: not at all
    PortModes modes;  ///< of a serial port
};

/// Makes a line, owns it, opens it and says how that goes. Nothing blocks. An exchange loop on
/// its line() may be started at any time after opened().
///
///     State         Event                          Tells           Next state
///     Closed        open()                                         Opening
///     Opening       the line is open               opened()        Open
///     Opening       it cannot be opened            failed()        Closed
///     Open          the line is lost, no patience  failed()        Closed
///     Open          the line is lost               interrupted()   Interrupted
///     Interrupted   the line is open again         opened()        Open
///     Interrupted   the patience is over           failed()        Closed
///     each          close()                                        Closed
///
/// All else changes nothing. Used in the thread that it lives in; moveToThread() takes the
/// line with it, and is to be called while it is closed.
class KXRUNTIME_EXPORT Connection : public QObject
{
    Q_OBJECT

public:
    explicit Connection(const ConnectionSettings& settings, QObject* parent = nullptr);

    /// Returns at once; opened() or failed() comes later, never before this has returned.
    void open();
    /// Closes the line, or gives its opening up. An exchange loop on it must be stopped before.
    void close();
    bool isOpen() const { return m_state == State::Open; }

    /// The connection's own, for as long as that lives; closed at first.
    Line* line() const { return m_line; }

signals:
    void opened();
    void interrupted();
    /// CannotOpen or LineLost, with a text that begins with the line's name. It may be opened
    /// again.
    void failed(const kx::Failure& failure);

private:
    enum class State { Closed, Opening, Open, Interrupted };

    void onOpened();
    void onInterrupted();
    void onFailure(const QString& error);

    Line* m_line; ///< a child
    State m_state = State::Closed;
    QTimer m_start{this};
};

} // namespace kx

#endif
