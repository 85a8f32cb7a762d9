#include "kxpanel/machine/session_times.h"

#include <QtTest/QTest>

using kxpanel::SessionTimes;

namespace
{

const qint64 MORNING = 1700000000000; // milliseconds since 1970
const qint64 HOUR = 3600000;

} // namespace

class SessionTimesTest : public QObject
{
    Q_OBJECT

private slots:
    void clocksThatGoOnTogether()
    {
        SessionTimes times;
        QCOMPARE(times.look(0, {500000, MORNING}), qint64(0));
        QCOMPARE(times.look(1000, {501000, MORNING + 1000}), qint64(0));
        QCOMPARE(times.look(2001, {502000, MORNING + 2002}), qint64(0)); // one after the other
        QCOMPARE(times.timeOfDay(0), MORNING);
        QCOMPARE(times.timeOfDay(250), MORNING + 250);
        QCOMPARE(times.timeOfDay(2000), MORNING + 2000);
    }

    void theTimeOfDayIsSet_data()
    {
        QTest::addColumn<qint64>("by");
        QTest::newRow("back by an hour") << -HOUR;
        QTest::newRow("on by an hour") << HOUR;
        QTest::newRow("on by a moment that is seen") << qint64(50);
    }

    // What was read ten seconds ago was still read ten seconds ago.
    void theTimeOfDayIsSet()
    {
        QFETCH(qint64, by);
        SessionTimes times;
        times.look(0, {500000, MORNING});
        QCOMPARE(times.look(20000, {520000, MORNING + 20000 + by}), by);
        QCOMPARE(times.timeOfDay(10000), MORNING + 10000 + by);
        QCOMPARE(times.timeOfDay(20000), MORNING + 20000 + by);
        QCOMPARE(times.look(21000, {521000, MORNING + 21000 + by}), qint64(0));
    }

    // The session's clock stands still, and what was read before was read an hour ago.
    void theComputerSleeps()
    {
        SessionTimes times;
        times.look(0, {500000, MORNING});
        QCOMPARE(times.look(20000, {520000 + HOUR, MORNING + 20000 + HOUR}), qint64(0));
        QCOMPARE(times.timeOfDay(10000), MORNING + 10000);
        QCOMPARE(times.timeOfDay(20000), MORNING + 20000 + HOUR);
        times.look(30000, {530000 + 3 * HOUR, MORNING + 30000 + 3 * HOUR});
        QCOMPARE(times.timeOfDay(19999), MORNING + 19999);
        QCOMPARE(times.timeOfDay(29999), MORNING + 29999 + HOUR);
        QCOMPARE(times.timeOfDay(30001), MORNING + 30001 + 3 * HOUR);
    }

    void itSleepsAndTheTimeOfDayIsSet()
    {
        SessionTimes times;
        times.look(0, {500000, MORNING});
        QCOMPARE(times.look(20000, {520000 + HOUR, MORNING + 20000}), -HOUR);
        QCOMPARE(times.timeOfDay(10000), MORNING + 10000 - HOUR);
        QCOMPARE(times.timeOfDay(20000), MORNING + 20000);
    }
};

QTEST_APPLESS_MAIN(SessionTimesTest)
#include "tst_session_times.moc"
