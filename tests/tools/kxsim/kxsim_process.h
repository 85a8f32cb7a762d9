/// kxsim as a process, started by a test.
#ifndef KX_TESTS_TOOLS_KXSIM_KXSIM_PROCESS_H
#define KX_TESTS_TOOLS_KXSIM_KXSIM_PROCESS_H

#include <QtCore/QProcess>
#include <QtCore/QStringList>

class KxsimProcess
{
public:
    /// Starts kxsim and waits until it serves or has ended.
    explicit KxsimProcess(const QStringList& arguments = QStringList());
    ~KxsimProcess();

    /// What it said it listens on; empty when it did not start.
    QString portName() const { return m_portName; }

    /// Sends one command and returns its answer of one line.
    QString ask(const QString& command);
    /// Sends a command that has no answer, and returns when it was carried out.
    void tell(const QString& command);
    /// Sends a command without the end of its line, then closes standard input.
    QString lastAnswer(const QString& command);

    /// Sends a signal, unless it has ended already; returns the exit code, or -1 when it
    /// crashed or goes on.
    int exitCodeAfter(int signal);
    QString errorOutput();
    /// What it printed since the latest answer.
    QString output();

private:
    QString readLine();

    QProcess m_process;
    QString m_portName;
};

#endif
