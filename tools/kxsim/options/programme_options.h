/// The options of kxsim that let values change by themselves.
#ifndef KX_KXSIM_OPTIONS_PROGRAMME_OPTIONS_H
#define KX_KXSIM_OPTIONS_PROGRAMME_OPTIONS_H

#include "kxsim/service/simulation.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QList>

namespace kxsim
{

/// --still, --wave, --timer and --counter.
QList<QCommandLineOption> programmeOptions();

/// Reads them from a parser that knows them. False and one line in `*error` when one is
/// wrong.
bool takeProgramme(const QCommandLineParser& parser, Simulation* simulation, QString* error);

} // namespace kxsim

#endif
