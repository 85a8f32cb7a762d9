#include "relay/pty.h"

#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace kx
{

Pty::Pty() : m_end(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    if (m_end < 0 || grantpt(m_end) != 0 || unlockpt(m_end) != 0)
        return;
    m_name = QString::fromLocal8Bit(ptsname(m_end));
    m_otherEnd = open(ptsname(m_end), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings = {};
    if (tcgetattr(m_otherEnd, &settings) != 0)
        return;
    cfmakeraw(&settings);
    tcsetattr(m_otherEnd, TCSANOW, &settings);
}

Pty::~Pty()
{
    if (m_otherEnd >= 0)
        close(m_otherEnd);
    if (m_end >= 0)
        close(m_end);
}

QByteArray Pty::receive() const
{
    char bytes[512];
    const ssize_t count = read(m_end, bytes, sizeof bytes);
    return QByteArray(bytes, count > 0 ? static_cast<int>(count) : 0);
}

// Of a full terminal that nobody reads, as of a line without a listener, bytes are lost.
void Pty::send(char byte) const
{
    if (write(m_end, &byte, 1) != 1)
        return;
}

} // namespace kx
