// How watched addresses lie in the requests that read them.

#include "panel/plan/plan_request.h"
#include "registers/register_types.h"
#include "support/growth.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

using namespace kx;

namespace
{

PlannedRequest request(const char* type, int address, int count)
{
    PlannedRequest request;
    request.station = 1;
    request.type = findRegisterType(QString::fromLatin1(type));
    request.address = address;
    request.count = count;
    return request;
}

QList<AddressRange> ranges(const QString& words)
{
    QList<AddressRange> ranges;
    for (const QString& word : words.split(QLatin1Char(' '))) {
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

std::vector<bool> bits(const char* picture)
{
    std::vector<bool> asked;
    for (; *picture; ++picture)
        asked.push_back(*picture == '#');
    return asked;
}

} // namespace

class PlanRequestTest : public QObject
{
    Q_OBJECT

private slots:
    void everyRegisterIsAskedForOrBridged_data();
    void everyRegisterIsAskedForOrBridged();
    void eightThousandRequestsCostFourTimesTwoThousand();
    void aBarShowsACoverage_data();
    void aBarShowsACoverage();
    void aRequestKnowsItsLastAddress();
    void modbusLimitsTheLength_data();
    void modbusLimitsTheLength();
};

void PlanRequestTest::everyRegisterIsAskedForOrBridged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("watched");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("bridged");
    QTest::addColumn<int>("misread");
    QTest::newRow("all asked for") << "D" << 100 << 4 << "D100:4"
                                   << "####" << 4 << 0 << 0;
    QTest::newRow("a gap") << "D" << 100 << 12 << "D100:4 D110:2"
                           << "####......##" << 6 << 6 << 0;
    QTest::newRow("ranges that overlap count once") << "D" << 100 << 6 << "D100:4 D102:4"
                                                    << "######" << 6 << 0 << 0;
    QTest::newRow("a range that begins before the request") << "D" << 100 << 4 << "D98:4"
                                                            << "##.." << 2 << 2 << 0;
    QTest::newRow("a range that ends behind the request") << "D" << 100 << 4 << "D102:9"
                                                          << "..##" << 2 << 2 << 0;
    QTest::newRow("another type and another station do not count")
        << "D" << 100 << 2 << "D100 CV101 D101@2"
        << "#." << 1 << 1 << 0;
    QTest::newRow("a counter is two registers") << "32CV" << 200 << 6 << "32CV200 32CV202"
                                                << "##..##" << 4 << 2 << 0;
    QTest::newRow("the SM split: the first coils end at SM255")
        << "SM" << 250 << 12 << "SM250:2 SM254:8"
        << "##..########" << 10 << 2 << 6;
    QTest::newRow("what is only bridged past the split is nobody's loss")
        << "SM" << 254 << 4 << "SM254:2"
        << "##.." << 2 << 2 << 0;
    QTest::newRow("the SD split") << "SD" << 254 << 4 << "SD254:4"
                                  << "####" << 4 << 0 << 2;
    QTest::newRow("the M split") << "M" << 2047 << 2 << "M2047:2"
                                 << "##" << 2 << 0 << 1;
    QTest::newRow("above the split") << "M" << 2048 << 2 << "M2048:2"
                                     << "##" << 2 << 0 << 0;
}

void PlanRequestTest::everyRegisterIsAskedForOrBridged()
{
    QFETCH(QString, type);
    QFETCH(int, address);
    QFETCH(int, count);
    QFETCH(QString, watched);
    const Coverage coverage = coverageOf(request(type.toLatin1().constData(), address, count),
                                         WatchedRanges(ranges(watched)));
    QTEST(coverageBar(coverage.asked, 100), "picture");
    QTEST(coverage.askedCount, "asked");
    QTEST(coverage.bridgedCount, "bridged");
    QTEST(coverage.misreadCount, "misread");
}

/// Processor time to cover so many requests of a register each, in units of clock().
static std::clock_t costOfCoverages(int requests)
{
    const RegisterType* const type = findRegisterType(QStringLiteral("D"));
    QList<AddressRange> ranges;
    for (int i = requests - 1; i >= 0; --i)
        ranges.append({type, i, 1, 1});
    const std::clock_t start = std::clock();
    const WatchedRanges watched(ranges);
    int asked = 0;
    for (int i = 0; i < requests; ++i)
        asked += coverageOf(request("D", i, 1), watched).askedCount;
    const std::clock_t cost = std::clock() - start;
    if (asked != requests)
        qFatal("not all are covered");
    return cost;
}

// Sixteen times as much if the ranges were walked for each request.
void PlanRequestTest::eightThousandRequestsCostFourTimesTwoThousand()
{
    const double times = growth(costOfCoverages, 2000, 8000);
    QVERIFY2(times < 8, qPrintable(QString::number(times)));
}

void PlanRequestTest::aBarShowsACoverage_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("bar");
    QTest::newRow("nothing") << "" << 10 << "";
    QTest::newRow("one character each") << "#..#" << 4 << "#..#";
    QTest::newRow("never wider than there are registers") << "#..#" << 10 << "#..#";
    QTest::newRow("two to a character") << "##.##..." << 4 << "#++.";
    QTest::newRow("three into two") << "##." << 2 << "#+";
    QTest::newRow("five into two") << "##..." << 2 << "#.";
}

void PlanRequestTest::aBarShowsACoverage()
{
    QFETCH(QString, asked);
    QFETCH(int, width);
    QTEST(coverageBar(bits(asked.toLatin1().constData()), width), "bar");
}

void PlanRequestTest::aRequestKnowsItsLastAddress()
{
    QCOMPARE(request("D", 100, 4).lastAddress(), 103);
    QCOMPARE(request("32CV", 200, 4).lastAddress(), 201);
    QCOMPARE(request("32CV", 200, 3).lastAddress(), 201);
    QCOMPARE(request("X", 8, 1).lastAddress(), 8);
}

void PlanRequestTest::modbusLimitsTheLength_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("tooLong");
    QTest::newRow("most registers") << "D" << 125 << false;
    QTest::newRow("one register more") << "D" << 126 << true;
    QTest::newRow("most counters") << "32CV" << 125 << false;
    QTest::newRow("one counter more") << "32CV" << 126 << true;
    QTest::newRow("most coils") << "M" << 2000 << false;
    QTest::newRow("one coil more") << "M" << 2001 << true;
}

void PlanRequestTest::modbusLimitsTheLength()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    QTEST(request(type.toLatin1().constData(), 200, count).isTooLong(), "tooLong");
}

QTEST_APPLESS_MAIN(PlanRequestTest)
#include "tst_plan_request.moc"
