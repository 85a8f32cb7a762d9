#include "kxhost/views/watch/table_input.h"

#include <QtTest/QTest>

using namespace kx;

class TableInputTest : public QObject
{
    Q_OBJECT

private slots:
    void keys_data();
    void keys();
    void scrolling_data();
    void scrolling();
};

void TableInputTest::keys_data()
{
    QTest::addColumn<QByteArray>("typed"); // "\x1B" alone at the end is the Escape key
    QTest::addColumn<QString>("actions");  // "!" and an assignment, "/" and a filter
    QTest::addColumn<QString>("prompt");
    const auto row = [](const char* name, const QByteArray& typed, const char* actions,
                        const char* prompt) {
        QTest::newRow(name) << typed << QString::fromUtf8(actions) << QString::fromUtf8(prompt);
    };
    row("nothing", "", "", "write> _");
    row("an assignment begun", "D100=", "", "write> D100=_");
    row("an assignment", "D100=5\r", "!D100=5", "write> _");
    row("an empty line", "\r", "", "write> _");
    row("a stroke begins a filter", "/", "", "filter> _");
    row("a stroke in an assignment", "D1/", "", "write> D1/_");
    row("a filter follows what is typed", "/pu", "/p /pu", "filter> pu_");
    row("letters of the user's own", "/ä", "/ä", "filter> ä_");
    row("a stroke in a filter", "/a/", "/a /a/", "filter> a/_");
    row("a filter stays on Enter", "/pu\rD", "/p /pu", "write> D_");
    row("and is changed on the next stroke", "/pu\r/m", "/p /pu /pum", "filter> pum_");
    row("Escape ends it", "/p\x1B", "/p /", "write> _");
    row("Escape ends one that stayed", "/p\r\x1B", "/p /", "write> _");
    row("Escape clears an assignment first", "/p\rD1\x1B", "/p", "write> _");
    row("Backspace changes it", "/pu\x7F", "/p /pu /p", "filter> p_");
    row("Backspace in an empty one ends it", "/p\x7F\x7F", "/p / /", "write> _");
    row("Ctrl-U empties it", "/pu\x15", "/p /pu /", "filter> _");
}

void TableInputTest::keys()
{
    QFETCH(QByteArray, typed);
    KeyInput input;
    TableInput line;
    QStringList actions;
    QList<Key> keys = input.take(typed);
    keys += input.decide();
    for (const Key& key : keys) {
        const TableAction action = line.take(key);
        if (action.kind == TableAction::Write)
            actions << QLatin1Char('!') + action.text;
        else if (action.kind == TableAction::Filter)
            actions << QLatin1Char('/') + action.text;
        else
            QCOMPARE(int(action.kind), int(TableAction::None));
    }
    QTEST(actions.join(QLatin1Char(' ')), "actions");
    QTEST(line.promptRow(), "prompt");
}

void TableInputTest::scrolling_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("count");
    const auto row = [](const char* name, KeyKind key, TableAction::Kind action, int count) {
        QTest::newRow(name) << int(key) << int(action) << count;
    };
    row("up", KeyKind::Up, TableAction::Rows, -1);
    row("down", KeyKind::Down, TableAction::Rows, 1);
    row("a page up", KeyKind::PageUp, TableAction::Pages, -1);
    row("a page down", KeyKind::PageDown, TableAction::Pages, 1);
    row("home", KeyKind::Home, TableAction::Begin, 0);
    row("end", KeyKind::End, TableAction::End, 0);
}

void TableInputTest::scrolling()
{
    QFETCH(int, key);
    for (const QString& prompt : {QString::fromLatin1("D100="), QString::fromLatin1("/pump")}) {
        TableInput line;
        for (const QChar character : prompt)
            line.take({KeyKind::Text, QString(character)});
        const QString before = line.promptRow();
        const TableAction action = line.take({static_cast<KeyKind>(key), QString()});
        QTEST(int(action.kind), "action");
        QTEST(action.count, "count");
        QCOMPARE(line.promptRow(), before);
    }
}

QTEST_APPLESS_MAIN(TableInputTest)
#include "tst_table_input.moc"
