#include "kxsim/line/serial_port.h"

#include "system/port_access.h"

#include <QtCore/QFile>

#include <modbus/modbus.h>

#include <cerrno>

namespace kxsim
{

namespace
{

const int DATA_BITS = 8; // of Modbus RTU

} // namespace

SerialPort::SerialPort(_modbus* context) : m_context(context) {}

std::unique_ptr<SerialPort> SerialPort::open(const PortSettings& settings, QString* error)
{
    // libmodbus serves only to open and set up the device.
    std::unique_ptr<SerialPort> port(
        new SerialPort(modbus_new_rtu(QFile::encodeName(settings.device).constData(), settings.baud,
                                      settings.parity, DATA_BITS, settings.stopBits)));
    if (port->m_context && modbus_connect(port->m_context) == 0) {
        port->m_descriptor = modbus_get_socket(port->m_context);
        port->m_name = settings.device;
        return port;
    }
    const QString reason = QString::fromLocal8Bit(modbus_strerror(errno));
    *error = QStringLiteral("cannot open %1: %2")
                 .arg(settings.device, reason + kx::accessAdvice(settings.device));
    return nullptr;
}

bool SerialPort::reopen()
{
    modbus_close(m_context);
    m_descriptor = modbus_connect(m_context) == 0 ? modbus_get_socket(m_context) : -1;
    return m_descriptor >= 0;
}

SerialPort::~SerialPort()
{
    if (m_descriptor >= 0)
        modbus_close(m_context);
    modbus_free(m_context);
}

} // namespace kxsim
