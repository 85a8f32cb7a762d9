#ifndef KX_KXPANEL_RECIPES_RECIPE_TABLE_H
#define KX_KXPANEL_RECIPES_RECIPE_TABLE_H

class QTableView;
class QWidget;

namespace kxpanel
{

class RecipeOrder;

/// The table that shows a recipe.
/// @param order must outlive it
QTableView* makeRecipeTable(RecipeOrder* order, QWidget* parent);

/// Names take the room that is left. To be called again when the header got its place from an
/// earlier run.
void layOutHeadings(QTableView* table);

} // namespace kxpanel

#endif
