/// Rows of text in columns.
#ifndef KX_KXHOST_VIEWS_ALIGNED_ROWS_H
#define KX_KXHOST_VIEWS_ALIGNED_ROWS_H

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kx
{

/// One line per row, cells padded to the width of their column and two blanks
/// apart. Columns listed in `numbers` are padded on the left. No line ends in a
/// blank.
QStringList alignedRows(const QList<QStringList>& rows, const QList<int>& numbers = {});

} // namespace kx

#endif
