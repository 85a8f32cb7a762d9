#include "kxsim/line/pseudo_terminal.h"

#include "system/port_holders.h"
#include "system/translated_text.h"

#include <QtCore/QVector>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace kxsim
{

namespace
{

const size_t LONGEST_NAME = 128;
const int MOST_LOCKED = 16; // terminals in a row

bool makeRaw(int terminal)
{
    termios settings;
    if (tcgetattr(terminal, &settings) != 0)
        return false;
    cfmakeraw(&settings);
    return tcsetattr(terminal, TCSANOW, &settings) == 0;
}

void closeIfOpen(int descriptor)
{
    if (descriptor >= 0)
        close(descriptor);
}

/// A program that had a terminal of this number may have closed it and not yet taken its lock away:
/// the next host would find it locked.
bool isLocked(const QString& name)
{
    const qint64 process = kx::lockingProcess(name);
    return process > 0 && (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

} // namespace

std::unique_ptr<PseudoTerminal> PseudoTerminal::open(QString* error)
{
    std::unique_ptr<PseudoTerminal> terminal(new PseudoTerminal);
    if (terminal->openUnlocked())
        return terminal;
    *error = kx::Text::tr("cannot open a pseudo-terminal: %1")
                 .arg(QString::fromLocal8Bit(std::strerror(errno)));
    return nullptr;
}

bool PseudoTerminal::openUnlocked()
{
    QVector<int> locked; // open for so long that the next one has another number
    bool isOpen = openBothEnds();
    while (isOpen && isLocked(m_name) && locked.size() < 2 * MOST_LOCKED) {
        locked << std::exchange(m_hostEnd, -1) << m_descriptor;
        isOpen = openBothEnds();
    }
    for (const int descriptor : locked)
        closeIfOpen(descriptor);
    return isOpen;
}

bool PseudoTerminal::openBothEnds()
{
    m_descriptor = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    char name[LONGEST_NAME];
    if (m_descriptor < 0 || grantpt(m_descriptor) != 0 || unlockpt(m_descriptor) != 0
        || ptsname_r(m_descriptor, name, sizeof name) != 0)
        return false;
    m_name = QString::fromLocal8Bit(name);
    m_hostEnd = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    return m_hostEnd >= 0 && makeRaw(m_hostEnd);
}

PseudoTerminal::~PseudoTerminal()
{
    closeIfOpen(m_hostEnd);
    closeIfOpen(m_descriptor);
}

bool PseudoTerminal::reopen()
{
    const int oldDescriptor = m_descriptor;
    const int oldHostEnd = m_hostEnd;
    m_hostEnd = -1;
    // The link leads to the new device before hosts lose the old one.
    const bool isOpen = openUnlocked() && m_link.turnTo(m_name);
    closeIfOpen(oldHostEnd);
    closeIfOpen(oldDescriptor);
    return isOpen;
}

bool PseudoTerminal::linkFrom(const QString& path, QString* error)
{
    return m_link.make(path, m_name, error);
}

} // namespace kxsim
