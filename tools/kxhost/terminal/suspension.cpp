#include "kxhost/terminal/suspension.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace kx
{

namespace
{

int wakeEnds[2] = {-1, -1};

void wake(int signal)
{
    const char byte = signal == SIGTSTP ? 'T' : 'C';
    // A full pipe already holds signals that nobody has taken yet.
    const ssize_t written = ::write(wakeEnds[1], &byte, 1);
    static_cast<void>(written);
}

void setHandler(int signal, void (*handler)(int))
{
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN)
        return; // a shell without job control wants no program to stop
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

Suspension::Suspension(QObject* parent) : QObject(parent)
{
    if (pipe2(wakeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(wakeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &Suspension::onSignal);
    setHandler(SIGTSTP, wake);
    setHandler(SIGCONT, wake);
}

Suspension::~Suspension()
{
    setHandler(SIGTSTP, SIG_DFL);
    setHandler(SIGCONT, SIG_DFL);
    m_notifier.reset();
    close(wakeEnds[0]);
    close(wakeEnds[1]);
    wakeEnds[0] = wakeEnds[1] = -1;
}

void Suspension::onSignal()
{
    char caught[16];
    const ssize_t count = ::read(wakeEnds[0], caught, sizeof caught);
    for (ssize_t i = 0; i < count; ++i) {
        if (caught[i] == 'T')
            stop();
        else
            emit resumed();
    }
}

void Suspension::stop()
{
    emit suspending();
    setHandler(SIGTSTP, SIG_DFL);
    raise(SIGTSTP); // stopped in here; SIGCONT then comes as a signal of its own
    setHandler(SIGTSTP, wake);
    emit resumed();
}

} // namespace kx
