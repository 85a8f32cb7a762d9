#include "kxpanel/line/plan/plan_rows.h"

#include "panel/polling/poll_plan.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

kx::AddressRange rangeOf(const char* type, int address, int values, int station)
{
    return {findRegisterType(QString(type)), address, values, station};
}

QVector<PlanRow> rowsOf(const QList<kx::AddressRange>& watched, int interval = 0)
{
    QList<kx::PolledRange> polled;
    for (const kx::AddressRange& range : watched)
        polled << kx::PolledRange{range, interval};
    return planRows(kx::plannedPolls(polled, kx::ReadRules(), nullptr), kx::WatchedRanges(watched));
}

} // namespace

class PlanRowsTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsAndRuns();
    void widths();
    void words();
    void intervalsShareRows();
    void allTypes();
    void nothing();
};

void PlanRowsTest::rowsAndRuns()
{
    // D102 and D103 lie in a gap that costs less than another request; D7000 does not.
    const QList<kx::AddressRange> watched = {rangeOf("D", 100, 2, 1), rangeOf("D", 104, 1, 1),
                                             rangeOf("D", 7000, 1, 1), rangeOf("M", 0, 3, 1),
                                             rangeOf("D", 5, 1, 2)};
    const QVector<PlanRow> rows = rowsOf(watched);
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
    QVector<PlanRow> rows = rowsOf(watched);
    // 5 bytes and two for each register come back.
    QCOMPARE(
        barWords(rows.at(0).bars.at(0), 92421),
        QString("Station 1, D100 to D104: 5 registers, 3 asked for, 2 read along; 8 bytes out, "
                "15 back, 92.4 ms"));
    const QList<kx::AddressRange> output = {rangeOf("Y", 8, 1, 3)};
    rows = rowsOf(output, 500);
    QCOMPARE(barWords(rows.at(0).bars.at(0), 24000),
             QString("Station 3, Y10: 1 bits, 1 asked for, 0 read along; 8 bytes out, 6 back, "
                     "24.0 ms, every 500 ms"));
}

void PlanRowsTest::intervalsShareRows()
{
    const kx::AddressRange fast = rangeOf("D", 500, 1, 1);
    const kx::AddressRange slow = rangeOf("D", 100, 1, 1);
    const QVector<PlanRow> rows =
        planRows(kx::plannedPolls({{fast, 0}, {slow, 10000}, {rangeOf("M", 3, 1, 1), 0}},
                                  kx::ReadRules(), nullptr),
                 kx::WatchedRanges({fast, slow}));
    QCOMPARE(rows.size(), 2);
    QCOMPARE(QString(rows.at(1).type->name), QString("D"));
    QCOMPARE(rows.at(1).bars.size(), 2);
    QCOMPARE(rows.at(1).bars.at(0).request.address, 100); // by address, whatever is read first
    QCOMPARE(rows.at(1).bars.at(0).interval, 10000);
    QCOMPARE(rows.at(1).bars.at(1).request.address, 500);
    QCOMPARE(rows.at(1).bars.at(1).interval, 0);
}

void PlanRowsTest::allTypes()
{
    QList<kx::AddressRange> watched;
    for (const RegisterType& type : REGISTER_TYPES)
        watched << kx::AddressRange{&type, QString(type.name) == "32CV" ? 200 : 10, 2, 1};
    const QVector<PlanRow> rows = rowsOf(watched);
    QStringList names;
    for (const PlanRow& row : rows) {
        names << QString(row.type->name);
        QCOMPARE(row.bars.size(), 1);
        const int units = QString(row.type->name) == "32CV" ? 4 : 2; // two registers each
        QCOMPARE(row.bars.at(0).asked, units);
        QCOMPARE(row.bars.at(0).bridged, 0);
    }
    QCOMPARE(names.size(), 13);
}

void PlanRowsTest::nothing()
{
    QVERIFY(planRows({}, kx::WatchedRanges({})).isEmpty());
}

QTEST_GUILESS_MAIN(PlanRowsTest)

#include "tst_plan_rows.moc"
