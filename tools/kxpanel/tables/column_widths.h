#ifndef KX_KXPANEL_TABLES_COLUMN_WIDTHS_H
#define KX_KXPANEL_TABLES_COLUMN_WIDTHS_H

#include <QtCore/QStringList>

class QTableView;

namespace kxpanel
{

/// Makes columns as wide as their headings and a sample of what stands in them.
/// @param samples of the columns from the first on
void fitColumns(QTableView* table, const QStringList& samples);

} // namespace kxpanel

#endif
