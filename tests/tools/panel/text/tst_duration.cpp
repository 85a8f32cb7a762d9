// Times as people type them.

#include "panel/text/duration.h"

#include <QtTest/QTest>

using namespace kx;

class DurationTest : public QObject
{
    Q_OBJECT

private slots:
    void aDurationIsRead_data();
    void aDurationIsRead();
    void aWrongDurationIsRefused_data();
    void aWrongDurationIsRefused();
};

void DurationTest::aDurationIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("microseconds");
    QTest::newRow("milliseconds") << "5ms" << qint64(5000);
    QTest::newRow("a bare number is milliseconds") << "5" << qint64(5000);
    QTest::newRow("with a blank") << "5 ms" << qint64(5000);
    QTest::newRow("a fraction") << "2.5ms" << qint64(2500);
    QTest::newRow("microseconds") << "800us" << qint64(800);
    QTest::newRow("rounded to whole microseconds") << "0.6us" << qint64(1);
    QTest::newRow("seconds") << "0.1s" << qint64(100000);
    QTest::newRow("nothing") << "0" << qint64(0);
    QTest::newRow("minutes") << "1.5min" << qint64(90000000);
    QTest::newRow("a part of an hour") << "0.01h" << qint64(36000000);
    QTest::newRow("the longest") << "5min" << qint64(300000000);
}

void DurationTest::aDurationIsRead()
{
    QFETCH(QString, text);
    qint64 microseconds = -1;
    QVERIFY(parseDuration(text, 300000000, &microseconds));
    QTEST(microseconds, "microseconds");
}

void DurationTest::aWrongDurationIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("negative") << "-5ms";
    QTest::newRow("another unit") << "5m";
    QTest::newRow("a unit alone") << "ms";
    QTest::newRow("a comma") << "2,5ms";
    QTest::newRow("longer than the longest") << "300.1s";
    QTest::newRow("far longer") << "99999999999999999999s";
    QTest::newRow("a line end") << "5ms\n";
}

void DurationTest::aWrongDurationIsRefused()
{
    QFETCH(QString, text);
    qint64 microseconds = 7;
    QVERIFY(!parseDuration(text, 300000000, &microseconds));
    QCOMPARE(microseconds, qint64(7));
}

QTEST_APPLESS_MAIN(DurationTest)
#include "tst_duration.moc"
