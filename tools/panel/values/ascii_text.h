/// Bytes as text that shows each of them and can be typed back.
#ifndef KX_PANEL_VALUES_ASCII_TEXT_H
#define KX_PANEL_VALUES_ASCII_TEXT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kx
{

/// UTF-8 as it reads, without the zeros at its end. \\ \" \n \r \t, and \xHH for each byte of what
/// is not UTF-8 or nothing that can be seen.
QString escapedText(const QByteArray& bytes);

/// The way back; takes "\," for a comma as well.
/// @return false and in `*fault` which part is not understood
bool parseEscapedText(const QString& text, QByteArray* bytes, QString* fault);

} // namespace kx

#endif
