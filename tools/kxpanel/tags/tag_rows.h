#ifndef KX_KXPANEL_TAGS_TAG_ROWS_H
#define KX_KXPANEL_TAGS_TAG_ROWS_H

#include "panel/files/tags_file.h"

namespace kxpanel
{

/// Whether no cell holds any text.
bool isEmptyRow(const QStringList& cells);

/// Tags out of rows without a header, as parseTagsText() takes them. Rows without any text are
/// left out. A pure function.
bool tagsOfRows(const QList<QStringList>& rows, int station, QList<kx::Tag>* tags, QString* fault);

} // namespace kxpanel

#endif
