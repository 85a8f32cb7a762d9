#ifndef KX_TESTS_TOOLS_EXCHANGE_LINES_PSEUDO_TERMINAL_H
#define KX_TESTS_TOOLS_EXCHANGE_LINES_PSEUDO_TERMINAL_H

#include <QtTest/QTest>

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

/// The controller's end of a pseudo-terminal.
class PseudoTerminal
{
public:
    PseudoTerminal() : m_end(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        grantpt(m_end);
        unlockpt(m_end);
        m_otherEnd = open(ptsname(m_end), O_RDWR | O_NOCTTY | O_NONBLOCK);
    }
    ~PseudoTerminal()
    {
        closeEnd();
        close(m_otherEnd);
    }

    QString name() const { return QString::fromLatin1(ptsname(m_end)); }
    /// How many bytes the terminal took at once.
    int sendSome(const QByteArray& bytes) const
    {
        return static_cast<int>(
            qMax<ssize_t>(0, write(m_end, bytes.constData(), static_cast<size_t>(bytes.size()))));
    }
    void send(const QByteArray& bytes) const
    {
        QCOMPARE(write(m_end, bytes.constData(), static_cast<size_t>(bytes.size())),
                 static_cast<ssize_t>(bytes.size()));
    }
    /// Sends and waits, without an event loop, until the bytes lie at the other end.
    void deliver(const QByteArray& bytes) const
    {
        send(bytes);
        QVERIFY(isReadable(m_otherEnd));
    }
    QByteArray received() const
    {
        char bytes[64];
        const ssize_t count = read(m_end, bytes, sizeof bytes);
        return QByteArray(bytes, static_cast<int>(qMax<ssize_t>(0, count)));
    }
    /// What comes without an event loop.
    QByteArray awaited() const { return isReadable(m_end) ? received() : QByteArray(); }
    void closeEnd()
    {
        if (m_end >= 0)
            close(m_end);
        m_end = -1;
    }

private:
    static bool isReadable(int descriptor)
    {
        const int patience = 2000; // milliseconds
        pollfd asked = {descriptor, POLLIN, 0};
        return poll(&asked, 1, patience) == 1;
    }

    int m_end;
    int m_otherEnd; ///< looked at only; opened first, since a serial port is opened for one
};

#endif
