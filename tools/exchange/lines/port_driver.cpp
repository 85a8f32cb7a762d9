#include "exchange/lines/port_driver.h"

#include <QtCore/QtGlobal>

#include <cerrno>
#include <cstring>

#ifdef Q_OS_LINUX
#include <asm/termbits.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#endif

namespace kx
{

namespace
{

const qint64 PERCENT_BORNE = 2;

} // namespace

#ifdef Q_OS_LINUX

int callPort(int descriptor, unsigned long request, void* argument)
{
    return ioctl(descriptor, request, argument);
}

bool setLowLatency(int descriptor, PortCall call)
{
    serial_struct port = {};
    if (call(descriptor, TIOCGSERIAL, &port) != 0)
        return false;
    const auto wanted = static_cast<int>(ASYNC_LOW_LATENCY);
    if ((port.flags & wanted) != 0)
        return true;
    port.flags |= wanted;
    if (call(descriptor, TIOCSSERIAL, &port) != 0)
        return false;
    // Some drivers take the call and leave the flag.
    return call(descriptor, TIOCGSERIAL, &port) == 0 && (port.flags & wanted) != 0;
}

bool setRs485(int descriptor, const PortModes& modes, QString* error, PortCall call)
{
    serial_rs485 settings = {};
    settings.flags =
        SER_RS485_ENABLED | (modes.rtsLowToSend ? SER_RS485_RTS_AFTER_SEND : SER_RS485_RTS_ON_SEND);
    settings.delay_rts_before_send = static_cast<__u32>(modes.rtsBefore);
    settings.delay_rts_after_send = static_cast<__u32>(modes.rtsAfter);
    if (call(descriptor, TIOCSRS485, &settings) == 0)
        return true;
    *error = QString::fromLocal8Bit(std::strerror(errno));
    return false;
}

int baudOf(int descriptor, PortCall call)
{
    termios2 settings = {};
    return call(descriptor, TCGETS2, &settings) == 0 ? static_cast<int>(settings.c_ospeed) : 0;
}

#else

int callPort(int, unsigned long, void*)
{
    errno = ENOTTY;
    return -1;
}

bool setLowLatency(int, PortCall)
{
    return false;
}

bool setRs485(int, const PortModes&, QString* error, PortCall)
{
    *error = QString::fromLocal8Bit(std::strerror(ENOTTY));
    return false;
}

int baudOf(int, PortCall)
{
    return 0;
}

#endif

QString baudRemark(int asked, int taken)
{
    const qint64 off = qAbs(qint64(taken) - asked);
    if (taken == 0 || off * 100 <= PERCENT_BORNE * asked)
        return QString();
    return QStringLiteral("the port took %1 baud instead of %2").arg(taken).arg(asked);
}

} // namespace kx
