// The test runs in the locale of ASCII, in which a program is started: widths are the same.

#include "kxhost/terminal/cell_width.h"

#include <QtTest/QTest>

#include <clocale>

using namespace kx;

class CellWidthTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void widths_data();
    void widths();
    void beginnings_data();
    void beginnings();
    void theLocaleIsLeftAlone();
};

void CellWidthTest::initTestCase()
{
    QVERIFY(std::setlocale(LC_ALL, "C"));
}

void CellWidthTest::widths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("cells");
    const auto row = [](const char* name, const char* utf8, int cells) {
        QTest::newRow(name) << QString::fromUtf8(utf8) << cells;
    };
    row("nothing", "", 0);
    row("ASCII", "Pump", 4);
    row("umlauts", "Zähler", 6);
    row("an umlaut of two characters", "Za\u0308hler", 6);
    row("Chinese", "水泵", 4);
    row("half-width kana", "ﾎﾟﾝﾌﾟ", 5);
    row("Hangul", "펌프", 4);
    row("a character of two places", "\xF0\x9F\x94\xA7", 2); // a wrench
    row("a replaced control character", "\uFFFD", 1);
    row("an ellipsis", "…", 1);
}

void CellWidthTest::widths()
{
    QFETCH(QString, text);
    QTEST(cellsOf(text), "cells");
}

void CellWidthTest::beginnings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("cells");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("fitted");
    const auto row = [](const char* name, const char* text, int cells, const char* left,
                        const char* fitted) {
        QTest::newRow(name) << QString::fromUtf8(text) << cells << QString::fromUtf8(left)
                            << QString::fromUtf8(fitted);
    };
    row("with room left", "Pump", 6, "Pump", "Pump  ");
    row("exactly", "Pump", 4, "Pump", "Pump");
    row("too long", "Pump", 3, "Pum", "Pu…");
    row("one cell", "Pump", 1, "P", "…");
    row("no cell", "Pump", 0, "", "");
    row("less than none", "Pump", -1, "", "");
    row("wide, with room left", "水泵", 5, "水泵", "水泵 ");
    row("wide, too long", "水泵", 3, "水", "水…");
    row("half a wide character", "水泵一", 5, "水泵", "水泵…");
    row("half a wide character before the ellipsis", "水泵一", 4, "水泵", "水… ");
    row("a mark stays with its character", "Za\u0308hler", 2, "Za\u0308", "Z…");
}

void CellWidthTest::beginnings()
{
    QFETCH(QString, text);
    QFETCH(int, cells);
    QTEST(leftCells(text, cells), "left");
    QTEST(fittedCells(text, cells), "fitted");
}

void CellWidthTest::theLocaleIsLeftAlone()
{
    cellsOf(QString::fromUtf8("水"));
    QCOMPARE(QByteArray(std::setlocale(LC_CTYPE, nullptr)), QByteArray("C"));
    QCOMPARE(MB_CUR_MAX, size_t(1));
}

QTEST_APPLESS_MAIN(CellWidthTest)
#include "tst_cell_width.moc"
