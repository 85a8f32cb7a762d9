#ifndef KX_KXPANEL_TABLES_PLAIN_HEADINGS_H
#define KX_KXPANEL_TABLES_PLAIN_HEADINGS_H

#include <QtCore/QVariant>

class QTableView;

namespace kxpanel
{

/// The headings of all tables look alike: none is heavier for what is selected. A header that got
/// its place from an earlier run has to be told again.
void showPlainHeadings(QTableView* table);

/// For Qt::TextAlignmentRole, of a heading as of the cells below it.
QVariant columnAlignment(bool isNumber);

} // namespace kxpanel

#endif
