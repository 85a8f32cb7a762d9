/// The command line of kxsim.
#ifndef KX_KXSIM_OPTIONS_OPTIONS_H
#define KX_KXSIM_OPTIONS_OPTIONS_H

#include "kxsim/line/serial_port.h"
#include "kxsim/service/simulation.h"

#include <QtCore/QStringList>

namespace kxsim
{

struct Options {
    Simulation simulation;
    PortSettings port; ///< no device: a pseudo-terminal
    QString link;      ///< empty: none
    QString savedFile; ///< takes the memory at the end; empty: none
    bool logs = false;
    QString information; ///< text that was asked for instead of serving
};

/// Reads the arguments, the program's name first. Returns false and one line in
/// `*error` when they are wrong.
bool parseOptions(const QStringList& arguments, Options* options, QString* error);

} // namespace kxsim

#endif
