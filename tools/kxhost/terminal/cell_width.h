/// How wide text is on a terminal: East Asian characters take two cells, marks that combine
/// with the character before them none. As the C library says, whatever the user's locale.
#ifndef KX_KXHOST_TERMINAL_CELL_WIDTH_H
#define KX_KXHOST_TERMINAL_CELL_WIDTH_H

#include <QtCore/QString>

namespace kx
{

/// Cells of a text without control characters, see printableText().
int cellsOf(const QString& text);

/// The beginning of the text that fits so many cells; half a wide character does not fit.
QString leftCells(const QString& text, int cells);

/// The text, or as much of it as fits together with an ellipsis, in exactly so many cells.
QString fittedCells(const QString& text, int cells);

} // namespace kx

#endif
