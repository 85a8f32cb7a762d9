#include "kxpanel/line/plan/plan_rows.h"

#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

kx::AddressRange rangeOf(const char* type, int address, int values, int station)
{
    return {findRegisterType(QString(type)), address, values, station};
}

} // namespace

class PlanRowsTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsAndRuns();
    void widths();
    void words();
    void nothing();
};

void PlanRowsTest::rowsAndRuns()
{
    // D102 and D103 lie in a gap that costs less than another request; D7000 does not.
    const QList<kx::AddressRange> watched = {rangeOf("D", 100, 2, 1), rangeOf("D", 104, 1, 1),
                                             rangeOf("D", 7000, 1, 1), rangeOf("M", 0, 3, 1),
                                             rangeOf("D", 5, 1, 2)};
    const QVector<PlanRow> rows =
        planRows(kx::chosenPlan(watched, kx::ReadRules()), kx::WatchedRanges(watched));
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0).station, 1);
    QCOMPARE(QString(rows.at(0).type->name), QString("M")); // in the catalogue's order
    QCOMPARE(QString(rows.at(1).type->name), QString("D"));
    QCOMPARE(rows.at(2).station, 2);
    QCOMPARE(rows.at(1).bars.size(), 2);
    const PlanBar& bar = rows.at(1).bars.at(0);
    QCOMPARE(bar.request.count, 5);
    QCOMPARE(bar.asked, 3);
    QCOMPARE(bar.bridged, 2);
    QCOMPARE(bar.runs.size(), 3);
    QCOMPARE(bar.runs.at(0).count, 2);
    QVERIFY(bar.runs.at(0).isAsked);
    QCOMPARE(bar.runs.at(1).first, 2);
    QCOMPARE(bar.runs.at(1).count, 2);
    QVERIFY(!bar.runs.at(1).isAsked);
    QCOMPARE(bar.runs.at(2).first, 4);
    QVERIFY(bar.runs.at(2).isAsked);
}

void PlanRowsTest::widths()
{
    kx::PlannedRequest request;
    request.type = findRegisterType(QString("D"));
    QCOMPARE(widthOf(request, 12), 12.0);
    request.type = findRegisterType(QString("M"));
    QCOMPARE(widthOf(request, 8), 0.5); // of 16 bits in a register
}

void PlanRowsTest::words()
{
    const QList<kx::AddressRange> watched = {rangeOf("D", 100, 2, 1), rangeOf("D", 104, 1, 1)};
    QVector<PlanRow> rows =
        planRows(kx::chosenPlan(watched, kx::ReadRules()), kx::WatchedRanges(watched));
    // 5 bytes and two for each register come back.
    QCOMPARE(
        barWords(rows.at(0).bars.at(0), 92421),
        QString("Station 1, D100 to D104: 5 registers, 3 asked for, 2 read along; 8 bytes out, "
                "15 back, 92.4 ms"));
    const QList<kx::AddressRange> output = {rangeOf("Y", 8, 1, 3)};
    rows = planRows(kx::chosenPlan(output, kx::ReadRules()), kx::WatchedRanges(output));
    QCOMPARE(barWords(rows.at(0).bars.at(0), 24000),
             QString("Station 3, Y10: 1 bits, 1 asked for, 0 read along; 8 bytes out, 6 back, "
                     "24.0 ms"));
}

void PlanRowsTest::nothing()
{
    QVERIFY(planRows(kx::Plan(), kx::WatchedRanges({})).isEmpty());
}

QTEST_GUILESS_MAIN(PlanRowsTest)

#include "tst_plan_rows.moc"
