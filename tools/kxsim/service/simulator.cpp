#include "kxsim/service/simulator.h"

#include "kxsim/memory/memory_file.h"
#include "kxsim/service/commands.h"

#include <algorithm>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace kxsim
{

namespace
{

const int PROGRAMME_STEP = 100;

// Longer than any pause inside a request, even with USB adapters that hold bytes
// back for 16 ms; shorter than a host waits before it repeats.
const std::chrono::milliseconds SILENCE(50);

LineTiming timingOf(const Simulation& simulation)
{
    return {simulation.pace, simulation.turnaround, simulation.faults.seed};
}

} // namespace

Simulator::Simulator(SlaveLine* line, Controllers* controllers, const Simulation& simulation)
    : m_line(line, timingOf(simulation)),
      m_controllers(controllers),
      m_server(controllers->stations()),
      m_faults(simulation.faults),
      m_outages(simulation.outages)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("no pipe for the simulated controller");
    m_stopReader = ends[0];
    m_stopWriter = ends[1];
}

Simulator::~Simulator()
{
    close(m_stopReader);
    close(m_stopWriter);
}

void Simulator::setCommands(int descriptor, const TextSink& answer)
{
    m_commands = descriptor;
    m_answer = answer;
}

void Simulator::stop()
{
    const char byte = 0;
    // A full pipe already means stop.
    const ssize_t written = write(m_stopWriter, &byte, 1);
    static_cast<void>(written);
}

QString Simulator::command(const QString& line)
{
    const std::lock_guard<std::mutex> lock(m_lock);
    if (line.simplified() == QLatin1String("faults"))
        return m_faults.summary();
    m_controllers->programme()->advanceTo(m_line.now());
    return runCommand(line, m_controllers->stations());
}

void Simulator::addStation(int number)
{
    const std::lock_guard<std::mutex> lock(m_lock);
    m_controllers->addStation(number);
}

QByteArray Simulator::memory()
{
    advance();
    const std::lock_guard<std::mutex> lock(m_lock);
    return memoryText(m_controllers->stations());
}

bool Simulator::run()
{
    for (;;) {
        m_line.setAlarm();
        // poll() leaves out negative descriptors.
        pollfd sources[] = {{m_stopReader, POLLIN, 0},
                            {m_line.descriptor(), POLLIN, 0},
                            {m_commands, POLLIN, 0},
                            {m_line.alarm(), POLLIN, 0}};
        const int ready = poll(sources, 4, waitMilliseconds());
        if (ready < 0)
            continue;
        if (sources[0].revents)
            return true;
        // Else it is brought to the time of what is asked.
        if (ready == 0)
            advance();
        sendDue();
        if (sources[1].revents && !m_line.receive())
            return false;
        if (!answerArrived())
            return false;
        dropAfterSilence();
        if (sources[2].revents)
            readCommands();
    }
}

int Simulator::waitMilliseconds()
{
    if (isAmidFrame())
        return static_cast<int>(SILENCE.count());
    const std::lock_guard<std::mutex> lock(m_lock);
    return m_controllers->programme()->needsSteps() ? PROGRAMME_STEP : -1;
}

void Simulator::advance()
{
    const std::lock_guard<std::mutex> lock(m_lock);
    m_controllers->programme()->advanceTo(m_line.now());
}

bool Simulator::answerArrived()
{
    ArrivingBytes::Arrival arrival;
    while (m_line.takeArrived(&arrival)) {
        m_received += arrival.bytes;
        m_lastByte = arrival.end;
        if (!answerRequests())
            return false;
    }
    return true;
}

bool Simulator::answerRequests()
{
    while (!m_received.isEmpty()) {
        const RequestServer::Answer answer = askServer();
        if (answer.verdict == RequestServer::INCOMPLETE)
            return true;
        if (answer.verdict == RequestServer::DAMAGED) {
            // Another station's reply, say: the next request follows somewhere in it.
            m_damaged.append(m_received.at(0));
            m_received.remove(0, 1);
            continue;
        }
        logDamaged();
        log(answer.verdict == RequestServer::EXECUTED ? "request" : "ignored",
            m_received.left(answer.requestLength));
        const QByteArray request = m_received.left(answer.requestLength);
        m_received.remove(0, answer.requestLength);
        const bool isBroadcast = request.at(0) == 0;
        if (answer.verdict == RequestServer::EXECUTED && !isBroadcast
            && !send(request, answer.reply))
            return false;
    }
    return true;
}

RequestServer::Answer Simulator::askServer()
{
    const std::lock_guard<std::mutex> lock(m_lock);
    m_controllers->programme()->advanceTo(m_lastByte);
    followOutages();
    return m_server.answer(m_received, m_faults.isCarriedOut());
}

void Simulator::followOutages()
{
    for (const Outage& outage : m_outages)
        m_controllers->stations()->setHears(outage.station,
                                            !isDown(m_outages, outage.station, m_lastByte));
}

void Simulator::dropAfterSilence()
{
    if (!isAmidFrame() || !m_line.isQuiet() || m_line.now() - m_lastByte < SILENCE)
        return;
    m_damaged.append(m_received);
    m_received.clear();
    logDamaged();
}

void Simulator::logDamaged()
{
    if (!m_damaged.isEmpty())
        log("damaged", m_damaged);
    m_damaged.clear();
}

bool Simulator::send(const QByteArray& request, const QByteArray& reply)
{
    FaultyReply spoiled;
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        spoiled = m_faults.apply(request, reply);
    }
    if (spoiled.closesLine)
        return reopenLine();
    // Delayed replies are all held back for as long, so they stay in order.
    m_line.reply(spoiled.bytes, m_lastByte, std::chrono::milliseconds(spoiled.after));
    sendDue();
    return true;
}

void Simulator::sendDue()
{
    for (const QByteArray& reply : m_line.sendDue())
        log("reply", reply);
}

bool Simulator::reopenLine()
{
    m_received.clear();
    return m_line.reopen();
}

void Simulator::readCommands()
{
    char bytes[512];
    const ssize_t length = read(m_commands, bytes, sizeof bytes);
    if (length > 0) {
        m_commandBytes.append(bytes, static_cast<int>(length));
    } else {
        m_commands = -1;
        m_commandBytes.append('\n'); // the last line may lack its end
    }
    for (auto end = m_commandBytes.indexOf('\n'); end >= 0; end = m_commandBytes.indexOf('\n')) {
        // Of a QByteArray, Qt 5 takes what stands before a zero.
        const QString answer =
            command(QString::fromUtf8(m_commandBytes.constData(), static_cast<int>(end)));
        m_commandBytes.remove(0, end + 1);
        if (!answer.isEmpty())
            m_answer(answer);
    }
}

void Simulator::log(const char* what, const QByteArray& bytes) const
{
    if (m_log)
        m_log(QStringLiteral("%1 %2")
                  .arg(QLatin1String(what), -7)
                  .arg(QString::fromLatin1(bytes.toHex(' '))));
}

} // namespace kxsim
