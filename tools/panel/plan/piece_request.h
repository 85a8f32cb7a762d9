#ifndef KX_PANEL_PLAN_PIECE_REQUEST_H
#define KX_PANEL_PLAN_PIECE_REQUEST_H

#include "panel/plan/plan_request.h"

namespace kx
{

/// The request that reads a range, all of it and nothing else.
/// @param piece no longer than one request may be; with its station
PlannedRequest requestFor(const AddressRange& piece);

} // namespace kx

#endif
