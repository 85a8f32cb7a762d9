/// The options of kxsim that break things on purpose.
#ifndef KX_KXSIM_OPTIONS_FAULT_OPTIONS_H
#define KX_KXSIM_OPTIONS_FAULT_OPTIONS_H

#include "kxsim/service/simulation.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QList>

namespace kxsim
{

/// --fault, --fault-seed, --fault-delay and --down.
QList<QCommandLineOption> faultOptions();

/// Reads them from a parser that knows them; stations come before. False and one line in `*error`
/// when one is wrong.
bool takeFaults(const QCommandLineParser& parser, Simulation* simulation, QString* error);

} // namespace kxsim

#endif
