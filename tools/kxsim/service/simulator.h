/// Serves simulated controllers on a line until told to stop.
#ifndef KX_KXSIM_SERVICE_SIMULATOR_H
#define KX_KXSIM_SERVICE_SIMULATOR_H

#include "kxsim/faults/line_faults.h"
#include "kxsim/line/timed_line.h"
#include "kxsim/requests/request_server.h"
#include "kxsim/service/controllers.h"

#include <functional>
#include <mutex>

namespace kxsim
{

class Simulator
{
public:
    using TextSink = std::function<void(const QString&)>;

    /// Line and controllers must outlive the simulator; the controllers were made of the
    /// same simulation. Its time begins now.
    Simulator(SlaveLine* line, Controllers* controllers, const Simulation& simulation);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// Calls `log` with one line of hex per request and reply, from inside run().
    void setLog(const TextSink& log) { m_log = log; }

    /// Takes commands (see commands.h) from a file descriptor until it ends, and
    /// hands each answer to `answer` from inside run().
    void setCommands(int descriptor, const TextSink& answer);

    /// Serves until stop(); false when the line was lost.
    bool run();

    /// Ends run(), also one yet to come. For any thread or signal handler.
    void stop();

    /// Runs one command: those of commands.h, and "faults", which gives
    /// LineFaults::summary(). For any thread.
    QString command(const QString& line);

    /// See Controllers::addStation(). For any thread.
    void addStation(int number);

    /// What the controllers hold now, see memory_file.h. For any thread.
    QByteArray memory();

private:
    int waitMilliseconds();
    bool answerArrived();
    bool answerRequests();
    RequestServer::Answer askServer();
    void followOutages();
    void advance();
    bool isAmidFrame() const { return !m_received.isEmpty() || !m_damaged.isEmpty(); }
    void dropAfterSilence();
    void logDamaged();
    bool send(const QByteArray& request, const QByteArray& reply);
    void sendDue();
    bool reopenLine();
    void readCommands();
    void log(const char* what, const QByteArray& bytes) const;

    TimedLine m_line;
    Controllers* m_controllers;
    RequestServer m_server;
    LineFaults m_faults;
    QList<Outage> m_outages;
    std::mutex m_lock; ///< of the memory and the counts
    TextSink m_log;
    TextSink m_answer;
    int m_commands = -1;
    QByteArray m_commandBytes;
    QByteArray m_received; ///< not yet a whole request
    QByteArray m_damaged;  ///< no part of any request
    Moment m_lastByte{0};
    int m_stopReader;
    int m_stopWriter;
};

} // namespace kxsim

#endif
