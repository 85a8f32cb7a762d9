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
    /// Waits until the line is closed.
    ~MachineThread();
    Q_DISABLE_COPY(MachineThread)

    Machine* machine() const { return m_machine; }

private:
    Backlog m_backlog;
    QObject m_listener;
    QThread m_thread;
    Machine* m_machine; ///< deleted by its thread
};

} // namespace kxpanel

#endif
