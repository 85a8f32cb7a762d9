#include "kxpanel/tags/cell_markup.h"

#include <QtCore/QMimeData>
#include <QtTest/QTest>

#include <memory>

using namespace kxpanel;

class CellMarkupTest : public QObject
{
    Q_OBJECT

private slots:
    void cells_data();
    void cells();
    void rowsOfATable();
    void copiesAreTextAndMarkup();
};

// What a spreadsheet made of the same as text: 7, 2, 10, a date, a text where decimals have a
// comma.
void CellMarkupTest::cells_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<QString>("markup");
    const auto text = [](const char* name, const char* cell, const char* markup) {
        QTest::newRow(name)
            << QString::fromUtf8(cell) << false
            << QStringLiteral("<td sdnum=\"1033;0;@\">%1</td>").arg(QString::fromUtf8(markup));
    };
    text("leading zeros", "007", "007");
    text("a formula", "=1+1", "=1+1");
    text("decimals that are a name", "1.5", "1.5");
    text("a date", "1-2", "1-2");
    text("hexadecimal", "0x0010", "0x0010");
    text("nothing", "", "");
    text("umlauts, a quote and a semicolon", "Größe \"A\"; links", "Größe &quot;A&quot;; links");
    text("markup", "<b>&", "&lt;b&gt;&amp;");
    text("one blank", "a b", "a b");
    text("blanks beside each other", "a   b", "a &#32;&#32;b");
    text("blanks at both ends", " a ", "&#32;a&#32;");
    text("blanks alone", "  ", "&#32;&#32;");
    const auto number = [](const char* name, const char* cell, const char* format) {
        QTest::newRow(name) << QString::fromLatin1(cell) << true
                            << QStringLiteral("<td sdval=\"%1\" sdnum=\"1033;0;%2\">%1</td>")
                                   .arg(QString::fromLatin1(cell), QString::fromLatin1(format));
    };
    number("a number", "4", "0");
    number("decimals, one of them zero", "12.50", "0.00");
    number("below zero", "-0.1", "0.0");
    number("15 digits", "1234567890.12345", "0.00000");
    const auto textOfNumber = [](const char* name, const char* cell) {
        QTest::newRow(name)
            << QString::fromLatin1(cell) << true
            << QStringLiteral("<td sdnum=\"1033;0;@\">%1</td>").arg(QString::fromLatin1(cell));
    };
    textOfNumber("16 digits", "1234567890.123456");
    textOfNumber("a number with leading zeros", "0010");
    textOfNumber("a power", "1e+20");
    textOfNumber("no number", "nan");
    textOfNumber("never read", "");
}

void CellMarkupTest::cells()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    const QString table = cellsMarkup({{Cell{text, isNumber}}});
    QTEST(table.section(QStringLiteral("<tr>"), 1).section(QStringLiteral("</tr>"), 0, 0),
          "markup");
}

void CellMarkupTest::rowsOfATable()
{
    QCOMPARE(cellsMarkup({{{"Name", false}, {"Value", false}}, {{"Flow", false}, {"7", true}}}),
             QStringLiteral("<html><head><meta http-equiv=\"content-type\" "
                            "content=\"text/html; charset=utf-8\"></head><body><table>\n"
                            "<tr><td sdnum=\"1033;0;@\">Name</td>"
                            "<td sdnum=\"1033;0;@\">Value</td></tr>\n"
                            "<tr><td sdnum=\"1033;0;@\">Flow</td>"
                            "<td sdval=\"7\" sdnum=\"1033;0;0\">7</td></tr>\n"
                            "</table></body></html>\n"));
}

// The clipboard asks for the bytes of a format.
void CellMarkupTest::copiesAreTextAndMarkup()
{
    const QList<QList<Cell>> rows = {{{"Größe", false}, {"7", true}}};
    const std::unique_ptr<QMimeData> data(cellsData(rows));
    data->setData(QStringLiteral("application/x-more"), "1");
    QCOMPARE(data->formats(), (QStringList{"text/plain", "application/x-more", "text/html"}));
    QVERIFY(data->hasHtml());
    QCOMPARE(data->html(), cellsMarkup(rows));
    QCOMPARE(data->data(QStringLiteral("text/html")), cellsMarkup(rows).toUtf8());
    QCOMPARE(data->data(QStringLiteral("text/plain")), QByteArray("Größe\t7\n"));
    QCOMPARE(data->data(QStringLiteral("application/x-more")), QByteArray("1"));
}

QTEST_GUILESS_MAIN(CellMarkupTest)
#include "tst_cell_markup.moc"
