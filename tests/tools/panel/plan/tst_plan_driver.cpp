// What the driver itself would read.

#include "panel/plan/plan_driver.h"

#include "exchange/driver_lease.h"

#include <QtTest/QTest>

using namespace kx;

class PlanDriverTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theDriverIsAsked_data();
    void theDriverIsAsked();
    void eachPlanStartsAnew();
    void aDriverInUseIsLeftAlone();

private:
    DriverEntryPoints m_driver;
};

namespace
{

QList<AddressRange> ranges(const QStringList& words)
{
    QList<AddressRange> ranges;
    for (const QString& word : words) {
        AddressRange range;
        QString error;
        if (!parseAddressRange(word, &range, &error))
            qFatal("%s", qPrintable(error));
        if (range.station < 0)
            range.station = 1;
        ranges << range;
    }
    return ranges;
}

/// "1 D0..D10 11 8/27": station, addresses, count, bytes both ways.
QString describe(const PlannedRequest& request)
{
    return QString::fromLatin1("%1 %2..%3 %4 %5/%6")
        .arg(QString::number(request.station), addressText(request.type, request.firstAddress()),
             addressText(request.type, request.lastAddress()), QString::number(request.count),
             QString::number(request.bytesSent), QString::number(request.bytesExpected));
}

QStringList describe(const Plan& plan)
{
    QStringList lines;
    for (const PlannedRequest& request : plan.requests)
        lines << describe(request);
    return lines;
}

} // namespace

void PlanDriverTest::initTestCase()
{
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &m_driver, &error), qPrintable(error));
}

void PlanDriverTest::theDriverIsAsked_data()
{
    QTest::addColumn<QStringList>("watched");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QStringList>("requests");
    QTest::newRow("nothing") << QStringList() << 32 << QStringList();
    QTest::newRow("touching and near ranges in one request")
        << QStringList{"D40", "D0:2", "D10", "D2:2"} << 32
        << QStringList{"1 D0..D10 11 8/27", "1 D40..D40 1 8/7"};
    QTest::newRow("every type in the order of the cycle")
        << QStringList{"D0", "X10:9", "32CV200:2"} << 32
        << QStringList{"1 X10..X20 9 8/7", "1 D0..D0 1 8/7", "1 32CV200..32CV201 4 8/13"};
    QTest::newRow("stations apart")
        << QStringList{"D0@2", "D0@1"} << 32 << QStringList{"1 D0..D0 1 8/7", "2 D0..D0 1 8/7"};
    QTest::newRow("a range longer than the limit is cut")
        << QStringList{"D0:70"} << 32
        << QStringList{"1 D0..D31 32 8/69", "1 D32..D63 32 8/69", "1 D64..D69 6 8/17"};
    QTest::newRow("the limit bounds bits, too")
        << QStringList{"M0:40"} << 32 << QStringList{"1 M0..M31 32 8/9", "1 M32..M39 8 8/6"};
    QTest::newRow("both ranges of M")
        << QStringList{"M2040:16"} << 32
        << QStringList{"1 M2040..M2047 8 8/6", "1 M2048..M2055 8 8/6"};
    QTest::newRow("both ranges of SM, the second so long that they do not fit together")
        << QStringList{"SM250:12"} << 32
        << QStringList{"1 SM250..SM255 6 8/6", "1 SM256..SM282 27 8/9"};
    QTest::newRow("a counter that does not fit the limit is asked for three times")
        << QStringList{"32CV200"} << 1
        << QStringList{"1 32CV200..32CV200 2 8/9", "1 32CV200..32CV200 2 8/9",
                       "1 32CV200..32CV200 2 8/9"};
}

void PlanDriverTest::theDriverIsAsked()
{
    QFETCH(QStringList, watched);
    QFETCH(int, maxWords);
    const Plan plan = askForPlan(m_driver, ranges(watched), maxWords).value();
    QCOMPARE(plan.maxWords, maxWords);
    QTEST(describe(plan), "requests");
}

void PlanDriverTest::eachPlanStartsAnew()
{
    const QList<AddressRange> watched = ranges({"D0", "D1", "D3"});
    QCOMPARE(describe(askForPlan(m_driver, watched, 1).value()),
             (QStringList{"1 D0..D0 1 8/7", "1 D1..D1 1 8/7", "1 D3..D3 1 8/7"}));
    QCOMPARE(describe(askForPlan(m_driver, watched, 2).value()),
             (QStringList{"1 D0..D1 2 8/9", "1 D3..D3 1 8/7"}));
    QCOMPARE(describe(askForPlan(m_driver, watched, 3).value()),
             (QStringList{"1 D0..D1 2 8/9", "1 D3..D3 1 8/7"}));
    QCOMPARE(describe(askForPlan(m_driver, watched, 4).value()), (QStringList{"1 D0..D3 4 8/13"}));
}

void PlanDriverTest::aDriverInUseIsLeftAlone()
{
    const DriverLease session;
    QVERIFY(session.isHeld());
    QVERIFY(!askForPlan(m_driver, ranges({"D0"}), 4));
}

QTEST_APPLESS_MAIN(PlanDriverTest)
#include "tst_plan_driver.moc"
