#include "scripted_port.h"

#include <cstdio>

#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

const int PATIENCE = 30000; // milliseconds

ScriptedPort::ScriptedPort()
{
    if (::openpty(&m_station, &m_host, nullptr, nullptr, nullptr) != 0)
        return;
    termios raw;
    ::tcgetattr(m_host, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(m_host, TCSANOW, &raw);
    m_name = QString::fromLocal8Bit(::ttyname(m_host));
}

ScriptedPort::~ScriptedPort()
{
    ::close(m_host);
    ::close(m_station);
}

QByteArray ScriptedPort::request(int length) const
{
    QByteArray bytes;
    pollfd readable = {m_station, POLLIN, 0};
    while (bytes.size() < length && ::poll(&readable, 1, PATIENCE) == 1) {
        char byte = 0;
        if (::read(m_station, &byte, 1) != 1)
            break;
        bytes += byte;
    }
    return bytes;
}

void ScriptedPort::send(const QByteArray& bytes) const
{
    if (::write(m_station, bytes.constData(), size_t(bytes.size())) != bytes.size())
        std::perror("scripted port");
}
