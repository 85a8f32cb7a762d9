#include "kxpanel/tags/cell_table.h"

#include <QtTest/QTest>

using namespace kxpanel;

class CellTableTest : public QObject
{
    Q_OBJECT

private slots:
    void writesCells_data();
    void writesCells();
    void readsRows_data();
    void readsRows();
    void whatIsWrittenIsRead();
    void aQuoteThatIsNotClosed();
    void oneLine();
};

void CellTableTest::writesCells_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "Pump"
                           << "Pump";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("leading zeros") << "007"
                                   << "007";
    QTest::newRow("a formula") << "=1+1"
                               << "=1+1";
    QTest::newRow("a tab") << "a\tb"
                           << "\"a\tb\"";
    QTest::newRow("a line break") << "a\nb"
                                  << "\"a\nb\"";
    QTest::newRow("quotes") << "5\" pipe"
                            << "\"5\"\" pipe\"";
    QTest::newRow("a blank at the edge") << " a"
                                         << "\" a\"";
    QTest::newRow("what looks like a comment") << "#1"
                                               << "\"#1\"";
}

void CellTableTest::writesCells()
{
    QFETCH(QString, cell);
    QFETCH(QString, text);
    QCOMPARE(cellsText({cell, QStringLiteral("x")}), text + QStringLiteral("\tx\n"));
}

void CellTableTest::readsRows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rows"); // cells between |, rows between /
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("line ends of Windows") << "a\tb\r\nc\td\r\n"
                                          << "a|b/c|d";
    QTest::newRow("no last line end") << "a\nb"
                                      << "a/b";
    QTest::newRow("empty cells") << "\t\na\t\n"
                                 << "|/a|";
    QTest::newRow("an empty row") << "a\n\nb\n"
                                  << "a//b";
    QTest::newRow("quoted") << "\"a\tb\"\t\"c\"\"d\"\t\"e\nf\"\n"
                            << "a\tb|c\"d|e\nf";
    QTest::newRow("quoted, nothing in it") << "\"\"\tx\n"
                                           << "|x";
    QTest::newRow("quotes of the text's own") << "\"A\" pump\t5\" pipe\n"
                                              << "\"A\" pump|5\" pipe";
}

void CellTableTest::readsRows()
{
    QFETCH(QString, text);
    QList<QStringList> rows;
    QString fault;
    QVERIFY2(parseCells(text, &rows, &fault), qPrintable(fault));
    QStringList shown;
    for (const QStringList& cells : rows)
        shown << cells.join(QLatin1Char('|'));
    QTEST(shown.join(QLatin1Char('/')), "rows");
}

void CellTableTest::whatIsWrittenIsRead()
{
    const QStringList cells = {"", "a\tb", "\"", "\n", " x ", "#", "=1+1", "a,b;c", "\r\n"};
    QList<QStringList> rows;
    QString fault;
    QVERIFY(parseCells(cellsText(cells) + cellsText(cells), &rows, &fault));
    QCOMPARE(rows, (QList<QStringList>{cells, cells}));
}

void CellTableTest::aQuoteThatIsNotClosed()
{
    QList<QStringList> rows;
    QString fault;
    QVERIFY(!parseCells(QStringLiteral("a\n\"b\tc\n"), &rows, &fault));
    QCOMPARE(fault, QStringLiteral("row 2: a quote is not closed"));
}

void CellTableTest::oneLine()
{
    QCOMPARE(inOneLine(QStringLiteral("a\nb\r\nc  d")), QStringLiteral("a b  c  d"));
    QCOMPARE(inOneLine(QString(QChar(0))), QStringLiteral(" "));
    QCOMPARE(inOneLine(QStringLiteral("a\u0001b\u0085c")), QStringLiteral("a b c"));
}

QTEST_GUILESS_MAIN(CellTableTest)
#include "tst_cell_table.moc"
