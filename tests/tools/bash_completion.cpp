#include "bash_completion.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>

ShellResult runBash(const QStringList& arguments)
{
    QProcess bash;
    bash.start(QStringLiteral("bash"), arguments);
    bash.waitForFinished();
    const QString output = QString::fromUtf8(bash.readAllStandardOutput());
    return {bash.exitCode(), output.split('\n').filter(QRegularExpression(".")),
            bash.readAllStandardError()};
}

QStringList CompletionScript::completed(const QString& words) const
{
    const QString script = QString("source '%1'; COMP_WORDS=('%2' %3); "
                                   "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); %4; "
                                   "printf '%s\\n' \"${COMPREPLY[@]}\"")
                               .arg(file, program, words, function);
    QStringList offered = runBash({"-c", script}).lines;
    offered.sort();
    return offered;
}

QByteArray CompletionScript::faults() const
{
    return runBash({"-n", file}).errors;
}

QStringList CompletionScript::registration(const QString& name) const
{
    return runBash({"-c", QString("source '%1' && complete -p %2").arg(file, name)}).lines;
}
