#include "kxhost/recipe_storage.h"

#include <QtCore/QFile>
#include <QtCore/QSaveFile>

namespace
{

bool fail(const QFileDevice& file, QString* error)
{
    *error = QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
    return false;
}

} // namespace

bool readRecipeFile(const QString& path, QByteArray* text, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(file, error);
    *text = file.read(LARGEST_RECIPE_FILE + 1);
    if (file.error() != QFileDevice::NoError)
        return fail(file, error);
    if (text->size() > LARGEST_RECIPE_FILE) {
        *error = QStringLiteral("%1: larger than %2 MiB, the most that a recipe file may have")
                     .arg(path)
                     .arg(LARGEST_RECIPE_FILE / 1024 / 1024);
        return false;
    }
    return true;
}

bool canReplaceRecipeFile(const QString& path, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(file, error);
    file.cancelWriting();
    return true;
}

bool replaceRecipeFile(const QString& path, const QByteArray& text, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        return fail(file, error);
    return true;
}
