#ifndef KX_EXCHANGE_LINES_SERIAL_LINE_H
#define KX_EXCHANGE_LINES_SERIAL_LINE_H

#include "exchange/lines/bounded_reader.h"
#include "exchange/lines/line.h"
#include "exchange/lines/port_modes.h"

#include <QtSerialPort/QSerialPort>

namespace kx
{

/// A serial port, or a pseudo-terminal that stands for one.
class SerialLine : public Line
{
    Q_OBJECT

public:
    /// @param portName a path, or a bare name in /dev or else in the current folder
    /// @param timing its parity bit tells only the length; `parity` says which
    SerialLine(const QString& portName, const LineTiming& timing, QSerialPort::Parity parity,
               const PortModes& modes = PortModes(), QObject* parent = nullptr);

    /// The path that is opened.
    QString name() const override { return m_name; }
    LineTiming timing() const override { return m_timing; }
    /// Opens without the right to send, from the next open() on; write() then has no effect.
    void setReadOnly() { m_mode = QIODevice::ReadOnly; }
    void open() override;
    void close() override;
    bool isOpen() const override { return m_port.isOpen(); }
    void write(const QByteArray& bytes) override;
    QByteArray takeWaiting() override;
    QByteArray discardWaiting() override;
    void setReporting(bool reports) override;
    QString modeText() const override;
    QStringList remarks() const override;

private:
    bool switchModes();
    void watchPort(bool watches);
    void onError(QSerialPort::SerialPortError error);
    QString openingFault() const;

    QSerialPort m_port{this};
    BoundedReader m_reader{&m_port, this};
    LineTiming m_timing;
    QIODevice::OpenMode m_mode = QIODevice::ReadWrite;
    QString m_name;
    PortModes m_modes;
    bool m_isReporting = true;
    bool m_hasLowLatency = false;
    int m_takenBaud = 0; ///< 0: not known
};

} // namespace kx

#endif
