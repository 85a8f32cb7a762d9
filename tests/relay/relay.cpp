#include "relay/relay.h"

#include "relay/immediate_slave.h"
#include "relay/paced_wire.h"
#include "relay/pty.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <limits>
#include <mutex>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>

namespace kx
{

namespace
{

const qint64 NANOSECONDS = 1000000000;
const qint64 NANOSECONDS_PER_MICROSECOND = 1000;
const int PRIORITY = 20;
// A sleep ends late by up to some hundred microseconds; a frame's last byte, from which gaps count,
// and the request that may come a frame gap later are waited for awake.
const qint64 AWAKE = 200 * NANOSECONDS_PER_MICROSECOND;
// Without a reader, the process is not to grow for ever.
const int MOST_FRAMES = 1000000;

qint64 now()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * NANOSECONDS + time.tv_nsec;
}

/// One side: its terminal, and the wire that carries what it sends.
struct Side {
    explicit Side(const RelaySettings& settings) : wire(settings.baud, settings.bitsPerCharacter) {}
    std::unique_ptr<Pty> port; ///< null: the station inside
    PacedWire wire;
};

class PtyRelay : public Relay
{
public:
    explicit PtyRelay(const RelaySettings& settings)
        : m_settings(settings),
          m_pause(NANOSECONDS * settings.bitsPerCharacter / settings.baud * 3 / 2),
          m_frameGap(timingOf(settings).frameGap() * NANOSECONDS_PER_MICROSECOND),
          m_stop(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
          m_sides{Side(settings), Side(settings)}
    {
        m_sides[MASTER].port = std::make_unique<Pty>();
        if (!settings.answers)
            m_sides[SLAVE].port = std::make_unique<Pty>();
    }
    ~PtyRelay() override;

    bool isOpen() const;
    void start();

    QString masterPort() const override { return m_sides[MASTER].port->portName(); }
    QString slavePort() const override
    {
        return m_sides[SLAVE].port ? m_sides[SLAVE].port->portName() : QString();
    }
    bool hasRealTimePriority() const override { return m_hasPriority; }
    QList<RelayedFrame> takeFrames() override;

private:
    enum { MASTER, SLAVE };

    void run();
    void waitForSomething() const;
    qint64 awakeFrom() const;
    void takeIn();
    void deliver();
    void handOver(int from, char byte, qint64 passed);
    void record(int from, const PacedWire::Character& character, qint64 passed);

    RelaySettings m_settings;
    qint64 m_pause; ///< that ends a frame
    qint64 m_frameGap;
    qint64 m_lastCarried = 0; ///< when the wires carried a character
    int m_stop;               ///< readable when the thread is to end
    std::array<Side, 2> m_sides;
    ImmediateSlave m_station;
    std::thread m_thread;
    bool m_hasPriority = false;
    std::atomic<bool> m_isStopping{false};
    std::mutex m_mutex; ///< of m_frames
    QList<RelayedFrame> m_frames;
};

bool PtyRelay::isOpen() const
{
    return m_stop >= 0 && m_sides[MASTER].port->isOpen()
           && (!m_sides[SLAVE].port || m_sides[SLAVE].port->isOpen());
}

void PtyRelay::start()
{
    m_thread = std::thread(&PtyRelay::run, this);
    sched_param priority = {};
    priority.sched_priority = PRIORITY;
    m_hasPriority = pthread_setschedparam(m_thread.native_handle(), SCHED_FIFO, &priority) == 0;
}

PtyRelay::~PtyRelay()
{
    m_isStopping = true;
    eventfd_write(m_stop, 1);
    if (m_thread.joinable())
        m_thread.join();
    close(m_stop);
}

QList<RelayedFrame> PtyRelay::takeFrames()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QList<RelayedFrame> frames;
    frames.swap(m_frames);
    return frames;
}

void PtyRelay::run()
{
    prctl(PR_SET_TIMERSLACK, 1);
    while (!m_isStopping) {
        waitForSomething();
        takeIn();
        deliver();
    }
}

qint64 PtyRelay::awakeFrom() const
{
    qint64 next = std::numeric_limits<qint64>::max();
    for (const Side& side : m_sides) {
        if (!side.wire.isEmpty())
            next = qMin(next, side.wire.nextAt() - (side.wire.isNextTheLast() ? AWAKE : 0));
    }
    const qint64 request = m_lastCarried + m_frameGap;
    const bool isRequestNear = now() < request + AWAKE;
    return isRequestNear ? qMin(next, request - AWAKE) : next;
}

void PtyRelay::waitForSomething() const
{
    const qint64 next = awakeFrom();
    const bool waitsForEver = next == std::numeric_limits<qint64>::max();
    const qint64 left = waitsForEver ? 0 : qMax(qint64(0), next - now());
    const timespec patience = {static_cast<time_t>(left / NANOSECONDS),
                               static_cast<long>(left % NANOSECONDS)};
    pollfd ends[] = {
        {m_stop, POLLIN, 0}, {m_sides[MASTER].port->descriptor(), POLLIN, 0}, {-1, POLLIN, 0}};
    if (m_sides[SLAVE].port)
        ends[2].fd = m_sides[SLAVE].port->descriptor();
    ppoll(ends, 3, waitsForEver ? nullptr : &patience, nullptr);
}

void PtyRelay::takeIn()
{
    for (Side& side : m_sides) {
        const QByteArray bytes = side.port ? side.port->receive() : QByteArray();
        if (!bytes.isEmpty())
            side.wire.send(bytes, now());
    }
}

void PtyRelay::deliver()
{
    for (const int from : {MASTER, SLAVE}) {
        PacedWire& wire = m_sides[static_cast<size_t>(from)].wire;
        while (!wire.isEmpty() && wire.nextAt() <= now()) {
            const PacedWire::Character character = wire.take();
            // Whoever has got a byte finds it among the frames.
            const std::lock_guard<std::mutex> lock(m_mutex);
            const qint64 passed = now();
            m_lastCarried = passed;
            handOver(from, character.byte, passed);
            record(from, character, passed / NANOSECONDS_PER_MICROSECOND);
        }
    }
}

void PtyRelay::handOver(int from, char byte, qint64 passed)
{
    Side& other = m_sides[from == MASTER ? SLAVE : MASTER];
    if (other.port)
        return other.port->send(byte);
    const QByteArray reply = m_station.take(byte);
    if (!reply.isEmpty())
        other.wire.send(reply, passed + m_settings.turnaround * NANOSECONDS_PER_MICROSECOND);
}

void PtyRelay::record(int from, const PacedWire::Character& character, qint64 passed)
{
    const qint64 start = character.start / NANOSECONDS_PER_MICROSECOND;
    const bool goesOn = !m_frames.isEmpty() && m_frames.last().isFromMaster == (from == MASTER)
                        && start - m_frames.last().end < m_pause / NANOSECONDS_PER_MICROSECOND;
    if (!goesOn) {
        if (m_frames.size() == MOST_FRAMES)
            m_frames.clear();
        m_frames.append({from == MASTER, QByteArray(), start, passed});
    }
    m_frames.last().bytes.append(character.byte);
    m_frames.last().end = passed;
}

} // namespace

LineTiming timingOf(const RelaySettings& settings)
{
    LineTiming timing;
    timing.baud = settings.baud;
    timing.parityBits = settings.bitsPerCharacter - timing.bitsPerCharacter();
    return timing;
}

std::unique_ptr<Relay> Relay::open(const RelaySettings& settings, QString* error)
{
    auto relay = std::make_unique<PtyRelay>(settings);
    if (!relay->isOpen()) {
        *error = QStringLiteral("no pseudo-terminal: ") + QString::fromLocal8Bit(strerror(errno));
        return nullptr;
    }
    relay->start();
    return relay;
}

} // namespace kx
