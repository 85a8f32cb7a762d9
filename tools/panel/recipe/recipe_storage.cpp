#include "panel/recipe/recipe_storage.h"

#include "panel/files/replaced_file.h"
#include "panel/files/text_file.h"

namespace kx
{

bool readRecipeFile(const QString& path, QByteArray* text, QString* error)
{
    return readTextFile(path, text, error);
}

bool canReplaceRecipeFile(const QString& path, QString* error)
{
    return canReplaceFile(path, error);
}

bool replaceRecipeFile(const QString& path, const QByteArray& text, QString* error)
{
    return replaceFile(path, text, error);
}

} // namespace kx
