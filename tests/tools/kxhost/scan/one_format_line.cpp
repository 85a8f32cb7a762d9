#include "one_format_line.h"

#include "modbus/crc.h"

#include <QtCore/QByteArray>

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace kx
{

namespace
{

const int LOOK = 20;          // milliseconds between looks at whether all is over
const int REQUEST_LENGTH = 8; // bytes of a read

int baudOf(speed_t speed)
{
    switch (speed) {
    case B9600:
        return 9600;
    case B38400:
        return 38400;
    case B115200:
        return 115200;
    case B1200:
        return 1200;
    default:
        return 0;
    }
}

} // namespace

OneFormatLine::OneFormatLine(int baud, bool isOdd, const QList<int>& stations)
    : m_baud(baud),
      m_isOdd(isOdd),
      m_stations(stations),
      m_controller(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
{
    grantpt(m_controller);
    unlockpt(m_controller);
    m_hostEnd = open(ptsname(m_controller), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw = {};
    cfmakeraw(&raw);
    tcsetattr(m_hostEnd, TCSANOW, &raw);
    m_thread = std::thread([this] { serve(); });
}

OneFormatLine::~OneFormatLine()
{
    m_isOver = true;
    m_thread.join();
    close(m_hostEnd);
    close(m_controller);
}

QString OneFormatLine::name() const
{
    return QString::fromLatin1(ptsname(m_controller));
}

void OneFormatLine::serve()
{
    QByteArray request;
    while (!m_isOver) {
        pollfd asked = {m_controller, POLLIN, 0};
        char byte = 0;
        if (poll(&asked, 1, LOOK) < 1 || read(m_controller, &byte, 1) != 1)
            continue;
        request += byte;
        if (request.size() < REQUEST_LENGTH)
            continue;
        const int station = static_cast<unsigned char>(request.at(0));
        request.clear();
        if (m_stations.contains(station) && isUnderstood())
            answer(station);
    }
}

bool OneFormatLine::isUnderstood() const
{
    termios settings = {};
    tcgetattr(m_controller, &settings);
    return baudOf(cfgetospeed(&settings)) == m_baud
           && ((settings.c_cflag & PARODD) != 0) == m_isOdd;
}

void OneFormatLine::answer(int station) const
{
    // Station, function 3, 2 bytes, 7.
    QByteArray reply = QByteArray::fromHex("00 03 02 0007");
    reply[0] = static_cast<char>(station);
    const quint16 crc = modbusCrc(reinterpret_cast<const unsigned char*>(reply.constData()), 5);
    reply += static_cast<char>(crc & 0xFF);
    reply += static_cast<char>(crc >> 8);
    if (write(m_controller, reply.constData(), static_cast<size_t>(reply.size())) < 0)
        abort();
}

} // namespace kx
