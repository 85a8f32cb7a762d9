#include "kxhost/views/watch_screen.h"
#include "kxhost/views/watch_table.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

using namespace kx;

class WatchTableTest : public QObject
{
    Q_OBJECT

private slots:
    void rows();
    void rowsWithNames();
    void twoNamesOfAnAddressAreTwoRows();
    void longNamesAreCut();
    void whatIsCutIsMarked();
    void states_data();
    void states();
    void hexValues_data();
    void hexValues();
    void tooManyRowsAreCounted();
    void sizes_data();
    void sizes();
    void screen();
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
        {changed, entryOf("X17", 1), entryOf("32CV200", 4294967295), silent}, 0, 2300, 80, 20);
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
    QCOMPARE(tableRows({speed, silent, entryOf("X17", 1)}, 10, 2300, 100, 20),
             QStringList({
                 text("STATION  TYPE ADDRESS  NAME             VALUE       AGE  STATE     "
                      "         HEX  MODBUS"),
                 text("      1  D        100  Pump speed        1234     1.3 s  ok        "
                      "      0x04D2     100"),
                 text("     12  M       2048  Lamp %1                           never read"
                      "               12000"),
                 text("      1  X         17                       1     1.3 s  ok        "
                      "           1    1215"),
             }));
}

// The state is what a terminal of 80 columns must still show.
void WatchTableTest::twoNamesOfAnAddressAreTwoRows()
{
    const WatchList list({tagOf("D100", "Pump speed"), tagOf("D100", "Limit")});
    const QStringList lines = tableRows(list.entries(), list.longestName(), 0, 80, 20);
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines.at(1).startsWith("      1  D        100  Pump speed  "),
             qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).startsWith("      1  D        100  Limit       "),
             qPrintable(lines.at(2)));
}

void WatchTableTest::longNamesAreCut()
{
    WatchEntry entry = entryOf("D100", 1234);
    entry.name = QString::fromLatin1("Speed of the second circulation pump");
    entry.state = WatchState::NoAnswer;
    QCOMPARE(tableRows({entry}, 36, 2300, 80, 20).last(),
             QString::fromUtf8("      1  D        100  Speed of the second ci        1234     "
                               "1.3 s  no answer \u2026"));
}

// Half a number would be another number.
void WatchTableTest::whatIsCutIsMarked()
{
    const QVector<WatchEntry> entries = {entryOf("D100", 48)};
    const auto cutAt = [&](int width) { return tableRows(entries, 0, 1000, width, 20).last(); };
    const QString whole = QString::fromLatin1("      1  D        100     100          48");
    QCOMPARE(cutAt(41), whole.left(40) + QChar(0x2026)); // HEX stands behind it
    QCOMPARE(cutAt(40), whole.left(39) + QChar(0x2026));
    QCOMPARE(cutAt(45), whole + QLatin1String("   ") + QChar(0x2026));
    QCOMPARE(cutAt(1), QString(QChar(0x2026)));
    QCOMPARE(cutAt(0), QString());
    // Nothing but blanks is lost.
    QCOMPARE(tableRows({entryOf("D100", 48), entryOf("D101", 0)}, 0, 1000, 14, 2).last(),
             QString::fromLatin1("... and 2 more"));
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
    QCOMPARE(tableRows(entries, 0, 1000, 80, 4).size(), 4);
    QVERIFY(!tableRows(entries, 0, 1000, 80, 4).last().startsWith(QLatin1String("...")));
    const QStringList cut = tableRows(entries, 0, 1000, 80, 3);
    QCOMPARE(cut.size(), 3);
    QCOMPARE(cut.last(), QString::fromLatin1("... and 2 more"));
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
         {tableRows(screen.entries, 0, 0, width, height), screenRows(screen, width, height)}) {
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
    screen.prompt = QString::fromLatin1("D100=6");
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
