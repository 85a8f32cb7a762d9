#ifndef KX_PANEL_FILES_TEXT_FILE_H
#define KX_PANEL_FILES_TEXT_FILE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kx
{

/// The most that a file of tags, a recipe or a dump may have.
const qint64 LARGEST_TEXT_FILE = 16 * 1024 * 1024; // bytes

/// Reads a whole file that a person wrote. Never waits and never takes more than the
/// limit, whatever the path leads to.
/// @return false and one line in `*error` that begins with the path: the file is larger,
///         cannot be read, or is a folder or a pipe
bool readTextFile(const QString& path, QByteArray* content, QString* error);

} // namespace kx

#endif
