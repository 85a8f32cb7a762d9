#include "kxpanel/machine/machine_thread.h"

namespace kxpanel
{

MachineThread::MachineThread(int most) : m_backlog(most), m_machine(new Machine)
{
    m_machine->takeListener(&m_listener, &m_backlog);
    m_thread.setObjectName(QStringLiteral("machine")); // what debuggers call it
    m_machine->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_machine.get(), &Machine::end,
                     Qt::DirectConnection); // in the thread
    m_thread.start();
}

MachineThread::~MachineThread()
{
    stop();
}

void MachineThread::stop()
{
    m_thread.quit();
    m_thread.wait();
}

} // namespace kxpanel
