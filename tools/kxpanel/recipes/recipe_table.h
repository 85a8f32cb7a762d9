#ifndef KX_KXPANEL_RECIPES_RECIPE_TABLE_H
#define KX_KXPANEL_RECIPES_RECIPE_TABLE_H

#include <QtCore/QByteArray>

class QTableView;
class QWidget;

namespace kxpanel
{

class RecipeOrder;

/// The table that shows a recipe.
/// @param order must outlive it
QTableView* makeRecipeTable(RecipeOrder* order, QWidget* parent);

/// @param place of that table's header, as it was saved in an earlier run
void restoreHeadings(QTableView* table, const QByteArray& place);

} // namespace kxpanel

#endif
