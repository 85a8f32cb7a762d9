#include "script_sandbox.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

namespace
{

const int PATIENCE = 60000; // milliseconds
const QDir SOURCES(QStringLiteral(KX_SOURCES));
const char* const WORKERS[] = {"abidiff",      "abidw",   "apt-get", "chroot",      "clang-format",
                               "cmake",        "cpack",   "ctest",   "debootstrap", "g++",
                               "gcovr",        "lintian", "make",    "mount",       "script",
                               "sphinx-build", "sudo",    "valgrind"};

bool isScript(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isExecutable() && file.open(QIODevice::ReadOnly) && file.read(2) == "#!";
}

/// What may hold scripts: not what was built, nor the version control's own.
QStringList foldersOfTheProject()
{
    QStringList folders;
    for (const QString& folder :
         SOURCES.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (!folder.startsWith("build") && folder != ".git")
            folders << folder;
    }
    return folders;
}

QStringList linesOf(const QByteArray& bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split('\n');
    lines.removeAll(QString());
    return lines;
}

void copyToFolder(const QString& name, const QString& folder)
{
    QDir().mkpath(QFileInfo(folder + name).path());
    QFile::copy(SOURCES.filePath(name), folder + name);
}

} // namespace

QStringList scriptsOfTheProject()
{
    QStringList found;
    for (const QString& name : SOURCES.entryList(QDir::Files | QDir::Hidden)) {
        if (isScript(SOURCES.filePath(name)))
            found << name;
    }
    for (const QString& folder : foldersOfTheProject()) {
        QDirIterator files(SOURCES.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            if (isScript(path))
                found << SOURCES.relativeFilePath(path);
        }
    }
    found.sort();
    return found;
}

ScriptSandbox::ScriptSandbox()
{
    for (const QString& script : scriptsOfTheProject())
        copyToFolder(script, project());
    for (const char* const folder : {"scripts/", "tests/mutation/"}) { // what scripts read in
        const QDir sources(SOURCES.filePath(folder));
        for (const QString& file : sources.entryList({"*.sh", "*.py"}, QDir::Files))
            copyToFolder(folder + file, project());
    }
    for (const char* const worker : WORKERS)
        addProgram(worker);
    addProgram("dpkg-query", "echo install ok installed");
    m_environment.insert("PATH", programs() + ':' + m_environment.value("PATH"));
}

void ScriptSandbox::addProgram(const QString& name, const QString& commands)
{
    addCommands(programs() + name, commands);
}

void ScriptSandbox::addFile(const QString& path, const QString& commands)
{
    addCommands(project() + path, commands);
}

void ScriptSandbox::addText(const QString& path, const QString& text)
{
    write(project() + path, text.toUtf8());
}

QString ScriptSandbox::text(const QString& path) const
{
    QFile file(project() + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void ScriptSandbox::setVariable(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

void ScriptSandbox::addCommands(const QString& path, const QString& commands)
{
    write(path, QString("#!/bin/sh\necho \"${0##*/} $*\" >>'%1'\n%2\n")
                    .arg(callsFile(), commands)
                    .toUtf8());
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner);
}

void ScriptSandbox::write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(path));
    file.write(content);
}

ScriptResult ScriptSandbox::run(const QString& script, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_folder.path()); // scripts find their own way
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(project() + script, arguments);
    ScriptResult result = {-1, {}, {}};
    if (process.waitForFinished(PATIENCE) && process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    result.output = linesOf(process.readAllStandardOutput());
    result.errors = linesOf(process.readAllStandardError());
    return result;
}

QStringList ScriptSandbox::calls()
{
    QFile file(callsFile());
    const QStringList lines =
        file.open(QIODevice::ReadOnly) ? linesOf(file.readAll()) : QStringList();
    file.remove();
    return lines;
}
