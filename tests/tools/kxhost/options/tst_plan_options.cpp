// What `kxhost plan` takes for a time.

#include "kxhost/options/plan_options.h"

#include <QtTest/QTest>

using namespace kx;

class PlanOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void aDurationIsRead_data();
    void aDurationIsRead();
    void aWrongDurationIsRefused_data();
    void aWrongDurationIsRefused();
};

void PlanOptionsTest::aDurationIsRead_data()
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
    QTest::newRow("the longest") << "60s" << qint64(60000000);
}

void PlanOptionsTest::aDurationIsRead()
{
    QFETCH(QString, text);
    qint64 microseconds = -1;
    QVERIFY(parseDuration(text, &microseconds));
    QTEST(microseconds, "microseconds");
}

void PlanOptionsTest::aWrongDurationIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("negative") << "-5ms";
    QTest::newRow("another unit") << "5m";
    QTest::newRow("a unit alone") << "ms";
    QTest::newRow("a comma") << "2,5ms";
    QTest::newRow("longer than a minute") << "60.1s";
    QTest::newRow("a line end") << "5ms\n";
}

void PlanOptionsTest::aWrongDurationIsRefused()
{
    QFETCH(QString, text);
    qint64 microseconds = 7;
    QVERIFY(!parseDuration(text, &microseconds));
    QCOMPARE(microseconds, qint64(7));
}

QTEST_APPLESS_MAIN(PlanOptionsTest)
#include "tst_plan_options.moc"
