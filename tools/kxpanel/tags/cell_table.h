/// Cells of a spreadsheet as they go through the clipboard: separated by tabs, a line for each row,
/// in double quotes where they hold a tab, a quote or a line break. Pure functions.
#ifndef KX_KXPANEL_TAGS_CELL_TABLE_H
#define KX_KXPANEL_TAGS_CELL_TABLE_H

#include <QtCore/QList>
#include <QtCore/QStringList>

namespace kxpanel
{

/// One row with its line end. Cells that a tags file's reader would take something off are quoted,
/// too.
QString cellsText(const QStringList& cells);

/// Rows of such text, with line ends of any system; a last line end begins no row.
/// @return false and one line in `*fault` that names the row
bool parseCells(const QString& text, QList<QStringList>* rows, QString* fault);

/// "row 3: REASON", in the window's language. @param row from 1
QString rowFault(int row, const QString& reason);

/// The text in one line: line breaks and all other characters of control but tabs become blanks.
/// Spreadsheets copy such ones in place of a tab.
QString inOneLine(QString text);

} // namespace kxpanel

#endif
