#ifndef KX_KXPANEL_MACHINE_MACHINE_THREAD_H
#define KX_KXPANEL_MACHINE_MACHINE_THREAD_H

#include "kxpanel/machine/machine.h"

#include <QtCore/QThread>

namespace kxpanel
{

/// A machine in a thread of its own, which ends with it: jobs end, and the line is closed.
class MachineThread
{
public:
    MachineThread();
    /// Waits until the line is closed.
    ~MachineThread();
    Q_DISABLE_COPY(MachineThread)

    Machine* machine() const { return m_machine; }

private:
    QThread m_thread;
    Machine* m_machine; ///< deleted by its thread
};

} // namespace kxpanel

#endif
