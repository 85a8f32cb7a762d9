/// A runtime of the examples as a process, with the driver where the system looks for it.
#ifndef KX_TESTS_DOCS_RUNTIME_PROCESS_H
#define KX_TESTS_DOCS_RUNTIME_PROCESS_H

#include <QtCore/QProcess>
#include <QtCore/QStringList>

class RuntimeProcess
{
public:
    RuntimeProcess(const QString& program, const QStringList& arguments);
    ~RuntimeProcess();

    bool isRunning();
    /// The next line that it prints; empty when none comes within 30 s.
    QString readLine();
    /// What it prints until it ends; a program that does not end is left alone.
    QStringList readLines();
    /// -1 when it crashed or goes on.
    int exitCode();
    QString errorOutput();

private:
    QProcess m_process;
};

#endif
