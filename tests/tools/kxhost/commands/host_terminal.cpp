#include "host_terminal.h"

#include "support/process_signal.h"

#include <QtTest/QTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <vector>

namespace kx
{

namespace
{

const int PATIENCE = 30000; // milliseconds
const int COLUMNS = 80;

[[noreturn]] void becomeHost(int terminal, QList<QByteArray> words, const QByteArray& kind)
{
    setsid();
    ioctl(terminal, TIOCSCTTY, 0);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(terminal, stream);
    setenv("TERM", kind.constData(), 1);
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    execvp(pointers.front(), pointers.data());
    _exit(127);
}

/// With what stands before them.
QList<QByteArray> wordsOf(const QList<QByteArray>& before, const QStringList& arguments)
{
    QList<QByteArray> words = before;
    for (const QString& argument : arguments)
        words << argument.toUtf8();
    return words;
}

} // namespace

HostTerminal::HostTerminal(const QStringList& arguments, int rows, const QByteArray& kind)
    : HostTerminal(wordsOf({KX_HOST_PROGRAM}, arguments), rows, kind)
{
}

std::unique_ptr<HostTerminal> HostTerminal::withShell(const char* script,
                                                      const QStringList& arguments)
{
    const QList<QByteArray> shell = {"bash", "-mc", script, KX_HOST_PROGRAM};
    return std::unique_ptr<HostTerminal>(new HostTerminal(wordsOf(shell, arguments), 24, "xterm"));
}

HostTerminal::HostTerminal(const QList<QByteArray>& words, int rows, const QByteArray& kind)
    : m_terminal(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    grantpt(m_terminal);
    unlockpt(m_terminal);
    m_ownEnd = open(ptsname(m_terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
    winsize size = {};
    size.ws_row = static_cast<unsigned short>(rows);
    size.ws_col = COLUMNS;
    ioctl(m_terminal, TIOCSWINSZ, &size);
    m_program = fork();
    if (m_program == 0)
        becomeHost(m_ownEnd, words, kind);
}

HostTerminal::~HostTerminal()
{
    if (m_program > 0) {
        signalProcess(m_program, SIGKILL);
        waitpid(m_program, nullptr, 0);
    }
    close(m_ownEnd);
    close(m_terminal);
}

void HostTerminal::type(const QByteArray& keys)
{
    QCOMPARE(write(m_terminal, keys.constData(), static_cast<size_t>(keys.size())),
             static_cast<ssize_t>(keys.size()));
}

bool HostTerminal::readSome()
{
    char bytes[4096];
    const ssize_t count = read(m_terminal, bytes, sizeof bytes);
    if (count > 0)
        m_output.append(bytes, static_cast<int>(count));
    return count > 0;
}

bool HostTerminal::waitFor(const QByteArray& text)
{
    return QTest::qWaitFor(
        [&] {
            while (readSome()) {
            }
            return m_output.contains(text);
        },
        PATIENCE);
}

int HostTerminal::exitCode()
{
    int status = 0;
    const bool ended = QTest::qWaitFor(
        [&] {
            while (readSome()) {
            }
            return waitpid(m_program, &status, WNOHANG) == m_program;
        },
        PATIENCE);
    if (!ended)
        return -1;
    m_program = -1;
    while (readSome()) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

pid_t HostTerminal::foregroundGroup() const
{
    return tcgetpgrp(m_terminal);
}

bool HostTerminal::echoes() const
{
    termios settings = {};
    tcgetattr(m_ownEnd, &settings);
    return (settings.c_lflag & ECHO) != 0 && (settings.c_lflag & ICANON) != 0;
}

} // namespace kx
