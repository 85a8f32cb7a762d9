#include "kxpanel/tags/cell_numbers.h"

#include <QtCore/QLocale>
#include <QtTest/QTest>

using namespace kxpanel;

class CellNumbersTest : public QObject
{
    Q_OBJECT

private slots:
    void decimalPoints_data();
    void decimalPoints();
    void thousands_data();
    void thousands();
};

void CellNumbersTest::decimalPoints_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("german");
    QTest::newRow("a decimal comma") << "-12,5"
                                     << "-12.5";
    QTest::newRow("a decimal point") << "12.5"
                                     << "12.5";
    QTest::newRow("groups of thousands") << "1.234,5"
                                         << "1.234,5";
    QTest::newRow("two values") << "1,2,3"
                                << "1,2,3";
    QTest::newRow("no number") << "a,b"
                               << "a,b";
    QTest::newRow("nothing") << ""
                             << "";
}

void CellNumbersTest::decimalPoints()
{
    QFETCH(QString, cell);
    QTEST(withDecimalPoint(cell, QLocale(QLocale::German)), "german");
    QCOMPARE(withDecimalPoint(cell, QLocale(QLocale::English)), cell);
}

void CellNumbersTest::thousands_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<bool>("isUncertain");
    QTest::newRow("three digits") << "1.234" << true;
    QTest::newRow("as many in front, below zero") << "-123.456" << true;
    QTest::newRow("four in front") << "1234.567" << false;
    QTest::newRow("four digits") << "1.2345" << false;
    QTest::newRow("two digits") << "1.23" << false;
    QTest::newRow("below one") << "0.125" << false;
    QTest::newRow("a comma, too") << "1.234,5" << false; // refused whatever is meant
    QTest::newRow("no number") << "a.bcd" << false;
}

void CellNumbersTest::thousands()
{
    QFETCH(QString, cell);
    QTEST(!thousandsFault(cell, QLocale(QLocale::German)).isEmpty(), "isUncertain");
    QCOMPARE(thousandsFault(cell, QLocale(QLocale::English)), QString());
    QCOMPARE(thousandsFault(cell, QLocale::c()), QString());
}

QTEST_GUILESS_MAIN(CellNumbersTest)
#include "tst_cell_numbers.moc"
