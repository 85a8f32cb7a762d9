/// Runs the project's scripts where they can install and build nothing.
#ifndef KX_TESTS_SCRIPTS_SCRIPT_SANDBOX_H
#define KX_TESTS_SCRIPTS_SCRIPT_SANDBOX_H

#include <QtCore/QProcessEnvironment>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

/// All scripts of the project, such as "scripts/package".
QStringList scriptsOfTheProject();

struct ScriptResult {
    int exitCode; ///< -1: killed, or still running after a minute
    QStringList output;
    QStringList errors;
};

/// A copy of the scripts. In front of the programs that install, build and test stand
/// others of their names, which write down how they were called and succeed.
class ScriptSandbox
{
public:
    ScriptSandbox();

    /// Lets a program of that name do this in the shell, after it was written down.
    void addProgram(const QString& name, const QString& commands = QString());
    /// The same for a file of the project, such as "build/run/bin/kxhost".
    void addFile(const QString& path, const QString& commands = QString());
    void addText(const QString& path, const QString& text);
    /// Of a file or folder of the project.
    QString path(const QString& name) const { return project() + name; }
    /// Of a file of the project; empty when there is none.
    QString text(const QString& path) const;
    void setVariable(const QString& name, const QString& value);

    /// @param script as of scriptsOfTheProject()
    ScriptResult run(const QString& script, const QStringList& arguments);

    /// How programs were called since the previous question: name and arguments, with
    /// blanks between them.
    QStringList calls();

private:
    void addCommands(const QString& path, const QString& commands);
    static void write(const QString& path, const QByteArray& content);
    QString callsFile() const { return m_folder.filePath(QStringLiteral("calls")); }
    QString programs() const { return m_folder.filePath(QStringLiteral("programs/")); }
    QString project() const { return m_folder.filePath(QStringLiteral("project/")); }

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

#endif
