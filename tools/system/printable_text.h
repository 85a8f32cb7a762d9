/// Text from files, arguments and other programs on its way to a terminal.
#ifndef KX_SYSTEM_PRINTABLE_TEXT_H
#define KX_SYSTEM_PRINTABLE_TEXT_H

#include <QtCore/QString>

namespace kx
{

/// The text with U+FFFD in place of each character that would not be shown but obeyed:
/// controls (U+0000 to U+001F and U+007F to U+009F, line ends among them), line and
/// paragraph separators (U+2028, U+2029), and what turns the direction of writing
/// (U+202A to U+202E, U+2066 to U+2069). As long as the text.
QString printableText(const QString& text);

/// A JSON text with \u escapes in place of the same characters, which changes none of its
/// values. It must hold none of them outside its strings.
QString printableJson(const QString& json);

} // namespace kx

#endif
