#include "kxpanel/line/limit/request_cost.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

/// Of ten registers: 33 characters, which take 34375 us at 9600 baud.
kx::PlannedRequest tenRegisters(int station)
{
    kx::PlannedRequest request;
    request.station = station;
    request.bytesSent = 8;
    request.bytesExpected = 25;
    return request;
}

} // namespace

class RequestCostTest : public QObject
{
    Q_OBJECT

private slots:
    void rules();
    void aSerialLine();
    void aNetwork();
    void aNetworkOfWhichNothingIsKnown();
    void whatIsAssumed();
};

void RequestCostTest::rules()
{
    AnswerPace pace;
    pace.turnarounds = {{3, 1200}};
    const kx::ReadRules rules = limitedRules(10, pace);
    QCOMPARE(rules.usual.maxWords, 10);
    QCOMPARE(rules.usual.maxBits, 160);
    QCOMPARE(rules.of(3).turnaround, qint64(1200));
    QCOMPARE(rules.of(3).maxWords, 10);
    QCOMPARE(rules.of(4).turnaround, qint64(5000)); // it has not answered
    pace.shortened[3].maxWords = 16;
    pace.shortened[5].maySpanGaps = false;
    QCOMPARE(limitedRules(125, pace).of(3).maxWords, 16);
    QCOMPARE(limitedRules(125, pace).of(3).turnaround, qint64(1200));
    QCOMPARE(limitedRules(10, pace).of(3).maxWords, 10);
    QVERIFY(!limitedRules(10, pace).of(5).maySpanGaps);
    QCOMPARE(limitedRules(10, pace).of(5).maxWords, 10);
    QVERIFY(limitedRules(10, pace).of(4).maySpanGaps);
    pace.shortened.clear();
    pace.replyTimeout = 200000; // of 150 ms, less 1.2 and 5: 142 and 139 characters
    QCOMPARE(limitedRules(125, pace).of(3).maxWords, 68);
    QCOMPARE(limitedRules(125, pace).of(4).maxWords, 67);
    QCOMPARE(limitedRules(10, pace).of(4).maxWords, 10);
    pace.isNetwork = true; // the line behind it may be quicker
    QCOMPARE(limitedRules(125, pace).of(4).maxWords, 125);
    QCOMPARE(bitsFor(125), 2000); // as many as Modbus allows
}

void RequestCostTest::aSerialLine()
{
    AnswerPace pace;
    pace.turnarounds = {{2, 800}, {3, 12000}};
    const RequestCost cost = requestCost(pace);
    QCOMPARE(cost(tenRegisters(3)).duration, qint64(34375 + 12000 + 3646)); // and a frame gap
    QCOMPARE(cost(tenRegisters(1)).duration, qint64(34375 + 5000 + 3646));
    QCOMPARE(cost(tenRegisters(2)).duration, qint64(34375 + 800 + 3646)); // before a frame gap
    QCOMPARE(cost(tenRegisters(1)).busy, qint64(34375));
}

void RequestCostTest::aNetwork()
{
    AnswerPace pace;
    pace.isNetwork = true;
    pace.turnarounds = {{1, 20500}, {2, 30500}}; // of which nothing is taken twice
    pace.perByte = 500;
    pace.each = {{1, 4000}, {2, 14000}};
    const RequestCost cost = requestCost(pace);
    QCOMPARE(cost(tenRegisters(1)).duration, qint64(4000 + 16500));
    QCOMPARE(cost(tenRegisters(2)).duration, qint64(14000 + 16500));
    QCOMPARE(cost(tenRegisters(3)).duration, qint64(14000 + 16500)); // as the slowest
    QCOMPARE(cost(tenRegisters(1)).requests, 1);
    QCOMPARE(cost(tenRegisters(1)).bytesSent, qint64(8));
    QCOMPARE(cost(tenRegisters(1)).bytesExpected, qint64(25));
    QCOMPARE(cost(tenRegisters(1)).busy, qint64(0)); // it is not known
}

void RequestCostTest::aNetworkOfWhichNothingIsKnown()
{
    AnswerPace pace;
    pace.isNetwork = true;
    QCOMPARE(requestCost(pace)(tenRegisters(1)).duration, qint64(34375 + 5000 + 3646));
}

void RequestCostTest::whatIsAssumed()
{
    const auto pollOf = [](int station) { return kx::PolledRange{{nullptr, 0, 1, station}, 0}; };
    AnswerPace pace;
    QCOMPARE(assumedWait({}, pace), qint64(0));
    QCOMPARE(assumedWait({pollOf(1)}, pace), qint64(5000));
    pace.line.baud = 2400; // a frame gap
    QCOMPARE(assumedWait({pollOf(1)}, pace), qint64(14584));
    pace.turnarounds = {{1, 800}};
    QCOMPARE(assumedWait({pollOf(1)}, pace), qint64(0));
    QCOMPARE(assumedWait({pollOf(1), pollOf(2)}, pace), qint64(14584));
    pace.isNetwork = true;
    QCOMPARE(assumedWait({pollOf(1), pollOf(2)}, pace), qint64(14584));
    pace.each = {{1, 800}};
    QCOMPARE(assumedWait({pollOf(1), pollOf(2)}, pace), qint64(0));
}

QTEST_GUILESS_MAIN(RequestCostTest)

#include "tst_request_cost.moc"
