/// What people and scripts may ask a running simulator, one command per line.
#ifndef KX_KXSIM_SERVICE_COMMANDS_H
#define KX_KXSIM_SERVICE_COMMANDS_H

#include "kxsim/memory/stations.h"

namespace kxsim
{

/// Runs "get ADDRESS[:COUNT][@STATION]" or "set ADDRESS=VALUE[,VALUE...]" and
/// returns the answer without a newline: "D100=1,2,3,4" for a get (from the lowest
/// station when none is named), nothing for a set (into all stations when none is
/// named; a value set stays still), "error: ..." for all else.
QString runCommand(const QString& command, Stations* stations);

} // namespace kxsim

#endif
