// Decimal numbers: exact whatever their length.

#include "panel/values/decimal.h"

#include <QtTest/QTest>

#include <limits>

using namespace kx;

class DecimalTest : public QObject
{
    Q_OBJECT

private slots:
    void textIsRead_data();
    void textIsRead();
    void otherTextIsRefused_data();
    void otherTextIsRefused();
    void numbersAreCalculated_data();
    void numbersAreCalculated();
    void numbersAreDivided_data();
    void numbersAreDivided();
    void numbersAreRounded_data();
    void numbersAreRounded();
    void numbersAreConverted();
    void whatDoesNotFitIsNotConverted();
};

namespace
{

Decimal number(const QString& text)
{
    Decimal number;
    if (!Decimal::parse(text, &number))
        qFatal("%s", qPrintable(text));
    return number;
}

} // namespace

void DecimalTest::textIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("places");
    QTest::addColumn<int>("digits");
    QTest::addColumn<int>("magnitude");
    const auto row = [](const char* text, const char* shown, int places, int digits,
                        int magnitude) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(shown) << places
                            << digits << magnitude;
    };
    row("0", "0", 0, 0, 0);
    row("-0.00", "0", 0, 0, 0);
    row("12.50", "12.5", 1, 3, 1);
    row("-0012", "-12", 0, 2, 1);
    row("+1200", "1200", 0, 2, 3);
    row("0.002", "0.002", 3, 1, -3);
    row("1.25e2", "125", 0, 3, 2);
    row("1.25E-2", "0.0125", 4, 3, -2);
    row("1e30", "1000000000000000000000000000000", 0, 1, 30);
    row("1e31", "1e31", 0, 1, 31);
    row("-25e-40", "-25e-40", 40, 2, -39);
}

void DecimalTest::textIsRead()
{
    QFETCH(QString, text);
    const Decimal read = number(text);
    QTEST(read.text(), "shown");
    QTEST(read.places(), "places");
    QTEST(read.significantDigits(), "digits");
    QTEST(read.magnitude(), "magnitude");
    QCOMPARE(number(read.text()).compare(read), 0);
}

void DecimalTest::otherTextIsRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "-", "1.", ".5", "1,5", " 1", "1 ", "1e", "1e1000", "0x10",
                             "1e5.0", "--1", "inf", "\xD9\xA1"})
        QTest::newRow(text) << QString::fromUtf8(text);
    QTest::newRow("4001 digits") << QString(4001, QLatin1Char('1'));
    QTest::newRow("a zero behind") << QString("1") + QChar(0);
}

void DecimalTest::otherTextIsRefused()
{
    QFETCH(QString, text);
    Decimal read(7);
    QVERIFY(!Decimal::parse(text, &read));
    QCOMPARE(read.text(), QString("7"));
}

void DecimalTest::numbersAreCalculated_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("sum");
    QTest::addColumn<QString>("difference");
    QTest::addColumn<QString>("product");
    QTest::addColumn<int>("order");
    const auto row = [](const char* one, const char* other, const char* sum, const char* difference,
                        const char* product, int order) {
        QTest::newRow(qPrintable(QString::fromLatin1("%1 and %2").arg(one, other)))
            << QString::fromLatin1(one) << QString::fromLatin1(other) << QString::fromLatin1(sum)
            << QString::fromLatin1(difference) << QString::fromLatin1(product) << order;
    };
    row("2", "3", "5", "-1", "6", -1);
    row("0.1", "0.2", "0.3", "-0.1", "0.02", -1);
    row("-0.1", "0.2", "0.1", "-0.3", "-0.02", -1);
    row("5", "-5", "0", "10", "-25", 1);
    row("-5", "-5", "-10", "0", "25", 0);
    row("0", "-7.5", "-7.5", "7.5", "0", 1);
    row("0", "0", "0", "0", "0", 0);
    row("999.99", "0.01", "1000", "999.98", "9.9999", 1);
    row("1000", "0.001", "1000.001", "999.999", "1", 1);
    row("18446744073709551615", "18446744073709551615", "36893488147419103230", "0",
        "340282366920938463426481119284349108225", 0);
}

void DecimalTest::numbersAreCalculated()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QFETCH(int, order);
    QTEST(number(one).plus(number(other)).text(), "sum");
    QTEST(number(one).minus(number(other)).text(), "difference");
    QTEST(number(one).times(number(other)).text(), "product");
    QCOMPARE(number(one).compare(number(other)), order);
    QCOMPARE(number(other).compare(number(one)), -order);
}

void DecimalTest::numbersAreDivided_data()
{
    QTest::addColumn<QString>("dividend");
    QTest::addColumn<QString>("divisor");
    QTest::addColumn<int>("places");
    QTest::addColumn<QString>("quotient");
    QTest::addColumn<bool>("cut");
    const auto row = [](const char* dividend, const char* divisor, int places, const char* quotient,
                        bool cut) {
        QTest::newRow(
            qPrintable(QString::fromLatin1("%1 by %2 to %3").arg(dividend, divisor).arg(places)))
            << QString::fromLatin1(dividend) << QString::fromLatin1(divisor) << places
            << QString::fromLatin1(quotient) << cut;
    };
    row("6", "3", 0, "2", false);
    row("7", "3", 0, "2", true);
    row("-7", "3", 1, "-2.3", true);
    row("7", "-0.5", 0, "-14", false);
    row("1", "999999999", 12, "0.000000001", true);
    row("12345", "1", -2, "12300", true);
    row("12300", "1", -2, "12300", false);
    row("0.05", "1", 1, "0", true);
    row("0.05", "1", -5, "0", true);
    row("0", "3", 4, "0", false);
    row("1e30", "1e28", 0, "100", false);
    row("1e-30", "1e-28", 1, "0", true);
    row("18446744073709551615", "0.001", 0, "18446744073709551615000", false);
}

void DecimalTest::numbersAreDivided()
{
    QFETCH(QString, dividend);
    QFETCH(QString, divisor);
    QFETCH(int, places);
    bool cut = false;
    QTEST(number(dividend).dividedBy(number(divisor), places, &cut).text(), "quotient");
    QTEST(cut, "cut");
}

void DecimalTest::numbersAreRounded_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("places");
    QTest::addColumn<QString>("rounded");
    const auto row = [](const char* text, int places, const char* rounded) {
        QTest::newRow(qPrintable(QString::fromLatin1("%1 to %2").arg(text).arg(places)))
            << QString::fromLatin1(text) << places << QString::fromLatin1(rounded);
    };
    row("2.5", 0, "3");
    row("-2.5", 0, "-3");
    row("2.49", 0, "2");
    row("0.05", 1, "0.1");
    row("0.049", 1, "0.0");
    row("-0.04", 1, "0.0");
    row("9.99", 1, "10.0");
    row("12", 3, "12.000");
    row("0", 2, "0.00");
    row("1234", -2, "1200");
}

void DecimalTest::numbersAreRounded()
{
    QFETCH(QString, text);
    QFETCH(int, places);
    QTEST(number(text).rounded(places).text(places), "rounded");
}

void DecimalTest::numbersAreConverted()
{
    quint64 large = 0;
    QVERIFY(number("18446744073709551615").toUnsigned(&large));
    QCOMPARE(large, std::numeric_limits<quint64>::max());
    QVERIFY(number("0").toUnsigned(&large));
    QCOMPARE(large, quint64(0));
    qint64 small = 0;
    QVERIFY(number("-9223372036854775808").toSigned(&small));
    QCOMPARE(small, std::numeric_limits<qint64>::min());
    QCOMPARE(Decimal(small).text(), QString("-9223372036854775808"));
    QCOMPARE(Decimal::ofUnsigned(large).text(), QString("0"));
    QCOMPARE(number("0.1").toDouble(), 0.1);
    QCOMPARE(number("-1e400").toDouble(), -std::numeric_limits<double>::infinity());
    QCOMPARE(number("1e-400").toDouble(), 0.0);
    QCOMPARE(number("0.1").toFloat(), 0.1f);
    QCOMPARE(number("1e39").toFloat(), std::numeric_limits<float>::infinity());
    QCOMPARE(number("1e-45").toFloat(), std::numeric_limits<float>::denorm_min());
}

void DecimalTest::whatDoesNotFitIsNotConverted()
{
    quint64 large = 7;
    for (const char* text : {"18446744073709551616", "-1", "0.5", "1e25"})
        QVERIFY2(!number(text).toUnsigned(&large), text);
    QCOMPARE(large, quint64(7));
    qint64 small = 7;
    for (const char* text : {"9223372036854775808", "-9223372036854775809", "-0.5"})
        QVERIFY2(!number(text).toSigned(&small), text);
    QCOMPARE(small, qint64(7));
}

QTEST_APPLESS_MAIN(DecimalTest)
#include "tst_decimal.moc"
