/// Recipe files on disk.
#ifndef KX_PANEL_RECIPE_RECIPE_STORAGE_H
#define KX_PANEL_RECIPE_RECIPE_STORAGE_H

#include "addresses/export.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kx
{

/// As readTextFile().
KXRUNTIME_EXPORT bool readRecipeFile(const QString& path, QByteArray* text, QString* error);

/// Whether the file could be replaced; leaves it alone.
KXRUNTIME_EXPORT bool canReplaceRecipeFile(const QString& path, QString* error);

/// Replaces the file as a whole, or leaves it as it was. Its mode stays, and its owner and
/// group where the process may give files to them; of a symbolic link, the file that it
/// points at is replaced. Returns false and one line in `*error` that names the file.
KXRUNTIME_EXPORT bool replaceRecipeFile(const QString& path, const QByteArray& text,
                                        QString* error);

} // namespace kx

#endif
