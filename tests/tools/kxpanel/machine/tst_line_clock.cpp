#include "kxpanel/machine/line_clock.h"

#include <QtTest/QTest>

using kxpanel::LineClock;

class LineClockTest : public QObject
{
    Q_OBJECT

private slots:
    void goesOnWhateverIsSet()
    {
        LineClock clock;
        QCOMPARE(clock.follow(100, 5000000), qint64(0));
        QCOMPARE(clock.now(100), qint64(5000000));
        QCOMPARE(clock.now(350), qint64(5000250));
    }

    void saysByHowMuchItWasSetBack()
    {
        LineClock clock;
        clock.follow(0, 9000000);
        // 10 seconds later by the steady clock, an hour less by the system's
        QCOMPARE(clock.follow(10000, 9010000 - 3600000), qint64(3600000));
        QCOMPARE(clock.now(10000), qint64(5410000));
        QCOMPARE(clock.follow(20000, 5420000), qint64(0));
    }

    void smallStepsAndThoseForwardAreNone()
    {
        LineClock clock;
        clock.follow(0, 9000000);
        QCOMPARE(clock.follow(0, 8999000), qint64(0)); // by a second
        QCOMPARE(clock.now(0), qint64(8999000));
        QCOMPARE(clock.follow(0, 12599000), qint64(0)); // on by an hour
        QCOMPARE(clock.now(0), qint64(12599000));
    }

    void goesWithTheOpenLine()
    {
        LineClock clock;
        clock.follow(0, 9000000);
        clock.shift(-3600000);
        QCOMPARE(clock.now(1000), qint64(5401000));
        // The system's own, which was set by as much
        QCOMPARE(clock.follow(2000, 5402000), qint64(0));
    }

    void nothingIsReadInTheFuture()
    {
        LineClock clock;
        clock.follow(0, 9000000);
        clock.onRead(1000, 9000900);
        QCOMPARE(clock.now(1000), qint64(9001000));
        clock.onRead(1000, 9500000);
        QCOMPARE(clock.now(1000), qint64(9500000));
        QCOMPARE(clock.now(1500), qint64(9500500));
    }
};

QTEST_APPLESS_MAIN(LineClockTest)
#include "tst_line_clock.moc"
