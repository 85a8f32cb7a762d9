/// The tags file: which values a person wants to see, and what they call them.
///
/// A table as csv_table.h has it, with a row for each tag:
///
///     name,station,address,count,every,format,order,scale,offset,unit,decimals,min,max,comment
///     Pump running,,Y10,,,,,,,,,,,contact K3
///     Pressure,2,D100,,500ms,s16,,0.1,5,bar,1,0,16,
///     Flow,2,D110,4,10s,float,high,,,l/min,,,,four of them
///
/// An empty station leaves the choice to the command line, an empty count is 1; it counts values.
/// "every" is the time from one read to the next, such as 500ms or 10s; empty: the command line's,
/// else in each cycle. The columns from format to max are the parts of a format, see
/// panel/values/format_text.h; order is low, high, swapped, or two of them with a blank between.
/// All but name and address may be left out. X and Y are octal.
#ifndef KX_PANEL_FILES_TAGS_FILE_H
#define KX_PANEL_FILES_TAGS_FILE_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "panel/values/value_format.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kx
{

struct Tag {
    QString name;       ///< unlike every other of the file; empty for a typed address
    AddressRange range; ///< all addresses of its values; station -1 when the file leaves it open
    QString comment;
    int interval = -1; ///< milliseconds; 0: in each cycle; -1 when the file leaves it open
    ValueFormat format = ValueFormat();
};

/// Reads the tags of a file, in the file's order.
/// @return false and one line in `*error` that names file and line; `*tags` is
///         then unchanged. A file without any tag is an error.
KXRUNTIME_EXPORT bool loadTags(const QString& path, QList<Tag>* tags, QString* error);

/// The same for text that has been read; `path` is only named in errors.
KXRUNTIME_EXPORT bool parseTags(const QByteArray& text, const QString& path, QList<Tag>* tags,
                                QString* error);

/// All that is wrong with such text, a line each as of parseTags(); none: `*tags` are right.
KXRUNTIME_EXPORT QStringList tagFaults(const QByteArray& text, const QString& path,
                                       QList<Tag>* tags);

/// The tags without their names.
KXRUNTIME_EXPORT QList<AddressRange> rangesOf(const QList<Tag>& tags);

} // namespace kx

#endif
