#include "kxpanel/tables/plain_headings.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

namespace kxpanel
{

void showPlainHeadings(QTableView* table)
{
    table->horizontalHeader()->setHighlightSections(false);
}

QVariant columnAlignment(bool isNumber)
{
    return static_cast<int>(Qt::AlignVCenter | (isNumber ? Qt::AlignRight : Qt::AlignLeft));
}

} // namespace kxpanel
