#include "planning/monitor_flags.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

struct Range {
    int station;
    QString regType;
    int address;
    int count;
};

// Every cache record in order: "STATION TYPE ADDRESS flags FLAGS mask MASK".
QStringList cache()
{
    QStringList records;
    for (const _DATA_& area : driver.dataAreas)
        records << QString("%1 %2 %3 flags %4 mask %5")
                       .arg(QString::number(area.station), area.regType)
                       .arg(area.address)
                       .arg(area.monitorFlags)
                       .arg(area.bitMonitorMask);
    return records;
}

} // namespace

Q_DECLARE_METATYPE(Range)

class MonitorFlagsTest : public QObject
{
    Q_OBJECT

private slots:
    void setsOneBit_data();
    void setsOneBit();
    void marks_data();
    void marks();
    void everyTypeIsMarkedByItsClass_data();
    void everyTypeIsMarkedByItsClass();
    void markingTwiceChangesNothing();
    void marksAreAddedToThoseThere();
    void newRecordsAreZeroed();
};

void MonitorFlagsTest::setsOneBit_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("bit");
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("expected");
    QTest::newRow("sets the lowest") << 0 << 0 << 1 << 1;
    QTest::newRow("sets one among others") << 0x50 << 3 << 1 << 0x58;
    QTest::newRow("leaves a set one") << 0x58 << 3 << 1 << 0x58;
    QTest::newRow("any nonzero value sets") << 0 << 4 << -7 << 16;
    QTest::newRow("clears one among others") << 0x58 << 3 << 0 << 0x50;
    QTest::newRow("leaves a clear one") << 0x50 << 3 << 0 << 0x50;
    QTest::newRow("sets bit 30") << 0 << 30 << 1 << 1073741824;
    QTest::newRow("sets the sign bit") << 0 << 31 << 1 << -2147483647 - 1;
    QTest::newRow("clears the sign bit") << -1 << 31 << 0 << 2147483647;
    QTest::newRow("no bit 32") << 5 << 32 << 1 << 5;
    QTest::newRow("no bit 32 to clear") << 5 << 32 << 0 << 5;
    QTest::newRow("no bit below 0") << 5 << -1 << 1 << 5;
}

void MonitorFlagsTest::setsOneBit()
{
    QFETCH(int, value);
    QFETCH(int, bit);
    QFETCH(int, set);
    QFETCH(int, expected);
    QCOMPARE(_setBitValue(value, bit, set), expected);
}

void MonitorFlagsTest::marks_data()
{
    QTest::addColumn<Range>("range");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const Range& range, const QStringList& expected) {
        QTest::newRow(name) << range << expected;
    };
    row("bits in one group", {1, "X", 10, 3}, {"1 X 8 flags 0 mask 28"}); // bits 2, 3, 4
    row("bits in two groups", {1, "M", 6, 4},
        {"1 M 0 flags 0 mask 192", "1 M 8 flags 0 mask 3"}); // bits 6, 7 and 0, 1
    row("a whole group", {1, "Y", 16, 8}, {"1 Y 16 flags 0 mask 255"});
    row("one bit", {1, "S", 1023, 1}, {"1 S 1016 flags 0 mask 128"});
    row("bits in three groups", {2, "C", 15, 10},
        {"2 C 8 flags 0 mask 128", "2 C 16 flags 0 mask 255", "2 C 24 flags 0 mask 1"});
    row("words", {1, "D", 100, 3},
        {"1 D 100 flags 1 mask 0", "1 D 101 flags 1 mask 0", "1 D 102 flags 1 mask 0"});
    row("32CV, two registers each", {1, "32CV", 200, 4},
        {"1 32CV 200 flags 1 mask 0", "1 32CV 201 flags 1 mask 0"});
    row("32CV, half a value is none", {1, "32CV", 200, 3}, {"1 32CV 200 flags 1 mask 0"});
    row("32CV, less than a value", {1, "32CV", 200, 1}, {});
    row("32CV, none", {1, "32CV", 200, 0}, {});
    row("32CV, fewer than none", {1, "32CV", 200, -4}, {});
    row("station 0 counts", {0, "D", 1, 1}, {"0 D 1 flags 1 mask 0"});
    row("no bit", {1, "M", 6, 0}, {});
    row("fewer than no bit", {1, "M", 6, -1}, {});
    row("no word", {1, "D", 6, 0}, {});
    row("fewer than no word", {1, "D", 6, -1}, {});
    row("unknown type", {1, "Q", 6, 2}, {});
    row("lower case is unknown", {1, "d", 6, 2}, {});
    row("no type", {1, "", 6, 2}, {});
}

void MonitorFlagsTest::marks()
{
    QFETCH(Range, range);
    QFETCH(QStringList, expected);
    DriverFixture runtime;
    QCOMPARE(_setDataAreaMonitorFlag(range.station, range.regType, range.address, range.count), 0);
    QCOMPARE(cache(), expected);
    QCOMPARE(runtime.reports.size(), 0);
}

void MonitorFlagsTest::everyTypeIsMarkedByItsClass_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("expected");
    for (const char* type : {"X", "Y", "M", "S", "SM", "T", "C"})
        QTest::newRow(type) << type << QString("1 %1 200 flags 0 mask 6").arg(type);
    for (const char* type : {"D", "SD", "TV", "CV", "Z"})
        QTest::newRow(type) << type << QString("1 %1 201 flags 1 mask 0").arg(type);
    QTest::newRow("32CV") << "32CV"
                          << "1 32CV 201 flags 1 mask 0";
}

void MonitorFlagsTest::everyTypeIsMarkedByItsClass()
{
    QFETCH(QString, type);
    QFETCH(QString, expected);
    DriverFixture runtime;
    QCOMPARE(_setDataAreaMonitorFlag(1, type, 201, 2), 0);
    QCOMPARE(cache().at(0), expected);
}

void MonitorFlagsTest::markingTwiceChangesNothing()
{
    DriverFixture runtime;
    for (int i = 0; i < 2; ++i) {
        _setDataAreaMonitorFlag(1, "M", 5, 2);
        _setDataAreaMonitorFlag(1, "D", 5, 1);
        _setDataAreaMonitorFlag(1, "32CV", 200, 2);
        QCOMPARE(cache(), QStringList({"1 M 0 flags 0 mask 96", "1 D 5 flags 1 mask 0",
                                       "1 32CV 200 flags 1 mask 0"}));
    }
}

void MonitorFlagsTest::marksAreAddedToThoseThere()
{
    DriverFixture runtime;
    _setDataAreaMonitorFlag(1, "M", 0, 1);
    _setDataAreaMonitorFlag(1, "M", 7, 1);
    _setDataAreaMonitorFlag(1, "D", 5, 1);
    driver.dataAreas[1].monitorFlags = 6;
    driver.dataAreas[1].bitMonitorMask = 9;
    driver.dataAreas[1].value[0] = 77;
    _setDataAreaMonitorFlag(1, "D", 5, 1);
    QCOMPARE(cache(), QStringList({"1 M 0 flags 0 mask 129", "1 D 5 flags 7 mask 9"}));
    QCOMPARE(int(driver.dataAreas.at(1).value[0]), 77);
    // Same type and address elsewhere: a record of its own.
    _setDataAreaMonitorFlag(2, "D", 5, 1);
    _setDataAreaMonitorFlag(1, "SD", 5, 1);
    QCOMPARE(cache().mid(2), QStringList({"2 D 5 flags 1 mask 0", "1 SD 5 flags 1 mask 0"}));
}

void MonitorFlagsTest::newRecordsAreZeroed()
{
    DriverFixture runtime;
    _setDataAreaMonitorFlag(1, "32CV", 200, 2);
    const _DATA_& area = driver.dataAreas.at(0);
    QCOMPARE(int(area.commError), 0);
    QCOMPARE(int(area.writePending), 0);
    QCOMPARE(area.reserved, 0);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(int(area.value[i]), 0);
        QCOMPARE(int(area.writeValue[i]), 0);
    }
}

QTEST_APPLESS_MAIN(MonitorFlagsTest)
#include "tst_monitor_flags.moc"
