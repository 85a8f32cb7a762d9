/// Which requests read scattered addresses in the least time.
#ifndef KX_PANEL_PLAN_LEAST_TIME_H
#define KX_PANEL_PLAN_LEAST_TIME_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "panel/plan/read_rules.h"

#include <QtCore/QList>

namespace kx
{

/// Covers ranges by pieces, each of which is one request, so that the requests and their
/// replies together take the least time on the line: a gap is read along where that is shorter
/// than another request. No piece crosses a jump in its type's Modbus numbers, and none cuts a
/// value of several registers: one that is longer than the rules allow has a piece to itself.
///
/// It takes n log n of the ranges, and time in proportion to their addresses.
/// @param ranges in any order; they may overlap, must exist and name their station
/// @return rising by station, type and address, each from an address that was asked for to one;
///         disjoint, unless values overlap that are too long for one piece. A piece of a single
///         value has its width
KXRUNTIME_EXPORT QList<AddressRange> leastTimePieces(const QList<AddressRange>& ranges,
                                                     const ReadRules& rules);

} // namespace kx

#endif
