/// What a machine has in its thread.
#ifndef KX_KXPANEL_MACHINE_MACHINE_PARTS_H
#define KX_KXPANEL_MACHINE_MACHINE_PARTS_H

#include "kxpanel/machine/machine.h"
#include "kxpanel/machine/machine_line.h"
#include "kxpanel/machine/machine_session.h"

#include <QtCore/QTimer>

namespace kxpanel
{

struct Machine::Parts {
    kx::ConnectionOptions options;
    std::unique_ptr<MachineLine> line;
    std::unique_ptr<MachineSession> work; ///< while the line is open or interrupted
    int openings = 0;                     ///< what an earlier line tells late is over
    LineStatus status;
    QList<WatchedValue> values;
    bool readsValues = true;    ///< of the line
    bool hasNewLimits = false;  ///< of the options, that the session does not have
    qint64 exchanges = 0;       ///< before the session
    Backlog* backlog = nullptr; ///< as MachineSession takes it
    QTimer lostForLong;
    Clocks clocks;
    SessionTimes times; ///< while no session looks at the clocks
    QTimer clockTicks;  ///< the same
};

} // namespace kxpanel

#endif
