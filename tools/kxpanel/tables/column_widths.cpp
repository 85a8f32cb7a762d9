#include "kxpanel/tables/column_widths.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

namespace kxpanel
{

void fitColumns(QTableView* table, const QStringList& samples)
{
    QFont font = table->horizontalHeader()->font();
    if (table->horizontalHeader()->highlightSections())
        font.setBold(true); // as some styles show the headings of what is selected
    const QFontMetrics headings(font);
    const QFontMetrics cells = table->fontMetrics();
    const int margins = 2 * cells.averageCharWidth();
    for (int column = 0; column < samples.size(); ++column) {
        const QString heading = table->model()->headerData(column, Qt::Horizontal).toString();
        table->setColumnWidth(column, margins
                                          + qMax(headings.horizontalAdvance(heading),
                                                 cells.horizontalAdvance(samples.at(column))));
    }
}

} // namespace kxpanel
