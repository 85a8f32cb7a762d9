#include "exchange/precise_timer.h"

#include "exchange/loop_clock.h"

#include <QtCore/QSocketNotifier>

#ifdef Q_OS_LINUX
#include <sys/timerfd.h>
#include <unistd.h>
#endif

namespace kx
{

namespace
{

const qint64 MICROSECOND = 1000; // nanoseconds

} // namespace

PreciseTimer::PreciseTimer(QObject* parent) : QObject(parent)
{
    m_coarse.setSingleShot(true);
    m_coarse.setTimerType(Qt::PreciseTimer);
    connect(&m_coarse, &QTimer::timeout, this, &PreciseTimer::timeout);
#ifdef Q_OS_LINUX
    m_descriptor = timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
#endif
}

PreciseTimer::~PreciseTimer()
{
#ifdef Q_OS_LINUX
    delete m_notifier; // before what it watches
    if (m_descriptor >= 0)
        close(m_descriptor);
#endif
}

void PreciseTimer::start(qint64 microseconds)
{
    m_isExact = false;
    startWithLead(microseconds, 0);
}

void PreciseTimer::startExactly(qint64 microseconds)
{
    m_isExact = true;
    startWithLead(microseconds, m_lead.value());
}

void PreciseTimer::startWithLead(qint64 microseconds, qint64 lead)
{
    const qint64 wanted = qMax(qint64(0), microseconds);
    m_since.start();
    m_wanted = wanted * MICROSECOND;
    m_armed = qMax(qint64(1), m_wanted - lead); // 0 would disarm it
    if (arm(m_armed))
        return;
    const qint64 milliseconds =
        (wanted + MICROSECONDS_PER_MILLISECOND - 1) / MICROSECONDS_PER_MILLISECOND;
    m_coarse.start(static_cast<int>(milliseconds));
}

void PreciseTimer::stop()
{
    arm(0);
    m_coarse.stop();
}

#ifdef Q_OS_LINUX

bool PreciseTimer::arm(qint64 nanoseconds)
{
    const qint64 second = 1000000000;
    itimerspec time = {};
    time.it_value.tv_sec = static_cast<time_t>(nanoseconds / second);
    time.it_value.tv_nsec = static_cast<long>(nanoseconds % second);
    // Setting it forgets that an earlier time was up.
    if (m_descriptor < 0 || timerfd_settime(m_descriptor, 0, &time, nullptr) != 0)
        return false;
    if (!m_notifier) {
        m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &PreciseTimer::onReadable);
    }
    return true;
}

void PreciseTimer::onReadable()
{
    quint64 times = 0;
    // Nothing when it was started again after the event loop had looked.
    if (read(m_descriptor, &times, sizeof times) != sizeof times)
        return;
    if (m_isExact)
        m_lead.learn(m_since.nsecsElapsed() - m_armed);
    while (m_since.nsecsElapsed() < m_wanted)
        continue;
    emit timeout();
}

#else

bool PreciseTimer::arm(qint64)
{
    return false;
}

void PreciseTimer::onReadable() {}

#endif

} // namespace kx
