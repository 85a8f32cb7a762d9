/// The text of files that people write and spreadsheets export.
#ifndef KX_PANEL_FILES_FILE_TEXT_H
#define KX_PANEL_FILES_FILE_TEXT_H

#include "addresses/export.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kx
{

enum class TextEncoding { Utf8, MarkedUtf8, Utf16LittleEndian, Utf16BigEndian };

/// The bytes of a file as UTF-8 without a byte-order mark. UTF-16 is known by its mark;
/// bytes without any are left as they are, see checkUtf8(). Returns false and one line in
/// `*error` when UTF-16 is damaged.
KXRUNTIME_EXPORT bool decodeText(const QByteArray& bytes, QByteArray* utf8, TextEncoding* encoding,
                                 QString* error);

/// What decodeText() made the UTF-8 of, to the byte.
KXRUNTIME_EXPORT QByteArray encodeText(const QByteArray& utf8, TextEncoding encoding);

/// Whether the line is text in UTF-8; else false and one line in `*error` that names the
/// column, in characters from 1.
KXRUNTIME_EXPORT bool checkUtf8(const QByteArray& line, QString* error);

} // namespace kx

#endif
