#include "kxhost/terminal/interrupt.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace kx
{

namespace
{

const int SIGNALS[] = {SIGINT, SIGTERM, SIGHUP};

int pipeEnds[2] = {-1, -1};

void writeToPipe(int signal)
{
    const char byte = static_cast<char>(signal);
    // A full pipe already holds a signal that nobody has taken yet.
    const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    static_cast<void>(written);
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

void setHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : SIGNALS) {
        // nohup lets it outlive its terminal.
        if (signal != SIGHUP || !isIgnored(signal))
            sigaction(signal, &action, nullptr);
    }
}

} // namespace

Interrupt::Interrupt(QObject* parent) : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &Interrupt::onSignal);
    setHandlers(writeToPipe);
}

Interrupt::~Interrupt()
{
    setHandlers(SIG_DFL);
    m_notifier.reset();
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    pipeEnds[0] = pipeEnds[1] = -1;
}

void Interrupt::request()
{
    if (pipeEnds[1] >= 0)
        writeToPipe(SIGINT);
}

void Interrupt::onSignal()
{
    char byte = 0;
    while (::read(pipeEnds[0], &byte, 1) == 1) {
        if (m_signal != SIGTERM)
            m_signal = static_cast<unsigned char>(byte);
    }
    m_notifier->setEnabled(false);
    setHandlers(SIG_DFL);
    if (m_signal == SIGTERM)
        std::signal(SIGHUP, SIG_IGN); // the end of a desktop's session may send both
    emit interrupted();
}

} // namespace kx
