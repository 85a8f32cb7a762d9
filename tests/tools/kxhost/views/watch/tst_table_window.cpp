#include "kxhost/views/watch/table_window.h"

#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

using namespace kx;

class TableWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void positions_data();
    void positions();
    void filters_data();
    void filters();
    void anotherFilterBeginsAtTheTop();
    void aShorterListIsFollowed();
    void aLargerTerminalShowsMore();

private:
    static QVector<WatchEntry> entries(int count);
    static QString addressesOf(const QVector<WatchEntry>& seen);
};

/// D0, D1, ...
QVector<WatchEntry> TableWindowTest::entries(int count)
{
    QVector<WatchEntry> list(count, entryOf("D0", 0));
    for (int i = 0; i < count; ++i)
        list[i].address = i;
    return list;
}

QString TableWindowTest::addressesOf(const QVector<WatchEntry>& seen)
{
    QStringList addresses;
    for (const WatchEntry& entry : seen)
        addresses << addressText(entry.type, entry.address);
    return addresses.join(QLatin1Char(' '));
}

void TableWindowTest::positions_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QByteArray>("keys"); // u, d: a row; U, D: a page; b, e: begin, end
    QTest::addColumn<QString>("seen");
    QTest::addColumn<QString>("position");
    const auto row = [](const char* name, int count, int lines, const char* keys, const char* seen,
                        const char* position) {
        QTest::newRow(name) << count << lines << QByteArray(keys) << QString::fromLatin1(seen)
                            << QString::fromLatin1(position);
    };
    row("all fit", 3, 3, "", "D0 D1 D2", "");
    row("all fit, scrolled", 3, 3, "dDe", "D0 D1 D2", "");
    row("one line too few", 3, 2, "", "D0", "rows 1 to 1 of 3");
    row("the beginning", 10, 5, "", "D0 D1 D2 D3", "rows 1 to 4 of 10");
    row("a row down", 10, 5, "d", "D1 D2 D3 D4", "rows 2 to 5 of 10");
    row("down and up", 10, 5, "ddu", "D1 D2 D3 D4", "rows 2 to 5 of 10");
    row("up at the beginning", 10, 5, "uU", "D0 D1 D2 D3", "rows 1 to 4 of 10");
    row("a page", 10, 5, "D", "D4 D5 D6 D7", "rows 5 to 8 of 10");
    row("a page too many", 10, 5, "DDD", "D6 D7 D8 D9", "rows 7 to 10 of 10");
    row("a page back from the end", 10, 5, "eU", "D2 D3 D4 D5", "rows 3 to 6 of 10");
    row("the end", 10, 5, "e", "D6 D7 D8 D9", "rows 7 to 10 of 10");
    row("the beginning again", 10, 5, "eb", "D0 D1 D2 D3", "rows 1 to 4 of 10");
    row("no entries", 0, 5, "de", "", "");
    row("no room", 3, 0, "d", "", "3 rows");
    row("less than none", 3, -2, "d", "", "3 rows");
}

void TableWindowTest::positions()
{
    QFETCH(int, count);
    QFETCH(int, lines);
    QFETCH(QByteArray, keys);
    const QVector<WatchEntry> list = entries(count);
    TableWindow window;
    window.setFilter(QString(), list);
    window.setRoom(lines);
    for (const char key : keys) {
        if (key == 'u' || key == 'd')
            window.scrollRows(key == 'd' ? 1 : -1);
        else if (key == 'U' || key == 'D')
            window.scrollPages(key == 'D' ? 1 : -1);
        else if (key == 'b')
            window.scrollToBegin();
        else
            window.scrollToEnd();
    }
    QTEST(addressesOf(window.visible(list)), "seen");
    QTEST(window.position(), "position");
}

void TableWindowTest::filters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("seen");
    QTest::addColumn<QString>("position");
    const auto row = [](const char* name, const char* filter, const char* seen,
                        const char* position) {
        QTest::newRow(name) << QString::fromUtf8(filter) << QString::fromLatin1(seen)
                            << QString::fromUtf8(position);
    };
    row("none", "", "D1 D10 X10 M11", "");
    row("an address", "D10", "D10", "rows 1 to 1 of 1 that contain D10");
    row("in small letters", "d1", "D1 D10", "rows 1 to 2 of 2 that contain d1");
    row("a number", "10", "D10 X10", "rows 1 to 2 of 2 that contain 10");
    row("a name", "pump", "D1 M11", "rows 1 to 2 of 2 that contain pump");
    row("letters of the user's own", "wärme", "X10", "rows 1 to 1 of 1 that contain wärme");
    row("nothing", "valve", "", "no row contains valve");
}

void TableWindowTest::filters()
{
    QFETCH(QString, filter);
    QVector<WatchEntry> list = {entryOf("D1", 0), entryOf("D10", 0), entryOf("X10", 0),
                                entryOf("M11", 0)};
    list[0].name = QString::fromLatin1("Pump speed");
    list[2].name = QString::fromUtf8("Wärmefühler");
    list[3].name = QString::fromLatin1("Second pump");
    TableWindow window;
    window.setRoom(10);
    window.setFilter(filter, list);
    QTEST(addressesOf(window.visible(list)), "seen");
    QTEST(window.position(), "position");
}

void TableWindowTest::anotherFilterBeginsAtTheTop()
{
    const QVector<WatchEntry> list = entries(30);
    TableWindow window;
    window.setRoom(4);
    window.setFilter(QString(), list);
    window.scrollToEnd();
    window.setFilter(QString::fromLatin1("d2"), list);
    QCOMPARE(addressesOf(window.visible(list)), QString::fromLatin1("D2 D20 D21"));
    window.scrollRows(1);
    window.setFilter(QString::fromLatin1("d2"), list); // the list may be another
    QCOMPARE(addressesOf(window.visible(list)), QString::fromLatin1("D20 D21 D22"));
}

void TableWindowTest::aShorterListIsFollowed()
{
    TableWindow window;
    window.setRoom(4);
    window.setFilter(QString(), entries(30));
    window.scrollToEnd();
    window.setFilter(QString(), entries(5));
    QCOMPARE(addressesOf(window.visible(entries(5))), QString::fromLatin1("D2 D3 D4"));
}

void TableWindowTest::aLargerTerminalShowsMore()
{
    const QVector<WatchEntry> list = entries(5);
    TableWindow window;
    window.setFilter(QString(), list);
    window.setRoom(3);
    window.scrollToEnd();
    window.setRoom(5);
    QCOMPARE(addressesOf(window.visible(list)), QString::fromLatin1("D0 D1 D2 D3 D4"));
    QCOMPARE(window.position(), QString());
}

QTEST_APPLESS_MAIN(TableWindowTest)
#include "tst_table_window.moc"
