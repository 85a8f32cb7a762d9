#ifndef KX_PANEL_PLAN_RANGES_BEYOND_H
#define KX_PANEL_PLAN_RANGES_BEYOND_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>

namespace kx
{

/// What those ranges cover beyond `others`. First addresses that are values by themselves, in
/// rising order, disjoint; then values of several registers that none of the others reads as a
/// whole, each a range of its own.
/// @param ranges in any order; they may overlap, must exist and name their station
/// @param others each read by one request
KXRUNTIME_EXPORT QList<AddressRange> rangesBeyond(const QList<AddressRange>& ranges,
                                                  const QList<AddressRange>& others);

} // namespace kx

#endif
