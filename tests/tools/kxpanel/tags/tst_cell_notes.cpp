#include "kxpanel/tags/cell_notes.h"

#include <QtTest/QTest>

using kxpanel::CellNotes;

class CellNotesTest : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void cellsAreThoseAtTheirPlace();
    void aTableWithSpansSaysNothing();
    void textsThatSomebodyTypedAreNoneOfOurs_data();
    void textsThatSomebodyTypedAreNoneOfOurs();
    void textsWithAZeroAtTheEndAreNoneOfOurs();
    void manyCellsAreRead();
    void muchThatIsNoTableIsRead_data();
    void muchThatIsNoTableIsRead();
    void isAskedForOnce();
};

void CellNotesTest::numbers_data()
{
    QTest::addColumn<QString>("markup");
    QTest::addColumn<QString>("number"); // empty: not said
    const auto row = [](const char* name, const char* markup, const char* number) {
        QTest::newRow(name) << QString::fromUtf8(markup) << QString::fromLatin1(number);
    };
    row("nothing", "", "");
    row("thousands", R"(<tr><td sdval="16125" sdnum="1031;0;#.##0">16.125</td></tr>)", "16125");
    row("a decimal point by its format",
        R"(<tr><td align="right" sdval="16,125" sdnum="1031;0;[$-409]0.000">16.125</td></tr>)",
        "16.125");
    row("thousands with a rest that is not shown",
        R"(<tr><td sdval="16125,4" sdnum="1031;0;#.##0">16.125</td></tr>)", "");
    row("a number of a spreadsheet in English",
        R"(<tr><td sdval="16.125" sdnum="1033;0;0.000">16.125</td></tr>)", "");
    row("a text", R"(<tr><td sdnum="1031;0;@">16.125</td></tr>)", "16.125");
    row("a text in letters of a kind",
        "<TR>\n\t<TD HEIGHT=\"18\" SDNUM=\"1031;0;@\"><FONT "
        "FACE=\"A&gt;B\">\n16.125</FONT></TD>\n</TR>",
        "16.125");
    row("a text beside a format with a bracket",
        R"(<tr><td sdnum="1031;0;[>9]0;@">16.125</td></tr>)", "16.125");
    row("a header's cell", R"(<tr><th sdnum="1031;0;@">16.125</th></tr>)", "16.125");
    row("of a kind that is not said", R"(<tr><td align="left">16.125</td></tr>)", "");
    row("of a format that is no text's", R"(<tr><td sdnum="1031;">16.125</td></tr>)", "");
    row("another number", R"(<tr><td sdval="7" sdnum="1031;0;#.##0">16.125</td></tr>)", "");
    row("another text", R"(<tr><td sdnum="1031;0;@">16.126</td></tr>)", "");
    row("not in a row", R"(<td sdnum="1031;0;@">16.125</td>)", "");
    row("whose end is left out", R"(<tr><td sdnum="1031;0;@">16.125<tr><td>8)", "16.125");
    row("the last one", R"(<table><tr><td sdnum="1031;0;@">16.125</table></body>)", "16.125");
    row("with quotes that are not closed", R"(<tr><td sdnum="1031;0;@>16.125</td></tr>)", "");
}

void CellNotesTest::numbers()
{
    QFETCH(QString, markup);
    CellNotes notes([markup] { return markup; });
    QTEST(notes.numberIn(0, {" 16.125 "}, 0).value_or(QString()), "number");
    QVERIFY(!CellNotes().numberIn(0, {"16.125"}, 0));
}

void CellNotesTest::cellsAreThoseAtTheirPlace()
{
    CellNotes notes([] {
        return QStringLiteral("<table><tr><td>max</td><td>min</td></tr>"
                              "<tr><td sdval=\"-1234\">-1.234</td><td sdnum=\"1031;0;@\">-1.234"
                              "</td></tr><tr></tr></table>");
    });
    QCOMPARE(notes.numberIn(1, {"-1.234", "-1.234"}, 0), QString("-1234"));
    QCOMPARE(notes.numberIn(1, {"-1.234", "-1.234"}, 1), QString("-1.234"));
    QVERIFY(!notes.numberIn(1, {"-1.234"}, 0)); // the text has other cells
    QVERIFY(!notes.numberIn(2, {"-1.234", "-1.234"}, 0));
    QVERIFY(!notes.numberIn(3, {"-1.234", "-1.234"}, 0));
}

void CellNotesTest::aTableWithSpansSaysNothing()
{
    CellNotes notes([] {
        return QStringLiteral("<tr><td colspan=\"2\">Tank</td><td sdval=\"1234\">1.234</td></tr>");
    });
    QVERIFY(!notes.numberIn(0, {"Tank", "", "1.234"}, 2));
    QVERIFY(!notes.numberIn(0, {"Tank", "1.234", "1.234"}, 1));
}

void CellNotesTest::textsThatSomebodyTypedAreNoneOfOurs_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("a decimal comma") << "12,5";
    QTest::newRow("one behind thousands") << "1.250,5";
    QTest::newRow("one behind millions") << "-1.250.000,5";
    QTest::newRow("millions") << "1.250.000";
}

/// Somebody has typed into them, and may have typed thousands, too.
void CellNotesTest::textsThatSomebodyTypedAreNoneOfOurs()
{
    QFETCH(QString, typed);
    CellNotes notes([typed] {
        return QStringLiteral("<tr><td sdnum=\"1031;0;@\">1.234</td>"
                              "<td sdnum=\"1031;0;@\">%1</td>"
                              "<td sdval=\"1234\" sdnum=\"1031;0;#.##0\">1.234</td></tr>")
            .arg(typed);
    });
    QVERIFY(!notes.numberIn(0, {"1.234", typed, "1.234"}, 0));
    QCOMPARE(notes.numberIn(0, {"1.234", typed, "1.234"}, 2), QString("1234"));
}

/// No number of kxpanel's ends with one behind the point, so somebody typed it.
void CellNotesTest::textsWithAZeroAtTheEndAreNoneOfOurs()
{
    CellNotes notes([] {
        return QStringLiteral("<tr><td sdnum=\"1031;0;@\">20.000</td>"
                              "<td sdnum=\"1031;0;@\">20.001</td>"
                              "<td sdval=\"20000\" sdnum=\"1031;0;#.##0\">20.000</td></tr>");
    });
    const QStringList cells = {"20.000", "20.001", "20.000"};
    QVERIFY(!notes.numberIn(0, cells, 0));
    QCOMPARE(notes.numberIn(0, cells, 1), QString("20.001"));
    QCOMPARE(notes.numberIn(0, cells, 2), QString("20000"));
}

/// Without ends, of which each cell would look for its own to the end of all: for hours.
void CellNotesTest::manyCellsAreRead()
{
    const QString cells = QStringLiteral("<tr><td sdval=\"1234\">1.234").repeated(100000);
    CellNotes notes([cells] { return cells; });
    QCOMPARE(notes.numberIn(99999, {"1.234"}, 0), QString("1234"));
}

void CellNotesTest::muchThatIsNoTableIsRead_data()
{
    QTest::addColumn<QString>("piece");
    QTest::newRow("cells that are not closed") << "<td ";
    QTest::newRow("cells in quotes") << "<td \"<td\" ";
    QTest::newRow("cells with a quote") << "<td \"";
    QTest::newRow("elements that are not closed") << "<b ";
}

/// Each would look for its end to the end of all.
void CellNotesTest::muchThatIsNoTableIsRead()
{
    QFETCH(QString, piece);
    const QString markup =
        "<tr><td sdval=\"1234\">1.234</td></tr><tr><td>" + piece.repeated(1000000);
    CellNotes notes([markup] { return markup; });
    QCOMPARE(notes.numberIn(0, {"1.234"}, 0), QString("1234"));
}

/// Of many rows it is long, and comes from another program.
void CellNotesTest::isAskedForOnce()
{
    int asked = 0;
    CellNotes notes([&asked] {
        ++asked;
        return QString();
    });
    QCOMPARE(asked, 0);
    QVERIFY(!notes.numberIn(0, {"1.234"}, 0));
    QVERIFY(!notes.numberIn(1, {"1.234"}, 0));
    QCOMPARE(asked, 1);
}

QTEST_GUILESS_MAIN(CellNotesTest)
#include "tst_cell_notes.moc"
