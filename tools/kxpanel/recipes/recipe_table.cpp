#include "kxpanel/recipes/recipe_table.h"

#include "kxpanel/recipes/recipe_model.h"
#include "kxpanel/recipes/recipe_order.h"
#include "kxpanel/tables/fill_column.h"
#include "kxpanel/tables/plain_headings.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

namespace kxpanel
{

QTableView* makeRecipeTable(RecipeOrder* order, QWidget* parent)
{
    auto* const table = new QTableView(parent);
    table->setModel(order);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setWordWrap(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->setSortingEnabled(true);
    table->sortByColumn(RecipeModel::State, Qt::AscendingOrder);
    table->setAccessibleName(RecipeModel::tr("Values of the recipe"));
    QHeaderView* const rows = table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(table->fontMetrics().height() * 5 / 4);
    const int character = table->fontMetrics().averageCharWidth();
    const int widths[RecipeModel::COLUMNS] = {20, 30, 10, 14, 24, 24}; // characters
    for (int column = 0; column < RecipeModel::COLUMNS; ++column)
        table->setColumnWidth(column, widths[column] * character);
    showPlainHeadings(table);
    const int shortestName = 16; // characters
    new FillColumn(table, RecipeModel::Name, shortestName * character);
    return table;
}

void restoreHeadings(QTableView* table, const QByteArray& place)
{
    table->horizontalHeader()->restoreState(place);
    showPlainHeadings(table);
    table->findChild<FillColumn*>()->fit();
}

} // namespace kxpanel
