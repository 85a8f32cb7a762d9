/// A recipe file in a folder of its own, and `kxhost recipe` at work on it.
#ifndef KX_TESTS_TOOLS_KXHOST_COMMANDS_RECIPE_FIXTURE_H
#define KX_TESTS_TOOLS_KXHOST_COMMANDS_RECIPE_FIXTURE_H

#include "command_process.h"

#include <QtCore/QTemporaryDir>

namespace kx
{

class RecipeFixture
{
public:
    void store(const QByteArray& text) const;
    QByteArray stored() const;
    /// Names of all files in the folder.
    QStringList files() const;
    QString path() const { return pathOf("filling.csv"); }
    QString pathOf(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    CommandResult run(const char* direction, const QString& port,
                      const QStringList& options = QStringList()) const;

private:
    QTemporaryDir m_folder;
};

} // namespace kx

#endif
