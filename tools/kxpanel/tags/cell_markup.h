/// Cells as HTML, which spreadsheets take rather than text. Of text alone they make what they like:
/// a number of "007", the sum of "=1+1", a date or a text of "12.5" where decimals have a comma.
#ifndef KX_KXPANEL_TAGS_CELL_MARKUP_H
#define KX_KXPANEL_TAGS_CELL_MARKUP_H

#include <QtCore/QList>
#include <QtCore/QString>

class QMimeData;

namespace kxpanel
{

struct Cell {
    QString text;
    bool isNumber = false; ///< to be reckoned with, where a spreadsheet holds all its digits
};

/// A table in which texts stay what they are, and numbers are such in each language, with their
/// decimals. A pure function.
QString cellsMarkup(const QList<QList<Cell>>& rows);

/// The same for the clipboard and for drags, as text, too. It is made HTML when a program asks for
/// that: of thousands of rows this takes a while. The caller's.
QMimeData* cellsData(const QList<QList<Cell>>& rows);

} // namespace kxpanel

#endif
