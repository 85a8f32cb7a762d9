/// Which recipes a session refuses, since the driver would transfer something else. Pure functions.
#ifndef KX_PANEL_SESSION_RECIPE_CHECKS_H
#define KX_PANEL_SESSION_RECIPE_CHECKS_H

#include "exchange/failure.h"
#include "panel/recipe/recipe_layout.h"
#include "panel/session/session_events.h"

namespace kx
{

/// No failure when the driver transfers each variable of the passes as a whole, between its
/// registers and its words. What layOutRecipe() makes is fine.
Failure recipeRefusal(RecipeDirection direction, const QList<RecipePass>& passes, int maxWords);

} // namespace kx

#endif
