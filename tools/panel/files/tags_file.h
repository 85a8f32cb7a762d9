/// The tags file: which values a person wants to see, and what they call them.
///
/// A table as csv_table.h has it, with a row for each tag:
///
///     name,station,address,count,every,comment
///     Pump running,,Y10,,,contact K3
///     Recipe,2,D100,4,10s,"four words, read only"
///
/// An empty station leaves the choice to the command line, an empty count is 1. "every" is the
/// time from one read to the next, such as 500ms or 10s; empty: the command line's, else in each
/// cycle. Station, count, every and comment may be left out. X and Y are octal.
#ifndef KX_PANEL_FILES_TAGS_FILE_H
#define KX_PANEL_FILES_TAGS_FILE_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "panel/values/value_format.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

struct Tag {
    QString name;       ///< unlike every other of the file; empty for a typed address
    AddressRange range; ///< all addresses of its values; station -1 when the file leaves it open
    QString comment;
    int interval = -1; ///< milliseconds; 0: in each cycle; -1 when the file leaves it open
    ValueFormat format;
};

/// Reads the tags of a file, in the file's order.
/// @return false and one line in `*error` that names file and line; `*tags` is
///         then unchanged. A file without any tag is an error.
KXRUNTIME_EXPORT bool loadTags(const QString& path, QList<Tag>* tags, QString* error);

/// The same for text that has been read; `path` is only named in errors.
KXRUNTIME_EXPORT bool parseTags(const QByteArray& text, const QString& path, QList<Tag>* tags,
                                QString* error);

/// The tags without their names.
KXRUNTIME_EXPORT QList<AddressRange> rangesOf(const QList<Tag>& tags);

} // namespace kx

#endif
