#ifndef KX_PANEL_FILES_TAG_ROW_H
#define KX_PANEL_FILES_TAG_ROW_H

#include "panel/files/csv_table.h"
#include "panel/files/tags_file.h"

#include <QtCore/QStringList>

namespace kx
{

/// The columns of a tags file.
const QList<CsvColumn>& tagColumns();

/// The tag of a row of those columns. Each fault names its column: "count 0: must be 1 or more".
/// With faults the tag holds what was right.
Tag tagOfRow(const CsvRow& row, QStringList* faults);

} // namespace kx

#endif
