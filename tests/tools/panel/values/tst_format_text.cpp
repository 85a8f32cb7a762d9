// Formats as they are typed behind an address, and the addresses with them.

#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <QtTest/QTest>

using namespace kx;

class FormatTextTest : public QObject
{
    Q_OBJECT

private slots:
    void addressesWithFormatsAreRead_data();
    void addressesWithFormatsAreRead();
    void wrongOnesAreRefused_data();
    void wrongOnesAreRefused();
    void allIsTakenFromTheText();
    void valuesAreNamed();
    void ordersAreGivenToWhatNamesNone_data();
    void ordersAreGivenToWhatNamesNone();
};

namespace
{

/// What an address reads as, written out again, with the addresses covered; or its fault.
QString parsed(const QString& typed)
{
    AddressRange range;
    ValueFormat format;
    QString fault;
    if (!parseValueAddress(typed, &range, &format, &fault))
        return fault;
    return QString::fromLatin1("%1 covers %2")
        .arg(valueAddressText(range, format))
        .arg(range.values);
}

ValueFormat formatOf(const QString& typed)
{
    AddressRange range;
    ValueFormat format;
    QString fault;
    if (!parseValueAddress(typed, &range, &format, &fault))
        qFatal("%s", qPrintable(fault));
    return format;
}

} // namespace

void FormatTextTest::addressesWithFormatsAreRead_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("read");
    const auto row = [](const char* name, const char* typed, const char* read) {
        QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(read);
    };
    row("no format", "D100:4@2", "D100:4@2 covers 4");
    row("octal", "X17:8", "X17:8 covers 8");
    row("one value of two registers", "D100/float", "D100/float covers 2");
    row("the count counts values", "D100:4/float", "D100:4/float covers 8");
    row("values of four registers", "D100:2@3/double", "D100:2@3/double covers 8");
    row("texts", "D100:2/ascii:8", "D100:2/ascii:8 covers 16");
    row("32CV are one address", "32CV200:2/s32", "32CV200:2/s32 covers 2");
    row("the last registers", "D7998/u32", "D7998/u32 covers 2");
    row("beside a gap", "SD254/u32", "SD254/u32 covers 2");
    row("behind a gap", "SD256/u32", "SD256/u32 covers 2");
    row("words over a gap", "SD255:2/s16", "SD255:2/s16 covers 2");
    row("the lowest bit", "D100.0", "D100.0 covers 1");
    row("the highest bit of a station", "D100.15@2", "D100.15@2 covers 1");
    row("a bit", "M5/bit", "M5/bit covers 1");
    row("a scale", "D100/s16*0.1+5", "D100/s16*0.1+5 covers 1");
    row("a scale alone", "D100/*0.5", "D100/*0.5 covers 1");
    row("an offset alone", "D100/s16-40", "D100/s16-40 covers 1");
    row("a scale and an offset below 0", "D100/s16*-0.25-1.5", "D100/s16*-0.25-1.5 covers 1");
    row("an exponent", "D100/u16*1e-3+2", "D100/u16*0.001+2 covers 1");
    row("zeros at the ends", "D100/u16*00.10+5.0", "D100/u16*0.1+5 covers 1");
    row("the high word first", "D100/u32,high", "D100/u32,high covers 2");
    row("the low word first", "D100/u32,low", "D100/u32,low covers 2");
    row("swapped bytes", "D100/u16,swapped", "D100/u16,swapped covers 1");
    row("all options", "D100/s32*0.1,max=9,swapped,high,min=-9,decimals=2,unit=m, s/h@1",
        "D100/s32*0.1,high,swapped,decimals=2,min=-9,max=9,unit=m, s/h@1 covers 2");
    row("a unit alone", "D100/,unit=bar", "D100/,unit=bar covers 1");
}

void FormatTextTest::addressesWithFormatsAreRead()
{
    QFETCH(QString, typed);
    QTEST(parsed(typed), "read");
    // What is written out reads as the same.
    const QString text = parsed(typed).section(QLatin1String(" covers"), 0, 0);
    QCOMPARE(parsed(text), parsed(typed));
}

void FormatTextTest::wrongOnesAreRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const char* typed, const char* fault) {
        QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(fault);
    };
    const char* const kinds = "unknown format 'real'; the formats are u16, s16, hex, bin, bcd, "
                              "u32, s32, float, u64, s64, double, ascii:N, bit";
    row("an unknown kind", "D100/real", kinds);
    row("no kind", "D100/",
        "'' is not a format; write KIND[*SCALE][+OFFSET][,OPTION]..., such as s16*0.1+5 or "
        "u32,high");
    row("a station behind the format", "D100/float@2",
        "unknown format 'float@2'; the formats are u16, s16, hex, bin, bcd, u32, s32, float, u64, "
        "s64, double, ascii:N, bit");
    row("a length of a number", "D100/u32:2",
        "unknown format 'u32:2'; the formats are u16, s16, hex, bin, bcd, u32, s32, float, u64, "
        "s64, double, ascii:N, bit");
    row("a text without length", "D100/ascii",
        "ascii needs its registers, 1 to 123, such as ascii:8");
    row("a text of no length", "D100/ascii:0",
        "ascii needs its registers, 1 to 123, such as ascii:8");
    row("a text too long", "D100/ascii:124",
        "ascii needs its registers, 1 to 123, such as ascii:8");
    row("a word of bits", "X17/u16", "X holds bits, which have no format but bit");
    row("a float of a 32CV", "32CV200/float",
        "32CV holds 32-bit counters, whose formats are u32 and s32");
    row("a bit without its number", "D100/bit", "D holds words; name one bit as in D0.5");
    row("a bit of a bit", "M5.1", "M holds bits, which have no format but bit");
    row("a bit of a 32CV", "32CV200.1",
        "32CV holds 32-bit counters, whose formats are u32 and s32");
    row("a bit with a format", "D100.5/u16", "one bit of a word has no format");
    row("a bit with a count", "D100.5:2", "one bit of a word has no count");
    row("a bit too high", "D100.16", "'16' is not a bit of a word; they are 0 to 15");
    row("no bit", "D100.", "'' is not a bit of a word; they are 0 to 15");
    row("an order of one word", "D100/u16,high",
        "low and high are for numbers of several registers");
    row("an order of a text", "D100/ascii:4,high",
        "low and high are for numbers of several registers");
    row("an order of a 32CV", "32CV200/s32,high",
        "low and high are for numbers of several registers");
    row("swapped bytes of a 32CV", "32CV200/s32,swapped",
        "swapped is for words with a format of their own");
    row("two orders", "D100/u32,high,low",
        "'low' is no option of a format here; they are low or high, swapped, decimals=N, "
        "min=NUMBER, max=NUMBER and, last, unit=TEXT");
    row("a bound twice", "D100/s16,min=1,max=5,min=2", "min is given twice");
    row("an order twice", "D100/u32,swapped,swapped", "swapped is given twice");
    row("an unknown option", "D100/u32,fast",
        "'fast' is no option of a format here; they are low or high, swapped, decimals=N, "
        "min=NUMBER, max=NUMBER and, last, unit=TEXT");
    row("a scale of 0", "D100/u16*0", "scale 0: must not be 0, and have at most 9 digits");
    row("a long scale", "D100/u16*1.000000001",
        "scale 1.000000001: must not be 0, and have at most 9 digits");
    row("no scale", "D100/u16*",
        "'u16*' is not a format; write KIND[*SCALE][+OFFSET][,OPTION]..., such as s16*0.1+5 or "
        "u32,high");
    row("two points", "D100/u16*1.2.3", "scale 1.2.3: must be a decimal number such as 12.5");
    row("an offset that is none", "D100/u16*2+5x",
        "offset +5x: must be a decimal number such as 12.5");
    row("a scale of hexadecimal", "D100/hex*2",
        "hex values have no scale, offset, decimals, min or max");
    row("a minimum of a text", "D100/ascii:2,min=1",
        "text has no scale, offset, decimals, min or max");
    row("a scale of a bit", "M5/*2", "bits have no scale, offset, decimals, min or max");
    row("decimals too many", "D100/u16,decimals=31", "decimals 31: must be 0 to 30");
    row("decimals too few", "D100/*0.01,decimals=1",
        "with decimals 1 values 0.01 apart look alike; take 2 or more");
    row("decimals as coarse as the steps", "D100/*0.1+0.05,decimals=1",
        "with decimals 1 values 0.1 apart look alike; take 2 or more");
    row("a minimum above the maximum", "D100/u16,min=2,max=1.5", "min 2 is above max 1.5");
    row("more values than there are", "D7990:6/u32",
        "6 values run past the last address, 2 registers each; the addresses are D0 to D7999 "
        "(decimal)");
    row("a value over a gap", "SD255/float",
        "the value from SD255 to SD256 lies on both sides of a gap in the controller's registers");
    row("the second value over a gap", "SD253:2/float",
        "the value from SD255 to SD256 lies on both sides of a gap in the controller's registers");
    row("a wrong address", "D8000/float", "out of range; the addresses are D0 to D7999 (decimal)");
    row("a wrong station", "D100@0/float", "the station must be 1 to 247");
}

void FormatTextTest::wrongOnesAreRefused()
{
    QFETCH(QString, typed);
    QTEST(parsed(typed), "fault");
}

void FormatTextTest::allIsTakenFromTheText()
{
    const ValueFormat format =
        formatOf("D100/s32*0.1-5,high,swapped,decimals=2,min=-9,max=9.5,unit=m");
    QCOMPARE(format.kind, ValueKind::S32);
    QCOMPARE(format.bit, -1);
    QVERIFY(!format.isCounter);
    QCOMPARE(format.order, WordOrder::HighFirst);
    QVERIFY(format.swapsBytes);
    QCOMPARE(format.scale.text(), QString("0.1"));
    QCOMPARE(format.offset.text(), QString("-5"));
    QCOMPARE(format.decimals, 2);
    QCOMPARE(format.lowest->text(), QString("-9"));
    QCOMPARE(format.highest->text(), QString("9.5"));
    QCOMPARE(format.unit, QString("m"));
    QVERIFY(formatOf("32CV200/u32").isCounter);
}

void FormatTextTest::valuesAreNamed()
{
    AddressRange range;
    ValueFormat format;
    QString fault;
    QVERIFY(parseValueAddress("D100:3/u64", &range, &format, &fault));
    QCOMPARE(valuesIn(range, format), 3);
    QCOMPARE(valueName(range, format, 2), QString("D108"));
    QVERIFY(parseValueAddress("X7:2", &range, &format, &fault));
    QCOMPARE(valueName(range, format, 1), QString("X10"));
    QVERIFY(parseValueAddress("Z15.9@3", &range, &format, &fault));
    QCOMPARE(valueName(range, format, 0), QString("Z15.9"));
}

void FormatTextTest::ordersAreGivenToWhatNamesNone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("given");
    const auto row = [](const char* typed, const char* given) {
        QTest::newRow(typed) << QString::fromLatin1(typed) << QString::fromLatin1(given);
    };
    row("D100/u32", "u32,high,swapped");
    row("D100/u32,low", "u32,low");
    row("D100/u32,swapped", "u32,swapped");
    row("D100/u16", "u16");
    row("D100/ascii:2", "ascii:2");
    row("D100", "");
    row("32CV200/s32", "s32");
}

void FormatTextTest::ordersAreGivenToWhatNamesNone()
{
    QFETCH(QString, typed);
    ValueFormat format = formatOf(typed);
    takeOrder(formatOf("D0/u32,high,swapped"), &format);
    QTEST(formatText(format), "given");
}

QTEST_APPLESS_MAIN(FormatTextTest)
#include "tst_format_text.moc"
