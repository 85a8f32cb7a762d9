#ifndef KX_KXPANEL_MACHINE_MACHINE_THREAD_H
#define KX_KXPANEL_MACHINE_MACHINE_THREAD_H

#include "kxpanel/machine/backlog.h"
#include "kxpanel/machine/machine.h"

#include <QtCore/QThread>

namespace kxpanel
{

/// A machine in a thread of its own, which ends with it: jobs end, and the line is closed. It tells
/// the thread in which this is made, and no more than that takes in.
class MachineThread
{
public:
    /// @param most as of Backlog
    explicit MachineThread(int most = Backlog::USUAL_MOST);
    /// As stop().
    ~MachineThread();
    Q_DISABLE_COPY(MachineThread)

    Machine* machine() const { return m_machine.get(); }
    /// Ends the thread, and waits for it: what the machine is asked for from then on is not done.
    /// So those who ask may be deleted, of which jobs know.
    void stop();

private:
    Backlog m_backlog;
    QObject m_listener;
    QThread m_thread;
    std::unique_ptr<Machine> m_machine;
};

} // namespace kxpanel

#endif
