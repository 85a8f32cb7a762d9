#include "planning/address_merge.h"
#include "planning/range_text.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

// Same inputs for both modes; `starts` are the recipe mode's block starts.
void addRow(const char* name, int maxWords, const char* entries, const char* forReading,
            const char* forRecipe, const QList<int>& starts)
{
    QTest::newRow(name) << maxWords << QString(entries) << QString(forReading) << QString(forRecipe)
                        << starts;
}

void addJoiningRows()
{
    addRow("touching, then bridged within the limit", 32,
           "1 D 0 x2, 1 D 2 x2, 1 D 10 x1, 1 D 40 x1", "1 D 0 x11, 1 D 40 x1",
           "1 D 0 x4, 1 D 10 x1, 1 D 40 x1", {0, 2, 3});
    addRow("touching", 32, "1 D 0 x10, 1 D 10 x10", "1 D 0 x20", "1 D 0 x20", {0});
    addRow("overlapping", 16, "1 D 0 x10, 1 D 5 x10", "1 D 0 x15", "1 D 0 x15", {0});
    addRow("a range inside a block leaves it as it was", 32, "1 D 0 x10, 1 D 3 x2, 1 D 10 x1",
           "1 D 0 x11", "1 D 0 x11", {0});
    addRow("equal ranges", 32, "1 D 7 x1, 1 D 7 x1", "1 D 7 x1", "1 D 7 x1", {0});
    addRow("a gap of one register", 32, "1 D 0 x1, 1 D 2 x1", "1 D 0 x3", "1 D 0 x1, 1 D 2 x1",
           {0, 1});
    addRow("touching, exactly as long as the limit", 32, "1 D 0 x31, 1 D 31 x1", "1 D 0 x32",
           "1 D 0 x32", {0});
    addRow("touching, one longer than the limit", 32, "1 D 0 x32, 1 D 32 x1",
           "1 D 0 x32, 1 D 32 x1", "1 D 0 x32, 1 D 32 x1", {0, 1});
    addRow("a full block splits in the middle", 4, "1 D 0 x2, 1 D 2 x2, 1 D 4 x2, 1 D 6 x2",
           "1 D 0 x4, 1 D 4 x4", "1 D 0 x4, 1 D 4 x4", {0, 2});
    addRow("bits count single bits", 32, "1 M 0 x32, 1 M 32 x1", "1 M 0 x32, 1 M 32 x1",
           "1 M 0 x32, 1 M 32 x1", {0, 1});
    addRow("unknown types join too", 32, "1 Q 0 x2, 1 Q 2 x2", "1 Q 0 x4", "1 Q 0 x4", {0});
    addRow("different unknown types do not", 32, "1 Q 0 x2, 1 R 2 x2", "1 Q 0 x2, 1 R 2 x2",
           "1 Q 0 x2, 1 R 2 x2", {0, 1});
    addRow("limit 0: nothing joins, the first twice", 0, "1 D 0 x1, 1 D 1 x1",
           "1 D 0 x1, 1 D 0 x1, 1 D 1 x1", "1 D 0 x1, 1 D 0 x1, 1 D 1 x1", {0, 0, 1});
}

void addBridgingRows()
{
    addRow("bridged, exactly as long as the limit", 32, "1 D 0 x1, 1 D 31 x1", "1 D 0 x32",
           "1 D 0 x1, 1 D 31 x1", {0, 1});
    addRow("bridged, one longer than the limit", 32, "1 D 0 x1, 1 D 32 x1", "1 D 0 x1, 1 D 32 x1",
           "1 D 0 x1, 1 D 32 x1", {0, 1});
    addRow("bits bridged", 8, "1 M 2040 x1, 1 M 2047 x1", "1 M 2040 x8", "1 M 2040 x1, 1 M 2047 x1",
           {0, 1});
    addRow("bits one past the limit", 7, "1 M 2040 x1, 1 M 2047 x1", "1 M 2040 x1, 1 M 2047 x1",
           "1 M 2040 x1, 1 M 2047 x1", {0, 1});
    // D100 of length -3 ends at 97: the gap to D104 is 7, to D105 it is 8.
    addRow("a gap as long as the limit", 7, "1 D 100 x-3, 1 D 104 x-3", "1 D 100 x1",
           "1 D 100 x-3, 1 D 100 x-3, 1 D 104 x-3", {0, 0, 1});
    addRow("a gap longer than the limit, though the span is not", 7, "1 D 100 x-3, 1 D 105 x-3",
           "1 D 100 x-3, 1 D 105 x-3", "1 D 100 x-3, 1 D 100 x-3, 1 D 105 x-3", {0, 0, 1});
}

void addApartRows()
{
    addRow("stations", 32, "1 D 0 x1, 2 D 1 x1", "1 D 0 x1, 2 D 1 x1", "1 D 0 x1, 2 D 1 x1",
           {0, 1});
    addRow("types", 32, "1 TV 0 x1, 1 CV 1 x1", "1 TV 0 x1, 1 CV 1 x1", "1 TV 0 x1, 1 CV 1 x1",
           {0, 1});
    addRow("both ranges of SD", 500, "1 SD 255 x1, 1 SD 256 x1", "1 SD 255 x1, 1 SD 256 x1",
           "1 SD 255 x1, 1 SD 256 x1", {0, 1});
    addRow("both ranges of SD across a gap", 500, "1 SD 250 x1, 1 SD 260 x1",
           "1 SD 250 x1, 1 SD 260 x1", "1 SD 250 x1, 1 SD 260 x1", {0, 1});
    addRow("SD that begin below the split and run past it", 32, "1 SD 250 x4, 1 SD 254 x4",
           "1 SD 250 x8", "1 SD 250 x8", {0});
    addRow("SD that overlap across the split", 32, "1 SD 250 x10, 1 SD 256 x2",
           "1 SD 250 x10, 1 SD 256 x2", "1 SD 250 x10, 1 SD 256 x2", {0, 1});
    addRow("SD from the split on", 32, "1 SD 256 x1, 1 SD 257 x1", "1 SD 256 x2", "1 SD 256 x2",
           {0});
    addRow("both ranges of M", 500, "1 M 2047 x1, 1 M 2048 x1", "1 M 2047 x1, 1 M 2048 x1",
           "1 M 2047 x1, 1 M 2048 x1", {0, 1});
    addRow("both ranges of M across a gap", 500, "1 M 2040 x1, 1 M 2050 x1",
           "1 M 2040 x1, 1 M 2050 x1", "1 M 2040 x1, 1 M 2050 x1", {0, 1});
    addRow("M from the split on", 32, "1 M 2048 x1, 1 M 2049 x1", "1 M 2048 x2", "1 M 2048 x2",
           {0});
    addRow("both ranges of SM are joined", 32, "1 SM 255 x1, 1 SM 256 x1", "1 SM 255 x2",
           "1 SM 255 x2", {0});
}

void addDoubleWordRows()
{
    addRow("32CV: two registers per address", 32, "1 32CV 200 x2, 1 32CV 201 x2", "1 32CV 200 x4",
           "1 32CV 200 x4", {0});
    addRow("32CV: the span counts registers", 4, "1 32CV 200 x2, 1 32CV 202 x2",
           "1 32CV 200 x2, 1 32CV 202 x2", "1 32CV 200 x2, 1 32CV 202 x2", {0, 1});
    addRow("32CV: bridged in registers", 8, "1 32CV 200 x2, 1 32CV 203 x2", "1 32CV 200 x8",
           "1 32CV 200 x2, 1 32CV 203 x2", {0, 1});
    addRow("32CV: bridged, one longer than the limit", 7, "1 32CV 200 x2, 1 32CV 203 x2",
           "1 32CV 200 x2, 1 32CV 203 x2", "1 32CV 200 x2, 1 32CV 203 x2", {0, 1});
}

void addSingleAndLongRows()
{
    addRow("one range", 32, "1 D 5 x3", "1 D 5 x3", "1 D 5 x3, 1 D 5 x3", {0});
    addRow("one range longer than the limit", 32, "1 D 0 x100",
           "1 D 0 x100, 1 D 0 x100, 1 D 0 x100", "1 D 0 x100, 1 D 0 x100, 1 D 0 x100", {0, 0});
    addRow("the first of two longer than the limit", 32, "1 D 0 x100, 1 D 200 x1",
           "1 D 0 x100, 1 D 0 x100, 1 D 200 x1", "1 D 0 x100, 1 D 0 x100, 1 D 200 x1", {0, 0, 1});
    addRow("the last of two longer than the limit", 32, "1 D 0 x1, 1 D 1 x100",
           "1 D 0 x1, 1 D 1 x100", "1 D 0 x1, 1 D 1 x100", {0, 1});
    addRow("a longer one apart in the middle", 32, "1 D 0 x1, 1 D 10 x100, 1 D 200 x1",
           "1 D 0 x1, 1 D 10 x100, 1 D 200 x1", "1 D 0 x1, 1 D 10 x100, 1 D 200 x1", {0, 1, 2});
    addRow("count 0", 32, "1 D 5 x0", "1 D 5 x0", "1 D 5 x0, 1 D 5 x0", {0});
    addRow("one range of negative length", 32, "1 D 5 x-1", "1 D 5 x-1",
           "1 D 5 x-1, 1 D 5 x-1, 1 D 5 x-1", {0, 0});
}

} // namespace

class AddressMergeTest : public QObject
{
    Q_OBJECT

private slots:
    void merges_data();
    void merges();
};

void AddressMergeTest::merges_data()
{
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("forReading");
    QTest::addColumn<QString>("forRecipe");
    QTest::addColumn<QList<int>>("starts");
    addJoiningRows();
    addBridgingRows();
    addApartRows();
    addDoubleWordRows();
    addSingleAndLongRows();
}

void AddressMergeTest::merges()
{
    QFETCH(int, maxWords);
    QFETCH(QString, entries);
    QFETCH(QString, forReading);
    QFETCH(QString, forRecipe);
    QFETCH(QList<int>, starts);
    DriverFixture runtime;
    driver.maxWords = maxWords;
    QList<KEY_ADDRESS> read = ranges(entries);
    addrMerge(read, 1);
    QCOMPARE(textOf(read), forReading);
    QCOMPARE(driver.intList, QList<int>());
    QList<KEY_ADDRESS> recipe = ranges(entries);
    addrMerge(recipe, 2);
    QCOMPARE(textOf(recipe), forRecipe);
    QCOMPARE(driver.intList, starts);
}

QTEST_APPLESS_MAIN(AddressMergeTest)
#include "tst_address_merge.moc"
