#include "exchange/precise_timer.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <sys/resource.h>

using namespace kx;

class PreciseTimerTest : public QObject
{
    Q_OBJECT

private slots:
    void neverEarlyAndToPartsOfAMillisecond_data();
    void neverEarlyAndToPartsOfAMillisecond();
    void neverFromInsideTheCall_data();
    void neverFromInsideTheCall();
    void theLastStartCounts();
    void stoppedWhenTheTimeIsUp();
    void withoutADescriptorItTakesWholeMilliseconds();
};

void PreciseTimerTest::neverEarlyAndToPartsOfAMillisecond_data()
{
    QTest::addColumn<bool>("isExact");
    QTest::newRow("as it comes") << false;
    QTest::newRow("exactly") << true;
}

// A busy machine delays some; the shortest of many shows what the timer does.
void PreciseTimerTest::neverEarlyAndToPartsOfAMillisecond()
{
    QFETCH(bool, isExact);
    PreciseTimer timer;
    QSignalSpy timeouts(&timer, &PreciseTimer::timeout);
    qint64 shortest = 1000000000;
    for (int i = 1; i <= 50; ++i) {
        QElapsedTimer elapsed;
        elapsed.start();
        if (isExact)
            timer.startExactly(1250);
        else
            timer.start(1250);
        while (timeouts.size() < i)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        shortest = qMin(shortest, elapsed.nsecsElapsed());
    }
    QVERIFY2(shortest >= 1250000, qPrintable(QString::number(shortest)));
    QVERIFY2(shortest < 1900000, qPrintable(QString::number(shortest)));
}

void PreciseTimerTest::neverFromInsideTheCall_data()
{
    QTest::addColumn<qint64>("microseconds");
    QTest::newRow("at once") << qint64(0);
    QTest::newRow("in the past") << qint64(-5000);
}

void PreciseTimerTest::neverFromInsideTheCall()
{
    QFETCH(qint64, microseconds);
    PreciseTimer timer;
    QSignalSpy timeouts(&timer, &PreciseTimer::timeout);
    timer.start(microseconds);
    QCOMPARE(timeouts.size(), 0);
    QTRY_COMPARE(timeouts.size(), 1);
    QTest::qWait(20);
    QCOMPARE(timeouts.size(), 1);
}

void PreciseTimerTest::theLastStartCounts()
{
    PreciseTimer timer;
    QSignalSpy timeouts(&timer, &PreciseTimer::timeout);
    timer.start(1000);
    QTest::qSleep(5);
    QElapsedTimer elapsed;
    elapsed.start();
    timer.start(60000);
    QTRY_COMPARE(timeouts.size(), 1);
    QVERIFY(elapsed.nsecsElapsed() >= 60000000);
}

void PreciseTimerTest::stoppedWhenTheTimeIsUp()
{
    PreciseTimer timer;
    QSignalSpy timeouts(&timer, &PreciseTimer::timeout);
    timer.start(1000);
    QTest::qSleep(5);
    timer.stop();
    QTest::qWait(20);
    QCOMPARE(timeouts.size(), 0);
}

void PreciseTimerTest::withoutADescriptorItTakesWholeMilliseconds()
{
    rlimit before = {};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none = {0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    PreciseTimer timer;
    setrlimit(RLIMIT_NOFILE, &before);
    QSignalSpy timeouts(&timer, &PreciseTimer::timeout);
    QElapsedTimer elapsed;
    elapsed.start();
    timer.start(1250);
    QTRY_COMPARE(timeouts.size(), 1);
    QVERIFY(elapsed.nsecsElapsed() >= 1250000);
    timer.start(1000);
    timer.stop();
    QTest::qWait(20);
    QCOMPARE(timeouts.size(), 1);
}

QTEST_GUILESS_MAIN(PreciseTimerTest)
#include "tst_precise_timer.moc"
