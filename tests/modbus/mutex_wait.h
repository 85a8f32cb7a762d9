/// Whether a step takes the runtime's mutex.
#ifndef KX_TESTS_MUTEX_WAIT_H
#define KX_TESTS_MUTEX_WAIT_H

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

#endif
