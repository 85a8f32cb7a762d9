// Registers and the text of their values, each kind by literals, and back without loss.

#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

#include <random>

using namespace kx;

class ValueCodecTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreShownAndTypedBack_data();
    void valuesAreShownAndTypedBack();
    void otherTextGivesTheSame_data();
    void otherTextGivesTheSame();
    void wrongTextIsRefused_data();
    void wrongTextIsRefused();
    void numbersAndJsonAreGiven_data();
    void numbersAndJsonAreGiven();
    void everyWordComesBack_data();
    void everyWordComesBack();
    void longerValuesComeBack_data();
    void longerValuesComeBack();
    void aBitIsPutIntoItsWord();
    void fewerRegistersGiveNothing();
};

namespace
{

struct Typed {
    AddressRange range;
    ValueFormat format;
};

Typed typed(const QString& address)
{
    Typed typed;
    QString fault;
    if (!parseValueAddress(address, &typed.range, &typed.format, &fault))
        qFatal("%s: %s", qPrintable(address), qPrintable(fault));
    return typed;
}

QString hexOf(const QList<qint64>& raw)
{
    QStringList words;
    for (const qint64 value : raw)
        words << QString::number(value, 16);
    return words.join(QLatin1Char(' '));
}

QString roundTrip(const Typed& value, const QList<qint64>& raw)
{
    const QString text = valueText(value.format, raw);
    QList<qint64> back;
    QString fault;
    if (!parseValue(value.range.type, value.format, text, &back, &fault))
        return text + QLatin1String(": ") + fault;
    return back == raw ? QString() : text + QLatin1String(" gives ") + hexOf(back);
}

} // namespace

void ValueCodecTest::valuesAreShownAndTypedBack_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QList<qint64>>("raw");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* address, const QList<qint64>& raw, const char* text) {
        QTest::newRow(qPrintable(QString::fromUtf8("%1 %2").arg(address, text)))
            << QString::fromLatin1(address) << raw << QString::fromUtf8(text);
    };
    row("M0", {1}, "1");
    row("X17/bit", {0}, "0");
    row("D100", {65535}, "65535");
    row("32CV200", {4294967295}, "4294967295");
    row("32CV200/u32", {4294967295}, "4294967295");
    row("32CV200/s32", {4294967295}, "-1");
    row("32CV200/s32", {0x80000000}, "-2147483648");
    row("D100/u16", {0xFFFE}, "65534");
    row("D100/s16", {0xFFFE}, "-2");
    row("D100/s16", {0x8000}, "-32768");
    row("D100/hex", {0x04D2}, "0x04D2");
    row("D100/hex,swapped", {0x04D2}, "0xD204");
    row("D100/bin", {0x04D2}, "0b0000010011010010");
    row("D100/bcd", {0x0012}, "12");
    row("D100/bcd", {0x9999}, "9999");
    row("D100/bcd", {0x12A4}, "0x12A4");
    // 305419896 is 0x12345678.
    row("D100/u32", {0x5678, 0x1234}, "305419896");
    row("D100/u32,high", {0x1234, 0x5678}, "305419896");
    row("D100/u32,swapped", {0x7856, 0x3412}, "305419896");
    row("D100/u32,high,swapped", {0x3412, 0x7856}, "305419896");
    row("D100/s32", {0xFFFE, 0xFFFF}, "-2");
    // 72623859790382856 is 0x0102030405060708.
    row("D100/u64", {0x0708, 0x0506, 0x0304, 0x0102}, "72623859790382856");
    row("D100/u64,high", {0x0102, 0x0304, 0x0506, 0x0708}, "72623859790382856");
    row("D100/u64", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}, "18446744073709551615");
    row("D100/s64", {0x0000, 0x0000, 0x0000, 0x8000}, "-9223372036854775808");
    // 12.5 is 1.5625 * 2^3: sign 0, exponent 130, fraction 0x480000.
    row("D100/float", {0x0000, 0x4148}, "12.5");
    row("D100/float,high", {0x4148, 0x0000}, "12.5");
    row("D100/float", {0xCCCD, 0x3DCC}, "0.1");
    row("D100/float", {0x0000, 0x8000}, "-0");
    row("D100/float", {0x0001, 0x0000}, "1e-45");
    row("D100/float", {0xFFFF, 0x7F7F}, "3.4028235e+38");
    row("D100/float", {0x0000, 0x7F80}, "inf");
    row("D100/float", {0x0000, 0xFF80}, "-inf");
    row("D100/float", {0x0000, 0x7FC0}, "nan");
    row("D100/float", {0x0001, 0x7FC0}, "nan(0x7FC00001)");
    row("D100/float", {0x0000, 0xFFC0}, "nan(0xFFC00000)");
    row("D100/float", {0x0001, 0x7F80}, "nan(0x7F800001)"); // signalling
    row("D100/double", {0x0000, 0x0000, 0x0000, 0x4029}, "12.5");
    row("D100/double,high", {0x4029, 0x0000, 0x0000, 0x0000}, "12.5");
    row("D100/double", {0x0001, 0x0000, 0x0000, 0x7FF8}, "nan(0x7FF8000000000001)");
    row("D100/ascii:2", {0x4142, 0x4300}, "ABC");
    row("D100/ascii:2,swapped", {0x4241, 0x0043}, "ABC");
    row("D100/ascii:2", {0x0000, 0x0000}, "");
    row("D100/ascii:2", {0x4100, 0x4200}, "A\\x00B");
    row("D100/ascii:2", {0x225C, 0x0A09}, "\\\"\\\\\\n\\t");
    row("D100/ascii:2", {0xC3A4, 0xFF07}, "\xC3\xA4\\xFF\\x07");
    row("D100/ascii:2", {0x41C3, 0x0000}, "A\\xC3"); // cut in a character
    row("D100/ascii:2", {0x2C20, 0x2020}, ",   ");
    row("D100/ascii:2", {0xEFBB, 0xBF41},
        "\\xEF\\xBB\\xBF"
        "A"); // a byte-order mark
    row("D100/s16*0.1+5", {0x004B}, "12.5");
    row("D100/s16*0.1+5", {0x0046}, "12.0");
    row("D100/s16*0.1+5", {0xFFFF}, "4.9");
    row("D100/s16*-0.25", {0x0003}, "-0.75");
    row("D100/*0.5-100", {0x0001}, "-99.5");
    row("D100/*10", {0x0007}, "70");
    row("D100/*0.1,decimals=3", {0x007D}, "12.500");
    row("D100/*0.25,decimals=1", {0x0001}, "0.3");
    row("D100/bcd*0.1", {0x1234}, "123.4");
    row("D100/u64*0.001", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}, "18446744073709551.615");
    row("D100/float*0.1+5", {0x0000, 0x4148}, "6.25");
    row("D100/float*0.1+5", {0x0000, 0x8000}, "5(0x80000000)");
    row("D100/float*0.1+5", {0x0001, 0x7FC0}, "nan(0x7FC00001)");
    row("D100/float*0.3", {0xCCCD, 0x3DCC}, "0.03");
}

void ValueCodecTest::valuesAreShownAndTypedBack()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, raw);
    QFETCH(QString, text);
    const Typed value = typed(address);
    QCOMPARE(registersOf(value.format), static_cast<int>(raw.size()));
    QCOMPARE(valueText(value.format, raw), text);
    QCOMPARE(roundTrip(value, raw), QString());
}

void ValueCodecTest::otherTextGivesTheSame_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<qint64>>("raw");
    const auto row = [](const char* name, const char* address, const char* text,
                        const QList<qint64>& raw) {
        QTest::newRow(name) << QString::fromLatin1(address) << QString::fromLatin1(text) << raw;
    };
    row("a plain word below 0", "D100", "-5", {-5});
    row("a plain word in hexadecimal", "D100", "0x10", {16});
    row("a plain word in binary", "D100", "0b101", {5});
    row("hexadecimal in decimal", "D100/hex", "1234", {0x04D2});
    row("32CV below 0", "32CV200/s32", "-2", {4294967294});
    row("bcd as it stands", "D100/bcd", "0x10", {0x0010});
    row("a float with an exponent", "D100/float", "1.25E1", {0x0000, 0x4148});
    row("a float with a plus sign", "D100/float", "+12.5", {0x0000, 0x4148});
    row("a NaN in capitals", "D100/float", "NaN", {0x0000, 0x7FC0});
    // 16777217 is halfway between two floats; the even one is 16777216.
    row("a float halfway", "D100/float", "16777217", {0x0000, 0x4B80});
    row("a float just above halfway", "D100/float", "16777217.0000000001", {0x0001, 0x4B80});
    row("a third of a float", "D100/float*3", "1", {0xAAAB, 0x3EAA});
    row("half of the last digit less", "D100/s16*0.1+5", "12.46", {75});
    row("half of the last digit", "D100/s16*0.1+5", "12.55", {76});
    row("more zeros", "D100/s16*0.1+5", "12.500", {75});
    row("the minimum itself", "D100/*0.1,min=1,max=2", "1", {10});
    row("the maximum itself", "D100/*0.1,min=1,max=2", "2.0", {20});
    row("an exponent", "D100/*0.1", "1e2", {1000});
    row("a comma with a backslash", "D100/ascii:1", "\\,", {0x2C00});
    row("a lower-case escape", "D100/ascii:1", "\\x4a\\x4b", {0x4A4B});
}

void ValueCodecTest::otherTextGivesTheSame()
{
    QFETCH(QString, address);
    QFETCH(QString, text);
    QFETCH(QList<qint64>, raw);
    const Typed value = typed(address);
    QList<qint64> given;
    QString fault;
    QVERIFY2(parseValue(value.range.type, value.format, text, &given, &fault), qPrintable(fault));
    QCOMPARE(hexOf(given), hexOf(raw));
}

void ValueCodecTest::wrongTextIsRefused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* address, const char* text,
                        const char* expected) {
        QTest::newRow(name) << QString::fromLatin1(address) << QString::fromLatin1(text)
                            << QString::fromLatin1(expected);
    };
    row("nothing", "D100", "", "'' is not a decimal, 0x hexadecimal or 0b binary number");
    row("a fraction of a word", "D100", "1.5",
        "'1.5' is not a decimal, 0x hexadecimal or 0b binary number");
    row("a plain word too high", "D100", "65536", "65536 does not fit; D takes -32768 to 65535");
    row("a word without sign below 0", "D100/u16", "-1", "-1 does not fit; D takes 0 to 65535");
    row("a word with sign too high", "D100/s16", "32768",
        "32768 does not fit; D takes -32768 to 32767");
    row("five digits of bcd", "D100/bcd", "10000", "10000 does not fit; D takes 0 to 9999");
    row("a coil of 2", "M0", "2", "2 does not fit; M takes 0 to 1");
    row("64 bits and one more", "D100/u64", "18446744073709551616",
        "18446744073709551616 does not fit; D takes 0 to 18446744073709551615");
    row("hexadecimal of 65 bits", "D100/u64", "0x10000000000000000",
        "0x10000000000000000 does not fit; it is too long");
    row("a scaled word too high", "D100/s16*0.1+5", "3281.8",
        "3281.8 does not fit; D takes -3271.8 to 3281.7");
    row("a scale below 0", "D100/u16*-0.1", "0.1", "0.1 does not fit; D takes -6553.5 to 0.0");
    row("a scaled plain word below 0", "D100/*0.1", "-0.1",
        "-0.1 does not fit; D takes 0.0 to 6553.5");
    row("no number", "D100/*0.1", "much", "'much' is not a decimal number");
    row("hexadecimal where a scale is", "D100/*0.1", "0x10", "'0x10' is not a decimal number");
    row("between two steps", "D100/*0.5", "12.3",
        "12.3 is between two steps of 0.5; the nearest is 12.5");
    row("between two large steps", "D100/*10", "14",
        "14 is between two steps of 10; the nearest is 10");
    row("below min", "D100/*0.1,min=1,max=2", "0.9",
        "0.9 is refused; it must be at least 1 and at most 2");
    row("above max", "D100/u16,max=10", "11", "11 is refused; it must be at most 10");
    row("no number where a bound is", "D100/float,min=0", "nan",
        "nan is refused; it must be at least 0");
    row("beyond all floats", "D100/float", "4e38",
        "4e38 does not fit; it is beyond the highest number");
    row("below all floats", "D100/float", "1e-60",
        "1e-60 does not fit; it is nearer to 0 than any number");
    row("bits of another number", "D100/float", "nan(0x40000000)",
        "'nan(0x40000000)' is not a decimal number");
    row("hexadecimal where a float is", "D100/float", "0x10", "'0x10' is not a decimal number");
    row("too much text", "D100/ascii:1", "ABC",
        "'ABC' does not fit; it has 3 bytes, and the registers hold 2");
    row("an unknown escape", "D100/ascii:1", "\\q",
        "a backslash begins \\\\ \\\" \\n \\r \\t \\, or \\x and two hexadecimal digits");
    row("an escape without digits", "D100/ascii:1", "\\x4",
        "a backslash begins \\\\ \\\" \\n \\r \\t \\, or \\x and two hexadecimal digits");
}

void ValueCodecTest::wrongTextIsRefused()
{
    QFETCH(QString, address);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const Typed value = typed(address);
    QList<qint64> raw = {77};
    QString fault;
    QVERIFY2(!parseValue(value.range.type, value.format, text, &raw, &fault), "taken");
    QCOMPARE(fault, expected);
}

void ValueCodecTest::numbersAndJsonAreGiven_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QList<qint64>>("raw");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char* address, const QList<qint64>& raw, bool isNumber, double number,
                        const char* json) {
        QTest::newRow(qPrintable(QString::fromLatin1("%1 %2").arg(address, json)))
            << QString::fromLatin1(address) << raw << isNumber << number << QByteArray(json);
    };
    row("D100", {1234}, true, 1234, "1234");
    row("D100/hex", {0x04D2}, true, 1234, "\"0x04D2\"");
    row("D100/bin", {5}, true, 5, "\"0b0000000000000101\"");
    row("D100.5", {0x0020}, true, 1, "1");
    row("D100.5", {0xFFDF}, true, 0, "0");
    row("D100/s16*0.1+5", {75}, true, 12.5, "12.5");
    row("D100/float", {0xCCCD, 0x3DCC}, true, 0.1, "0.1");
    row("D100/float,decimals=0", {0xCCCD, 0x3DCC}, true, 0.1, "0.1");
    // JSON may lose the sign of a zero.
    row("D100/float", {0x0000, 0x8000}, true, 0, "\"-0\"");
    row("D100/float,decimals=1", {0x0000, 0x8000}, true, 0, "\"-0\"");
    row("D100/float*0.1+5", {0x0000, 0x8000}, true, 5, "\"5(0x80000000)\"");
    row("D100/double", {0x0000, 0x0000, 0x0000, 0x8000}, true, 0, "\"-0\"");
    row("D100/float", {0x0000, 0x0000}, true, 0, "0");
    row("D100/u64", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}, true, 18446744073709551615.0,
        "\"18446744073709551615\"");
    row("D100/bcd", {0x000A}, false, 0, "\"0x000A\"");
    row("D100/float", {0x0000, 0x7F80}, false, 0, "\"inf\"");
    // The highest double is 1.7976931348623157e308; ten times that is beyond all.
    row("D100/u16*1e999", {1}, false, 0, "\"1e999\"");
    row("D100/double*10", {0xFFFF, 0xFFFF, 0xFFFF, 0x7FEF}, false, 0, "\"17976931348623157e293\"");
    row("D100/ascii:1", {0x4122}, false, 0, "\"A\\\\\\\"\"");
}

void ValueCodecTest::numbersAndJsonAreGiven()
{
    QFETCH(QString, address);
    QFETCH(QList<qint64>, raw);
    QFETCH(bool, isNumber);
    QFETCH(double, number);
    QFETCH(QByteArray, json);
    const ValueFormat format = typed(address).format;
    double given = -1;
    QCOMPARE(valueNumber(format, raw, &given), isNumber);
    QCOMPARE(given, number);
    const QByteArray written =
        QJsonDocument(QJsonArray{valueJson(format, raw)}).toJson(QJsonDocument::Compact);
    QCOMPARE(written, '[' + json + ']');
}

void ValueCodecTest::everyWordComesBack_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address :
         {"D100", "D100/u16", "D100/s16", "D100/hex", "D100/bin", "D100/bcd", "D100/ascii:1",
          "D100/u16,swapped", "D100/bcd,swapped", "D100/ascii:1,swapped", "D100/s16*0.1+5",
          "D100/u16*0.125-0.0625", "D100/s16*-3,decimals=0", "D100/*0.25,decimals=1",
          "D100/bcd*0.1", "D100/u16*1e-9", "D100/u16,decimals=2"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

void ValueCodecTest::everyWordComesBack()
{
    QFETCH(QString, address);
    const Typed value = typed(address);
    for (qint64 word = 0; word <= 0xFFFF; ++word) {
        const QString lost = roundTrip(value, {word});
        QVERIFY2(lost.isEmpty(), qPrintable(QString::number(word, 16) + ": " + lost));
    }
}

void ValueCodecTest::longerValuesComeBack_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address :
         {"D100/u32", "D100/s32,high", "D100/s32,high,swapped", "D100/u64,swapped", "D100/s64",
          "D100/float", "D100/float,high,swapped", "D100/double", "D100/double,high",
          "D100/ascii:3", "D100/s32*0.01-273.15", "D100/u64*0.001+0.5", "D100/s64*-7",
          "D100/float*0.3-7", "D100/double*1.5e-5+100", "D100/double*1e-200+1", "32CV200",
          "32CV200/s32", "32CV200/s32*0.1"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

/// Random bits, and numbers next to those where a sign, an exponent or a digit turns.
void ValueCodecTest::longerValuesComeBack()
{
    QFETCH(QString, address);
    const Typed value = typed(address);
    std::mt19937_64 random(16);
    const quint64 corners[] = {0x0000, 0x0001, 0x7F7F, 0x7F80, 0x7FC0, 0x7FEF, 0x7FF0, 0x7FF8,
                               0x7FFF, 0x8000, 0x8001, 0xFF80, 0xFFC0, 0xFFF0, 0xFFFF};
    for (int i = 0; i < 5000; ++i) {
        QList<qint64> raw;
        for (int word = 0; word < registersOf(value.format); ++word)
            raw << static_cast<qint64>(random() % 3 == 0        ? corners[random() % 15]
                                       : value.format.isCounter ? random() & 0xFFFFFFFF
                                                                : random() & 0xFFFF);
        const QString lost = roundTrip(value, raw);
        QVERIFY2(lost.isEmpty(), qPrintable(hexOf(raw) + ": " + lost));
    }
}

void ValueCodecTest::aBitIsPutIntoItsWord()
{
    const Typed value = typed("D100.5");
    QCOMPARE(withBit(0x0000, value.format.bit, true), qint64(0x0020));
    QCOMPARE(withBit(0xFFFF, value.format.bit, false), qint64(0xFFDF));
    QList<qint64> raw;
    QString fault;
    QVERIFY(parseValue(value.range.type, value.format, "1", &raw, &fault));
    QCOMPARE(raw, QList<qint64>{1});
    QVERIFY(!parseValue(value.range.type, value.format, "2", &raw, &fault));
    QCOMPARE(fault, QString("2 does not fit; one bit of a word takes 0 to 1"));
}

void ValueCodecTest::fewerRegistersGiveNothing()
{
    const Typed value = typed("D100:2/float");
    const QList<qint64> raw = {0x0000, 0x4148, 0x0000};
    QCOMPARE(rawOfValue(raw, value.format, 0), (QList<qint64>{0x0000, 0x4148}));
    QCOMPARE(rawOfValue(raw, value.format, 1), QList<qint64>());
    QCOMPARE(valueText(value.format, {0x4148}), QString());
    double number = -1;
    QVERIFY(!valueNumber(value.format, {}, &number));
    QCOMPARE(number, 0.0);
}

QTEST_APPLESS_MAIN(ValueCodecTest)
#include "tst_value_codec.moc"
