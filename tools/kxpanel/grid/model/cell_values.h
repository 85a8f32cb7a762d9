/// Values as they come from a spreadsheet. Pure functions.
#ifndef KX_KXPANEL_GRID_MODEL_CELL_VALUES_H
#define KX_KXPANEL_GRID_MODEL_CELL_VALUES_H

#include "panel/files/tags_file.h"

class QLocale;

namespace kxpanel
{

/// One column of cells, without empty ones at its end.
/// @return false and one line in `*fault` when there are several columns, an empty cell between
///         others, or none
bool parseColumn(const QString& text, QStringList* cells, QString* fault);

/// A cell as it is typed for a value of the tag: spreadsheets of a locale whose numbers have a
/// decimal comma copy "12,5", which becomes "12.5". All else stays as it is.
QString typedValue(const kx::Tag& tag, const QString& cell, const QLocale& locale);

/// Why a cell is in doubt as a value of the tag, as each number may be; a text never is.
QString thousandsFault(const kx::Tag& tag, const QString& cell, const QLocale& locale);

/// Whether it begins with a digit, or a sign and a digit.
bool looksLikeNumber(const QString& cell);

} // namespace kxpanel

#endif
