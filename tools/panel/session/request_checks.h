/// What a session refuses, since the driver would send something else or nothing. Pure functions.
#ifndef KX_PANEL_SESSION_REQUEST_CHECKS_H
#define KX_PANEL_SESSION_REQUEST_CHECKS_H

#include "exchange/failure.h"
#include "panel/recipe/recipe_layout.h"
#include "panel/session/session_events.h"

namespace kx
{

/// No failure when the registers exist.
Failure rangeRefusal(const AddressRange& range);

/// No failure when the range can be read by one request of at most `maxWords` registers.
Failure readRefusal(const AddressRange& range, int maxWords);

/// No failure when the values suit their type; how many requests they take does not matter.
Failure assignmentRefusal(const Assignment& assignment);

/// No failure when the values suit their type and can be written by one request.
Failure writeRefusal(const Assignment& assignment, int maxWords);

/// No failure when the driver transfers each variable of the passes as a whole.
Failure recipeRefusal(RecipeDirection direction, const QList<RecipePass>& passes, int maxWords);

} // namespace kx

#endif
