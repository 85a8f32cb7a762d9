/// What a person reads about a recipe and its transfer, translated.
#ifndef KX_KXPANEL_RECIPES_TRANSFER_TEXTS_H
#define KX_KXPANEL_RECIPES_TRANSFER_TEXTS_H

#include "kxpanel/recipes/recipe_model.h"
#include "kxpanel/recipes/recipe_run.h"

namespace kxpanel
{

/// Why a transfer ended early and what has happened until then, one line.
QString failureWords(const RecipeOutcome& outcome);

/// How file and controller go together, one line; empty without rows.
QString comparisonWords(const RecipeModel& model);

} // namespace kxpanel

#endif
