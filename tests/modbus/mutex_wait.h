/// Whether a step takes the runtime's mutex.
#ifndef KX_TESTS_MODBUS_MUTEX_WAIT_H
#define KX_TESTS_MODBUS_MUTEX_WAIT_H

#include <QtCore/QElapsedTimer>
#include <QtCore/QMutex>
#include <QtTest/QTest>

#include <atomic>
#include <thread>

/// Runs `step` on another thread while the runtime holds its mutex, and tells
/// whether it waited for it.
template <typename Step>
bool waitsForTheMutex(QMutex& mutex, const Step& step)
{
    std::atomic<bool> done(false);
    mutex.lock();
    std::thread thread([&] {
        step();
        done = true;
    });
    QTest::qSleep(50);
    const bool waited = !done;
    mutex.unlock();
    thread.join();
    return waited && done;
}

/// Long enough for any step on a loaded machine, short enough for a test that fails.
const int MUTEX_PATIENCE_MS = 10000;

/// Runs `step` on another thread while the runtime holds its mutex, and tells whether
/// `reached()` came true before the mutex was given back. Returns as soon as it did.
template <typename Step, typename Reached>
bool reachesUnderTheMutex(QMutex& mutex, const Step& step, const Reached& reached)
{
    mutex.lock();
    std::thread thread(step);
    QElapsedTimer waited;
    waited.start();
    while (!reached() && !waited.hasExpired(MUTEX_PATIENCE_MS))
        std::this_thread::yield();
    const bool isReached = reached();
    mutex.unlock();
    thread.join();
    return isReached;
}

/// Runs `step` on another thread while the runtime holds its mutex, and tells whether
/// it ended without taking it.
template <typename Step>
bool leavesTheMutexAlone(QMutex& mutex, const Step& step)
{
    std::atomic<bool> done(false);
    return reachesUnderTheMutex(
        mutex,
        [&] {
            step();
            done = true;
        },
        [&] { return done.load(); });
}

#endif
