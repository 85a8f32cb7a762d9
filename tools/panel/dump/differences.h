/// What a controller holds beside what a dump holds, and what it takes to put the dump back.
/// Pure functions.
#ifndef KX_PANEL_DUMP_DIFFERENCES_H
#define KX_PANEL_DUMP_DIFFERENCES_H

#include "panel/dump/controller_values.h"

namespace kx
{

/// One address of which the values differ.
struct Difference {
    AddressRange address; ///< one, with its station
    qint64 kept = 0;      ///< in the dump
    qint64 read = 0;      ///< from the controller
};

/// In the order of the dump. Addresses that were not read are passed over.
QList<Difference> differencesOf(const QList<Assignment>& kept, const ControllerValues& read);

/// The requests that give the controllers the kept values, and write nothing else: neighbours
/// share one. Within a station registers come before coils, so that set-points are in place
/// before a coil starts what uses them.
/// @param maxWords registers, or eight coils for each, that a request may cover: 2 or more
QList<Assignment> joinedWrites(const QList<Difference>& differences, int maxWords);

} // namespace kx

#endif
