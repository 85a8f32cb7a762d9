#include "kxhost/views/entry_text.h"
#include "kxhost/views/watch/table_window.h"
#include "kxhost/views/watch/watch_screen.h"
#include "kxhost/views/watch/watch_table.h"
#include "support/growth.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

using namespace kx;

class WatchTableTest : public QObject
{
    Q_OBJECT

private slots:
    void rows();
    void rowsOfFormats();
    void aSharedAddressNamesItsFormat();
    void aLongTextLeavesRoomForOthers();
    void aLongNumberHidesNoOthers();
    void rowsWithNames();
    void twoNamesOfAnAddressAreTwoRows();
    void columnsGoBeforeNames_data();
    void columnsGoBeforeNames();
    void aGoodValueNeedsNoState();
    void widthsAreCells();
    void namesCannotControlTheTerminal();
    void whatIsCutIsMarked();
    void states_data();
    void states();
    void hexValues_data();
    void hexValues();
    void tooManyRowsAreCounted();
    void sizes_data();
    void sizes();
    void screen();
    void thePositionStandsBelowTheTable();
    void aRedrawCostsTheSameOfALongList();
    void screenWithoutKeys();
    void lowScreenKeepsThePrompt();
    void lineSettings();

private:
    static WatchScreen filledScreen();
};

void WatchTableTest::rows()
{
    WatchEntry silent = entryOf("M2048@12", 0);
    silent.state = WatchState::NeverRead;
    silent.isKnown = false;
    silent.readAt = 0;
    WatchEntry changed = entryOf("D100", 1234);
    changed.changedAt = 1500;
    const QStringList lines = tableRows(
        {changed, entryOf("X17", 1), entryOf("32CV200", 4294967295), silent}, 0, 2300, 80);
    // X17 is octal: number 15, coil 1215. M2048 is coil 12000, 32CV200 register 9700.
    QCOMPARE(lines,
             QStringList({
                 QString::fromLatin1(
                     "STATION  TYPE ADDRESS  MODBUS       VALUE         HEX       AGE  STATE"),
                 QString::fromLatin1(
                     "      1  D        100     100        1234      0x04D2     1.3 s  changed"),
                 QString::fromLatin1(
                     "      1  X         17    1215           1           1     1.3 s  ok"),
                 QString::fromLatin1(
                     "      1  32CV     200    9700  4294967295  0xFFFFFFFF     1.3 s  ok"),
                 QString::fromLatin1(
                     "     12  M       2048   12000                                    never read"),
             }));
}

// The columns VALUE and HEX are as wide as the longest that is seen.
void WatchTableTest::rowsOfFormats()
{
    const QStringList lines = tableRows(
        {entryOf("D100/float,unit=l/min", {0, 0x4148}), entryOf("D7999.15", QList<qint64>{0x8000}),
         entryOf("D110/ascii:5", {0x4142, 0x4344, 0x4546, 0x4748, 0x4900})},
        0, 2300, 120);
    QCOMPARE(lines, QStringList({
                        QString::fromLatin1("STATION  TYPE ADDRESS  MODBUS       VALUE"
                                            "                              HEX       AGE  STATE"),
                        QString::fromLatin1("      1  D        100     100  12.5 l/min"
                                            "                    0x0000 0x4148     1.3 s  ok"),
                        QString::fromLatin1("      1  D    7999.15    7999           1"
                                            "                           0x8000     1.3 s  ok"),
                        QString::fromLatin1("      1  D        110     110   ABCDEFGHI"
                                            "  0x4142 0x4344 0x4546 0x4748 ...     1.3 s  ok"),
                    }));
}

void WatchTableTest::aSharedAddressNamesItsFormat()
{
    WatchEntry number = entryOf("D100/float,unit=l/min", {0, 0x4148});
    WatchEntry bits = entryOf("D100/u32", {0, 0x4148});
    number.isShared = true;
    bits.isShared = true;
    QCOMPARE(
        tableRows({number, bits}, 0, 2300, 120),
        (QStringList{"STATION  TYPE   ADDRESS  MODBUS       VALUE            HEX       AGE  STATE",
                     "      1  D    100/float     100  12.5 l/min  0x0000 0x4148     1.3 s  ok",
                     "      1  D      100/u32     100  1095237632  0x0000 0x4148     1.3 s  ok"}));
}

void WatchTableTest::aLongTextLeavesRoomForOthers()
{
    QList<qint64> registers;
    for (int i = 0; i < 40; ++i)
        registers << 0x4142; // AB
    const QStringList lines =
        tableRows({entryOf("D100/ascii:40", registers), entryOf("D140", 1234)}, 0, 2300, 60);
    QCOMPARE(lines,
             QStringList({
                 QString::fromUtf8("STATION  TYPE ADDRESS                      VALUE  STATE"),
                 QString::fromUtf8("      1  D        100  ABABABABABABABABABABABAB…  ok"),
                 QString::fromUtf8("      1  D        140                       1234  ok"),
             }));
}

void WatchTableTest::aLongNumberHidesNoOthers()
{
    const QStringList lines =
        tableRows({entryOf("D100/u64", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}), entryOf("D140", 1234)}, 0,
                  2300, 30);
    QCOMPARE(lines, QStringList({
                        QString::fromUtf8("TYPE ADDRESS       VALUE"),
                        QString::fromUtf8("D        100           …"),
                        QString::fromUtf8("D        140        1234"),
                    }));
}

void WatchTableTest::rowsWithNames()
{
    WatchEntry speed = entryOf("D100", 1234);
    speed.name = QString::fromLatin1("Pump speed");
    WatchEntry silent = entryOf("M2048@12", 0);
    silent.name = QString::fromLatin1("Lamp %1");
    silent.state = WatchState::NeverRead;
    silent.isKnown = false;
    silent.readAt = 0;
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QCOMPARE(tableRows({speed, silent, entryOf("X17", 1)}, 10, 2300, 100),
             QStringList({
                 text("STATION  TYPE ADDRESS  NAME        MODBUS       VALUE         HEX"
                      "       AGE  STATE"),
                 text("      1  D        100  Pump speed     100        1234      0x04D2"
                      "     1.3 s  ok"),
                 text("     12  M       2048  Lamp %1      12000                        "
                      "            never read"),
                 text("      1  X         17                1215           1           1"
                      "     1.3 s  ok"),
             }));
}

void WatchTableTest::twoNamesOfAnAddressAreTwoRows()
{
    const WatchList list({tagOf("D100", "Pump speed"), tagOf("D100", "Limit")});
    const QStringList lines = tableRows(list.entries(), longestName(list.entries()), 0, 80);
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines.at(1).startsWith("      1  D        100  Pump speed  "),
             qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).startsWith("      1  D        100  Limit       "),
             qPrintable(lines.at(2)));
}

void WatchTableTest::columnsGoBeforeNames_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("row");
    const auto row = [](const char* name, int width, const char* heading, const char* shown) {
        QTest::newRow(name) << width << QString::fromUtf8(heading) << QString::fromUtf8(shown);
    };
    // With a name of 12 cells all take 89.
    row("all", 89,
        "STATION  TYPE ADDRESS  NAME          MODBUS       VALUE         HEX       AGE  STATE",
        "     12  32CV     200  Pump pressur    9700  4294967295  0xFFFFFFFF  1234.5 s  no answer");
    row("without MODBUS", 88,
        "STATION  TYPE ADDRESS  NAME               VALUE         HEX       AGE  STATE",
        "     12  32CV     200  Pump pressur  4294967295  0xFFFFFFFF  1234.5 s  no answer");
    row("still without MODBUS alone", 81,
        "STATION  TYPE ADDRESS  NAME               VALUE         HEX       AGE  STATE",
        "     12  32CV     200  Pump pressur  4294967295  0xFFFFFFFF  1234.5 s  no answer");
    row("without AGE", 80, "STATION  TYPE ADDRESS  NAME               VALUE         HEX  STATE",
        "     12  32CV     200  Pump pressur  4294967295  0xFFFFFFFF  no answer");
    row("without HEX", 70, "STATION  TYPE ADDRESS  NAME               VALUE  STATE",
        "     12  32CV     200  Pump pressur  4294967295  no answer");
    row("a name of 11", 58, "STATION  TYPE ADDRESS  NAME              VALUE  STATE",
        "     12  32CV     200  Pump press…  4294967295  no answer");
    row("the shortest name", 51, "STATION  TYPE ADDRESS  NAME       VALUE  STATE",
        "     12  32CV     200  Pum…  4294967295  no answer");
    row("without the name", 50, "STATION  TYPE ADDRESS       VALUE  STATE",
        "     12  32CV     200  4294967295  no answer");
    row("without the station", 44, "TYPE ADDRESS       VALUE  STATE",
        "32CV     200  4294967295  no answer");
    row("without the state, which stands for the value", 35, "TYPE ADDRESS       VALUE",
        "32CV     200   no answer");
    row("as narrow as a value can be", 24, "TYPE ADDRESS       VALUE", "32CV     200   no answer");
    row("too narrow for a value", 23, "TYPE ADDRESS", "32CV     200");
    row("too narrow for an address", 11, "TYPE ADDRE…", "32CV     2…");
}

void WatchTableTest::columnsGoBeforeNames()
{
    QFETCH(int, width);
    WatchEntry entry = entryOf("32CV200@12", 4294967295);
    entry.name = QString::fromLatin1("Pump pressur");
    entry.state = WatchState::NoAnswer;
    const QStringList lines = tableRows({entry}, 12, 1235500, width);
    QCOMPARE(lines.size(), 2);
    QTEST(lines.first(), "heading");
    QTEST(lines.last(), "row");
}

void WatchTableTest::aGoodValueNeedsNoState()
{
    QCOMPARE(tableRows({entryOf("32CV200", 4294967295)}, 0, 1000, 24).last(),
             QString::fromLatin1("32CV     200  4294967295"));
    WatchEntry unread = entryOf("D100", 0);
    unread.state = WatchState::NeverRead;
    unread.isKnown = false;
    QCOMPARE(tableRows({unread}, 0, 1000, 24).last(),
             QString::fromLatin1("D        100  never read"));
}

// Each of these names takes six cells.
void WatchTableTest::widthsAreCells()
{
    QVector<WatchEntry> entries;
    for (const char* const name : {"Pumpen", "水泵一", "Pu\u0308mpen"}) {
        entries << entryOf("D100", 5);
        entries.last().name = QString::fromUtf8(name);
    }
    QCOMPARE(longestName(entries), 6);
    const QStringList lines = tableRows(entries, 6, 1000, 90);
    const QString before = QString::fromLatin1("      1  D        100  ");
    const QString behind = QString::fromLatin1("     100           5      0x0005     0.0 s  ok");
    for (int i = 0; i < 3; ++i)
        QCOMPARE(lines.at(i + 1), before + entries.at(i).name + behind);
}

void WatchTableTest::namesCannotControlTheTerminal()
{
    WatchEntry entry = entryOf("D100", 5);
    entry.name = QString::fromUtf8("a\x1b[2J\u202e");
    QCOMPARE(longestName({entry}), 6); // as many as are shown
    const QString row = tableRows({entry}, 6, 1000, 90).last();
    QVERIFY(row.startsWith(QString::fromUtf8("      1  D        100  a\uFFFD[2J\uFFFD     100")));
}

// Half a number would be another number.
void WatchTableTest::whatIsCutIsMarked()
{
    const QString row = QString::fromLatin1("rows 1 to 48   ");
    QCOMPARE(cutRow(row, 12), QString::fromLatin1("rows 1 to 48")); // nothing but blanks is lost
    QCOMPARE(cutRow(row, 11), QString::fromUtf8("rows 1 to …"));
    QCOMPARE(cutRow(row, 1), QString::fromUtf8("…"));
    QCOMPARE(cutRow(row, 0), QString());
    QCOMPARE(cutRow(QString::fromUtf8("水泵一"), 5), QString::fromUtf8("水泵…"));
    QCOMPARE(cutRow(QString::fromUtf8("水泵一"), 4), QString::fromUtf8("水…"));
}

void WatchTableTest::states_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<qint64>("changedAt");
    QTest::addColumn<qint64>("now");
    QTest::addColumn<QString>("text");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    const int ok = int(WatchState::Ok);
    QTest::newRow("never changed") << ok << qint64(0) << qint64(500) << text("ok");
    QTest::newRow("just changed") << ok << qint64(500) << qint64(500) << text("changed");
    QTest::newRow("a second ago, nearly") << ok << qint64(500) << qint64(1499) << text("changed");
    QTest::newRow("a second ago") << ok << qint64(500) << qint64(1500) << text("ok");
    QTest::newRow("no answer") << int(WatchState::NoAnswer) << qint64(500) << qint64(500)
                               << text("no answer");
    QTest::newRow("refused") << int(WatchState::Refused) << qint64(0) << qint64(0)
                             << text("refused");
    QTest::newRow("never read") << int(WatchState::NeverRead) << qint64(0) << qint64(0)
                                << text("never read");
}

void WatchTableTest::states()
{
    QFETCH(int, state);
    QFETCH(qint64, changedAt);
    QFETCH(qint64, now);
    WatchEntry entry = entryOf("D0", 0);
    entry.state = static_cast<WatchState>(state);
    entry.changedAt = changedAt;
    QTEST(stateText(entry, now), "text");
}

void WatchTableTest::hexValues_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("hex");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QTest::newRow("bit") << QByteArray("M0") << qint64(1) << text("1");
    QTest::newRow("zero") << QByteArray("D0") << qint64(0) << text("0x0000");
    QTest::newRow("word") << QByteArray("D0") << qint64(65534) << text("0xFFFE");
    QTest::newRow("counter") << QByteArray("32CV200") << qint64(100000) << text("0x000186A0");
}

void WatchTableTest::hexValues()
{
    QFETCH(QByteArray, address);
    QFETCH(qint64, value);
    QTEST(hexValue(entryOf(address.constData(), value)), "hex");
}

void WatchTableTest::tooManyRowsAreCounted()
{
    const QVector<WatchEntry> entries = {entryOf("D0", 0), entryOf("D1", 0), entryOf("D2", 0)};
    QCOMPARE(firstRows(entries, 0, 1000, 80, 4).size(), 4);
    QVERIFY(!firstRows(entries, 0, 1000, 80, 4).last().startsWith(QLatin1String("...")));
    const QStringList cut = firstRows(entries, 0, 1000, 80, 3);
    QCOMPARE(cut.size(), 3);
    QCOMPARE(cut.last(), QString::fromLatin1("... and 2 more"));
    QCOMPARE(firstRows(entries, 0, 1000, 7, 3).last(), QString::fromUtf8("... an…"));
}

void WatchTableTest::sizes_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("usual") << 80 << 24;
    QTest::newRow("narrow") << 10 << 24;
    QTest::newRow("low") << 80 << 2;
    QTest::newRow("one line") << 80 << 1;
    QTest::newRow("no lines") << 80 << 0;
    QTest::newRow("less than none") << 80 << -3;
}

void WatchTableTest::sizes()
{
    QFETCH(int, width);
    QFETCH(int, height);
    WatchScreen screen = filledScreen();
    for (const QStringList& lines :
         {firstRows(screen.entries, 0, 0, width, height), screenRows(screen, width, height)}) {
        QVERIFY(lines.size() <= qMax(0, height));
        for (const QString& line : lines)
            QVERIFY(line.size() <= width);
    }
}

WatchScreen WatchTableTest::filledScreen()
{
    WatchScreen screen;
    screen.line = QString::fromLatin1("/dev/ttyUSB0  9600 8N1");
    screen.summary.statistics.requests = 30;
    screen.summary.statistics.accepted = 29;
    screen.summary.statistics.repeated = 1;
    screen.summary.statistics.bytesSent = 240;
    screen.summary.statistics.bytesReceived = 240;
    screen.summary.elapsed = 2000;
    screen.summary.cycles = 10;
    screen.entries = {entryOf("D100", 5)};
    screen.now = 1000;
    screen.message = QString::fromLatin1("D100=5: confirmed");
    screen.prompt = QString::fromLatin1("write> D100=6_");
    screen.takesKeys = true;
    return screen;
}

void WatchTableTest::screen()
{
    QCOMPARE(screenRows(filledScreen(), 80, 24),
             QStringList({
                 QString::fromLatin1("/dev/ttyUSB0  9600 8N1  15.0 requests/s, line load 25.0 %"),
                 QString::fromLatin1("30 requests in 10 cycles: 29 accepted, 1 repeated, 0 failed"),
                 QString::fromLatin1(
                     "STATION  TYPE ADDRESS  MODBUS       VALUE         HEX       AGE  STATE"),
                 QString::fromLatin1(
                     "      1  D        100     100           5      0x0005     0.0 s  ok"),
                 QString::fromLatin1("D100=5: confirmed"),
                 QString::fromLatin1("write> D100=6_"),
             }));
}

void WatchTableTest::thePositionStandsBelowTheTable()
{
    WatchScreen screen = filledScreen();
    screen.position = QString::fromLatin1("rows 3 to 3 of 300");
    const QStringList lines = screenRows(screen, 80, 24);
    QCOMPARE(lines.size(), 7);
    QCOMPARE(lines.at(4), QString::fromLatin1("rows 3 to 3 of 300"));
    // Two lines above, a heading, two lines below.
    QCOMPARE(linesForEntries(24, true), 19);
    QCOMPARE(linesForEntries(24, false), 21);
}

// What is drawn is all that costs: ten times a second, of 100,000 entries as of 100.
void WatchTableTest::aRedrawCostsTheSameOfALongList()
{
    const auto redraws = [](int size) {
        const QVector<WatchEntry> entries(size, entryOf("D100", 48));
        TableWindow window;
        window.setFilter(QString(), entries);
        window.setRoom(19);
        WatchScreen screen = filledScreen();
        const std::clock_t start = std::clock();
        for (int i = 0; i < 300; ++i) {
            window.scrollToEnd();
            screen.entries = window.visible(entries);
            screen.position = window.position();
            screenRows(screen, 80, 24);
        }
        return std::clock() - start;
    };
    QVERIFY(growth(redraws, 100, 100000) < 2);
}

void WatchTableTest::screenWithoutKeys()
{
    WatchScreen screen = filledScreen();
    screen.takesKeys = false;
    const QStringList lines = screenRows(screen, 80, 24);
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.last().endsWith(QLatin1String("ok")));
}

void WatchTableTest::lowScreenKeepsThePrompt()
{
    QCOMPARE(screenRows(filledScreen(), 80, 1),
             QStringList({QString::fromLatin1("write> D100=6_")}));
}

void WatchTableTest::lineSettings()
{
    QCOMPARE(lineSettingsText({19200, 7, 1, 2}, QLatin1Char('E')),
             QString::fromLatin1("19200 7E2"));
    QCOMPARE(lineSettingsText({0, 8, 0, 1}, QLatin1Char('N')), QString());
}

QTEST_GUILESS_MAIN(WatchTableTest)
#include "tst_watch_table.moc"
