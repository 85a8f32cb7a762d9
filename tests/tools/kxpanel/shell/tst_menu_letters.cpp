#include "kxpanel/shell/menu_letters.h"

#include <QtTest/QTest>

using namespace kxpanel;

class MenuLettersTest : public QObject
{
    Q_OBJECT

private slots:
    void letters_data();
    void letters();
};

void MenuLettersTest::letters_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("own");
    QTest::newRow("none is twice")
        << QStringList{"&Undo", "&Redo"} << QStringList{"&Undo", "&Redo"};
    QTest::newRow("the first keeps its own")
        << QStringList{"&Redo", "&Remove"} << QStringList{"&Redo", "R&emove"};
    QTest::newRow("upper and lower case are one")
        << QStringList{"Open &Tags", "Cu&t"} << QStringList{"Open &Tags", "&Cut"};
    QTest::newRow("without a letter it stays without")
        << QStringList{"&Find", "Find all"} << QStringList{"&Find", "Find all"};
    QTest::newRow("all of its letters are taken")
        << QStringList{"&A", "&B", "&AB"} << QStringList{"&A", "&B", "AB"};
    QTest::newRow("an ampersand is no mark")
        << QStringList{"R&&D", "&D", "&Delete"} << QStringList{"R&&D", "&D", "D&elete"};
    QTest::newRow("empty") << QStringList{"", "&A"} << QStringList{"", "&A"};
}

void MenuLettersTest::letters()
{
    QFETCH(QStringList, texts);
    QTEST(withOwnLetters(texts), "own");
}

QTEST_GUILESS_MAIN(MenuLettersTest)
#include "tst_menu_letters.moc"
