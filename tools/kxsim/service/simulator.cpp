#include "kxsim/service/simulator.h"

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

const int MOTION_MILLISECONDS = 100;

// Longer than any pause inside a request, even with USB adapters that hold bytes
// back for 16 ms; shorter than a host waits before it repeats.
const std::chrono::milliseconds SILENCE(50);

} // namespace

Simulator::Simulator(SlaveLine* line, Stations* stations, bool moves, const FaultPlan& faults)
    : m_line(line), m_stations(stations), m_server(stations), m_faults(faults)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("no pipe for the simulated controller");
    m_stopReader = ends[0];
    m_stopWriter = ends[1];
    if (!moves)
        return;
    for (auto& [station, memory] : m_stations->all())
        m_motions.emplace_back(&memory);
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
    return runCommand(line, m_stations);
}

bool Simulator::run()
{
    m_started = Clock::now();
    for (;;) {
        // poll() leaves out negative descriptors.
        pollfd sources[] = {
            {m_stopReader, POLLIN, 0}, {m_line->descriptor(), POLLIN, 0}, {m_commands, POLLIN, 0}};
        if (poll(sources, 3, waitMilliseconds()) < 0)
            continue;
        if (sources[0].revents)
            return true;
        move();
        sendDue();
        if (sources[1].revents && !receive())
            return false;
        dropAfterSilence();
        if (sources[2].revents)
            readCommands();
    }
}

int Simulator::waitMilliseconds() const
{
    int wait = m_motions.empty() ? -1 : MOTION_MILLISECONDS;
    if (isAmidFrame())
        wait = static_cast<int>(SILENCE.count());
    if (m_lateReplies.empty())
        return wait;
    const auto due =
        std::chrono::ceil<std::chrono::milliseconds>(m_lateReplies.front().due - Clock::now());
    const int untilDue = static_cast<int>(std::max<qint64>(0, due.count()));
    return wait < 0 ? untilDue : std::min(wait, untilDue);
}

void Simulator::move()
{
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_started);
    const std::lock_guard<std::mutex> lock(m_lock);
    for (Motion& motion : m_motions)
        motion.advanceTo(elapsed.count());
}

bool Simulator::receive()
{
    if (!m_line->receive(&m_received))
        return false;
    m_lastByte = Clock::now();
    return answerRequests();
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
    return m_server.answer(m_received, m_faults.isCarriedOut());
}

void Simulator::dropAfterSilence()
{
    if (!isAmidFrame() || Clock::now() - m_lastByte < SILENCE)
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
    if (spoiled.after == 0)
        put(spoiled.bytes);
    else // all are held back for as long, so they stay in order
        m_lateReplies.push_back(
            {Clock::now() + std::chrono::milliseconds(spoiled.after), spoiled.bytes});
    return true;
}

void Simulator::put(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    log("reply", bytes);
    m_line->send(bytes);
}

void Simulator::sendDue()
{
    while (!m_lateReplies.empty() && m_lateReplies.front().due <= Clock::now()) {
        put(m_lateReplies.front().bytes);
        m_lateReplies.erase(m_lateReplies.begin());
    }
}

bool Simulator::reopenLine()
{
    m_received.clear();
    m_lateReplies.clear();
    return m_line->reopen();
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
