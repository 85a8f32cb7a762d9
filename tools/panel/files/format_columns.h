/// The columns that tell the format of a value, in tags files and recipe files alike.
#ifndef KX_PANEL_FILES_FORMAT_COLUMNS_H
#define KX_PANEL_FILES_FORMAT_COLUMNS_H

#include "panel/files/csv_table.h"
#include "panel/values/value_format.h"

#include <QtCore/QStringList>

namespace kx
{

/// format, order, scale, offset, unit, decimals, min, max.
const QList<CsvColumn>& formatColumns();

/// "count 0: must be 1 or more": what is wrong with a field of that column.
QString columnFault(const CsvColumn& column, const QString& text, const QString& fault);

/// Takes the format of a row, each column alone, so that a fault is that of its column.
/// @param first the row's field of the first of formatColumns()
/// @param type  of the addresses; null when they are not known
/// @param format in: the bit of a word; out: what was right
void takeFormatColumns(const CsvRow& row, int first, const RegisterType* type, ValueFormat* format,
                       QStringList* faults);

} // namespace kx

#endif
