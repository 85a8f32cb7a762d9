/// A folder for dumps, and kxhost at work on them with a simulated controller.
#ifndef KX_TESTS_TOOLS_KXHOST_DUMP_DUMP_FIXTURE_H
#define KX_TESTS_TOOLS_KXHOST_DUMP_DUMP_FIXTURE_H

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

namespace kx
{

/// Of a simulator, so that many requests take seconds: a test that ends them comes in time.
inline const QStringList SLOWLY = {"--still", "--turnaround", "50ms"};

class DumpFixture
{
public:
    /// @param presets of the controller: "D0=5,6"
    explicit DumpFixture(const QStringList& presets, const QStringList& options = {"--still"})
        : m_controller(options + setting(presets))
    {
    }

    KxsimProcess& controller() { return m_controller; }
    QString port() const { return m_controller.portName(); }
    QString path(const char* name = "memory.kxd") const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    CommandResult dump(const QStringList& arguments) const
    {
        return runCommand(QStringList{"dump", "--port", port(), "--to", path()} + arguments);
    }
    CommandResult run(const char* command, const QStringList& options = QStringList()) const
    {
        return runCommand(QStringList{command, path(), "--port", port()} + options);
    }

    QByteArray stored() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    void store(const QByteArray& text) const
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("%s cannot be written", qPrintable(path()));
    }
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files); }

private:
    static QStringList setting(const QStringList& presets)
    {
        QStringList options;
        for (const QString& preset : presets)
            options << "--set" << preset;
        return options;
    }

    QTemporaryDir m_folder;
    KxsimProcess m_controller;
};

} // namespace kx

#endif
