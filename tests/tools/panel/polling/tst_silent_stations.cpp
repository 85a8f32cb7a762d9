#include "panel/polling/silent_stations.h"

#include <QtTest/QTest>

using namespace kx;

class SilentStationsTest : public QObject
{
    Q_OBJECT

private slots:
    void waitsGrow();
    void tryingManyTakesNoMoreThanTryingOne();
    void anAnswerEndsTheSilence();
};

// With a time-out of 100 us.
void SilentStationsTest::waitsGrow()
{
    SilentStations silent(100);
    QVERIFY(!silent.contains(5));
    silent.onSilence(5, 1, 1000);
    QVERIFY(silent.contains(5));
    QVERIFY(!silent.isDue(5, 1, 1000)); // not in the same round
    QVERIFY(silent.isDue(5, 2, 1000));
    silent.onSilence(5, 2, 1100);
    QCOMPARE(silent.tryAt(5), qint64(1500));
    QVERIFY(!silent.isDue(5, 9, 1499));
    QVERIFY(silent.isDue(5, 9, 1500));
    silent.onSilence(5, 9, 1600);
    QCOMPARE(silent.tryAt(5), qint64(2400));
    silent.onSilence(5, 9, 2500);
    QCOMPARE(silent.tryAt(5), qint64(4100));
    silent.onSilence(5, 9, 4200);
    QCOMPARE(silent.tryAt(5), qint64(5800));
}

// A try of one keeps the others from theirs for up to ten time-outs.
void SilentStationsTest::tryingManyTakesNoMoreThanTryingOne()
{
    SilentStations silent(100);
    for (const int station : {1, 2})
        silent.onSilence(station, 1, 0);
    for (int i = 0; i < 4; ++i)
        silent.onSilence(1, 2, 10000);
    silent.onSilence(2, 2, 10000);
    QCOMPARE(silent.tryAt(2), qint64(10400));
    silent.onSilence(1, 2, 10300);
    QCOMPARE(silent.tryAt(2), qint64(11300));
    QCOMPARE(silent.tryAt(1), qint64(11900));
}

void SilentStationsTest::anAnswerEndsTheSilence()
{
    SilentStations silent(100);
    QVERIFY(!silent.onAnswer(3));
    silent.onSilence(3, 1, 0);
    QVERIFY(silent.onAnswer(3));
    QVERIFY(!silent.contains(3));
    QVERIFY(!silent.onAnswer(3));
}

QTEST_APPLESS_MAIN(SilentStationsTest)
#include "tst_silent_stations.moc"
