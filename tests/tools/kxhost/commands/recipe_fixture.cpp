#include "recipe_fixture.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace kx
{

void RecipeFixture::store(const QByteArray& text) const
{
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(path()));
}

QByteArray RecipeFixture::stored() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

QStringList RecipeFixture::files() const
{
    return QDir(m_folder.path()).entryList(QDir::Files);
}

CommandResult RecipeFixture::run(const char* direction, const QString& port,
                                 const QStringList& options) const
{
    return runCommand(QStringList{"recipe", direction, path(), "--port", port} + options);
}

} // namespace kx
