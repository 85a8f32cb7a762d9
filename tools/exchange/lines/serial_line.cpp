#include "exchange/lines/serial_line.h"

#include "exchange/lines/port_driver.h"
#include "system/port_access.h"
#include "system/translated_text.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSocketNotifier>

#include <cerrno>
#include <unistd.h>

namespace kx
{

namespace
{

QSerialPort::StopBits stopBits(int bits)
{
    return bits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop;
}

/// QSerialPort looks for a bare name in /dev only; a link to a port may also stand
/// in the current folder.
QString pathOf(const QString& portName)
{
    if (portName.contains(QLatin1Char('/')))
        return portName;
    const QString device = QStringLiteral("/dev/%1").arg(portName);
    const bool isHere = QFileInfo::exists(portName) && !QFileInfo::exists(device);
    return isHere ? QDir::current().absoluteFilePath(portName) : device;
}

} // namespace

SerialLine::SerialLine(const QString& portName, const LineTiming& timing,
                       QSerialPort::Parity parity, const PortModes& modes, QObject* parent)
    : Line(parent), m_timing(timing), m_name(pathOf(portName)), m_modes(modes)
{
    m_port.setPortName(m_name);
    m_port.setBaudRate(timing.baud);
    m_port.setDataBits(static_cast<QSerialPort::DataBits>(timing.dataBits));
    m_port.setStopBits(stopBits(timing.stopBits));
    m_port.setParity(parity);
    m_port.setReadBufferSize(BoundedReader::MOST_AT_ONCE);
    connect(&m_reader, &BoundedReader::bytesArrived, this, &Line::bytesArrived);
    connect(&m_port, &QSerialPort::errorOccurred, this, &SerialLine::onError);
}

void SerialLine::open()
{
    if (!m_port.open(m_mode))
        return;
    m_isReporting = true;
    if (!switchModes())
        return;
    m_port.clear(QSerialPort::Input);
    emit opened();
}

bool SerialLine::switchModes()
{
    QString error;
    if (m_modes.rs485 && !setRs485(m_port.handle(), m_modes, &error)) {
        close();
        emit failed(Text::tr("%1: the port cannot switch an RS-485 transceiver: %2; without "
                             "--rs485 an adapter that switches by itself works")
                        .arg(m_name, error));
        return false;
    }
    m_hasLowLatency = m_modes.lowLatency && setLowLatency(m_port.handle());
    m_takenBaud = baudOf(m_port.handle());
    return true;
}

QString SerialLine::modeText() const
{
    QStringList texts;
    if (m_hasLowLatency)
        texts << QStringLiteral("low latency");
    if (m_modes.rs485)
        texts << QStringLiteral("RS-485");
    return texts.join(QLatin1String(", "));
}

QStringList SerialLine::remarks() const
{
    const QString remark = baudRemark(m_timing.baud, m_takenBaud);
    return remark.isEmpty() ? QStringList() : QStringList(remark);
}

void SerialLine::close()
{
    if (m_port.isOpen())
        m_port.close();
}

// Left to the event loop, bytes would leave only when a busy program comes to it; and the port
// would let it wake up once more to tell that they have left.
void SerialLine::write(const QByteArray& bytes)
{
    ssize_t taken = 0;
    if (m_port.isOpen() && m_port.bytesToWrite() == 0)
        taken = ::write(m_port.handle(), bytes.constData(), static_cast<size_t>(bytes.size()));
    // A full port takes the rest when it can; one that is lost says so then.
    if (taken < bytes.size())
        m_port.write(bytes.mid(static_cast<int>(qMax(ssize_t(0), taken))));
}

// The event loop may have seen the bytes already and be about to let the port read them; then the
// port would find nothing and call itself lost. A notifier that is switched off forgets it.
QByteArray SerialLine::takeWaiting()
{
    QByteArray bytes = m_reader.takeWaiting();
    if (!bytes.isEmpty()) {
        watchPort(false);
        watchPort(m_isReporting); // reading has switched it on
    }
    return bytes;
}

void SerialLine::setReporting(bool reports)
{
    m_isReporting = reports;
    watchPort(reports);
}

// What the port watches its descriptor with is its child.
void SerialLine::watchPort(bool watches)
{
    for (QSocketNotifier* const notifier : m_port.findChildren<QSocketNotifier*>()) {
        if (notifier->type() == QSocketNotifier::Read)
            notifier->setEnabled(watches);
    }
}

QByteArray SerialLine::discardWaiting()
{
    QByteArray discarded = takeWaiting();
    if (discarded.isEmpty())
        return discarded;
    discarded += m_port.readAll();
    m_port.clear(QSerialPort::Input);
    return discarded;
}

void SerialLine::onError(QSerialPort::SerialPortError error)
{
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError)
        return;
    const bool wasOpen = m_port.isOpen();
    // What the system says of a port that died depends on the call that met it first.
    const QString reason =
        wasOpen ? Text::tr("the port was closed or unplugged")
                : Text::tr("cannot open the port: %1").arg(openingFault() + accessAdvice(m_name));
    close();
    emit failed(QStringLiteral("%1: %2").arg(m_name, reason));
}

/// While another program tries the same name in vain, a port that is not there is locked.
QString SerialLine::openingFault() const
{
    return QFileInfo::exists(m_name) ? m_port.errorString() : qt_error_string(ENOENT);
}

} // namespace kx
