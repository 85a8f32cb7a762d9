/// Files that are replaced as a whole.
#ifndef KX_PANEL_FILES_REPLACED_FILE_H
#define KX_PANEL_FILES_REPLACED_FILE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kx
{

/// Whether the file could be replaced, or made; leaves it alone. Else one line in `*error` that
/// names it.
bool canReplaceFile(const QString& path, QString* error);

/// Replaces or makes the file as a whole, or leaves it as it was. Its mode stays, and its owner
/// and group where the process may give files to them; of a symbolic link, the file that it
/// points at is replaced. Returns false and one line in `*error` that names the file.
bool replaceFile(const QString& path, const QByteArray& text, QString* error);

} // namespace kx

#endif
