/// The options of kxsim that say how long things take on the line.
#ifndef KX_KXSIM_OPTIONS_TIMING_OPTIONS_H
#define KX_KXSIM_OPTIONS_TIMING_OPTIONS_H

#include "kxsim/service/simulation.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QList>

namespace kxsim
{

/// --turnaround and --pace.
QList<QCommandLineOption> timingOptions();

/// Reads them from a parser that knows them. False and one line in `*error` when one is
/// wrong.
bool takeTiming(const QCommandLineParser& parser, Simulation* simulation, QString* error);

} // namespace kxsim

#endif
