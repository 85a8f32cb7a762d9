/// A completion script at work in bash.
#ifndef KX_TESTS_TOOLS_BASH_COMPLETION_H
#define KX_TESTS_TOOLS_BASH_COMPLETION_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

struct ShellResult {
    int exitCode;
    QStringList lines; ///< of standard output, blank ones left out
    QByteArray errors;
};

ShellResult runBash(const QStringList& arguments);

struct CompletionScript {
    QString file;
    QString function;
    QString program;

    /// What is offered for the last of the words behind the program's name, sorted.
    QStringList completed(const QString& words) const;

    /// What bash complains about in the script; empty when it is good.
    QByteArray faults() const;

    /// The line with which bash knows it, once it was sourced.
    QStringList registration(const QString& name) const;
};

#endif
