/// kxhost watching a simulator, for tests.
#ifndef KX_TESTS_TOOLS_KXHOST_COMMANDS_WATCH_PROCESS_H
#define KX_TESTS_TOOLS_KXHOST_COMMANDS_WATCH_PROCESS_H

#include "exchange/lines/serial_line.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtNetwork/QTcpServer>

namespace kx
{

/// `arguments` with blanks between them, then the simulator's line.
QStringList on(const KxsimProcess& simulator, const char* arguments);

/// Arguments of kxsim that set these values, with blanks between them.
QStringList presets(const char* assignments);

/// Lines without the time stamps that they begin with.
QStringList withoutTimes(const QStringList& lines);

/// Whether one of the lines contains `text`.
bool holds(const QStringList& lines, const char* text);

/// A watch that goes on until it is ended.
class RunningWatch
{
public:
    explicit RunningWatch(const QStringList& arguments);
    ~RunningWatch();

    /// Each false, or -1, when it takes longer than half a minute.
    bool waitForOutput(const char* text);
    bool waitForOutputEnd(const char* text);
    int exitCode();

    void sendSignal(int signal);
    qint64 processId() const { return m_process.processId(); }
    QByteArray output();
    QByteArray errors() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
    QByteArray m_output;
};

/// Passes a simulator's serial line on to the network, unless silenced.
class Gateway
{
public:
    explicit Gateway(const KxsimProcess& simulator);

    QString address() const;

    bool isSilent = false;

private:
    void accept();

    QTcpServer m_server;
    SerialLine m_serial;
};

} // namespace kx

#endif
