// Rows of recipe files with formats, and with the names of tags.

#include "panel/recipe/recipe_layout.h"
#include "panel/recipe/recipe_row.h"
#include "panel/values/value_address.h"

#include <QtTest/QTest>

#include <random>

using namespace kx;

namespace
{

RecipeDefaults withTags()
{
    RecipeDefaults defaults;
    defaults.station = 5;
    QString error;
    const QByteArray tags = "name,station,address,count,format,scale,offset,unit,min,max\n"
                            "Pressure,2,D100,,s16,0.1,5,bar,0,16\nLevel,,D110,,float,,,,,\n"
                            "Four,,D120,4,u16,,,,,\nAlarm,,D130.5,,,,,,,\nLamp,,Y17,,,,,,,\n";
    if (!parseTags(tags, "tags.csv", &defaults.tags, &error))
        qFatal("%s", qPrintable(error));
    return defaults;
}

} // namespace

class RecipeRowTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesHaveFormats_data();
    void valuesHaveFormats();
    void namesOfTagsStandForAddresses();
    void theDefaultOrderIsForFormats();
    void wrongRowsAreRefused_data();
    void wrongRowsAreRefused();
    void boundsKeepDownloadsAlone();
    void everyFormatComesBack_data();
    void everyFormatComesBack();
};

void RecipeRowTest::valuesHaveFormats_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QByteArray>("row");        ///< in front of the value
    QTest::addColumn<QByteArray>("typed");      ///< as it stands in the file
    QTest::addColumn<QList<qint64>>("value");   ///< what it stands for
    QTest::addColumn<QList<qint64>>("changed"); ///< what an upload finds
    QTest::addColumn<QByteArray>("written");
    const auto row = [](const char* format, const char* typed, const QList<qint64>& value,
                        const QList<qint64>& changed, const char* written) {
        QTest::newRow((QByteArray(format) + ' ' + typed).constData())
            << QByteArray("register,address,format,order,scale,offset,unit,"
                          "decimals,min,max,value")
            << QByteArray("D,100,") + format + ',' << QByteArray(typed) << value << changed
            << QByteArray(written);
    };
    row("u16,,,,,,,", "65535", {65535}, {0}, "0");
    row("s16,,,,,,,", "-2", {0xFFFE}, {0x8000}, "-32768");
    row("hex,,,,,,,", "0x4d2", {0x04D2}, {0xBEEF}, "0xBEEF");
    row("bin,,,,,,,", "0b101", {5}, {0x8001}, "0b1000000000000001");
    row("bcd,,,,,,,", "12", {0x0012}, {0x12A4}, "0x12A4");
    row("u32,,,,,,,", "305419896", {0x5678, 0x1234}, {0, 1}, "65536");
    row("u32,high,,,,,,", "305419896", {0x1234, 0x5678}, {0, 1}, "1");
    row("u32,swapped,,,,,,", "305419896", {0x7856, 0x3412}, {0x0100, 0}, "1");
    row("s32,high swapped,,,,,,", "-2", {0xFFFF, 0xFEFF}, {0, 0x0100}, "1");
    row("float,,,,,,,", "12.50", {0x0000, 0x4148}, {0xCCCD, 0x3DCC}, "0.1");
    row("float,,,,,1,,", "12.5", {0x0000, 0x4148}, {0xB852, 0x414A}, "12.67"); // not rounded
    row("float,,,,,,,", "-0", {0x0000, 0x8000}, {0x0001, 0x7FC0}, "nan(0x7FC00001)");
    row("u64,,,,,,,", "72623859790382856", {0x0708, 0x0506, 0x0304, 0x0102}, {1, 0, 0, 0}, "1");
    row("s64,,,,,,,", "-1", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}, {0, 0, 0, 0x8000},
        "-9223372036854775808");
    row("double,,,,,,,", "12.5", {0, 0, 0, 0x4029}, {0, 0, 0, 0xFFF0}, "-inf");
    row("ascii:2,,,,,,,", "ABC", {0x4142, 0x4300}, {0x2C22, 0}, "\",\\\"\"\"");
    row("ascii:2,,,,,,,", "\" A\"", {0x2041, 0}, {0x4120, 0}, "\"A \"");
    row("ascii:2,,,,,,,", "\\x00", {0, 0}, {0x2331, 0}, "\"#1\"");
    row("ascii:2,,,,,,,", "A", {0x4100, 0}, {0, 0}, "\\x00");
    row("s16,,0.1,5,bar,1,0,16", "12.5", {75}, {70}, "12.0");
    row("s16,,0.1,5,bar,,0,16", "12.50", {75}, {0xFFFF}, "4.9");
    row("u16,,,,,2,,", "3", {3}, {4}, "4.00");
    row(",,0.5,,,,,", "3.5", {7}, {65535}, "32767.5");
    row(",,,,,,,", "65535", {65535}, {32768}, "32768");

    QTest::newRow("a coil in the columns of a tags file")
        << QByteArray("name,station,address,format,comment,value") << QByteArray("Lamp,1,Y17,,K3,")
        << QByteArray("1") << QList<qint64>{1} << QList<qint64>{0} << QByteArray("0");
    QTest::newRow("a counter") << QByteArray("register;address;format;value")
                               << QByteArray("32CV;200;s32;") << QByteArray("-1")
                               << QList<qint64>{0xFFFFFFFF} << QList<qint64>{7} << QByteArray("7");
    QTest::newRow("a counter without a format")
        << QByteArray("address,value") << QByteArray("32CV200,") << QByteArray("4294967295")
        << QList<qint64>{0xFFFFFFFF} << QList<qint64>{7} << QByteArray("7");
    QTest::newRow("a format beside a column of types")
        << QByteArray("register,address,type,format,value") << QByteArray("D,100,,float,")
        << QByteArray("12.5") << QList<qint64>{0, 0x4148} << QList<qint64>{0, 0} << QByteArray("0");
    QTest::newRow("a type beside a column of formats")
        << QByteArray("register,address,type,format,value") << QByteArray("D,100,hex16,,")
        << QByteArray("0x4D2") << QList<qint64>{0x04D2} << QList<qint64>{0xABC}
        << QByteArray("0x0abc");
}

void RecipeRowTest::valuesHaveFormats()
{
    QFETCH(QByteArray, header);
    QFETCH(QByteArray, row);
    QFETCH(QByteArray, typed);
    QFETCH(QByteArray, written);
    QFETCH(QList<qint64>, changed);
    const QByteArray front = header + '\n' + row;
    RecipeFile file;
    QString error;
    QVERIFY2(RecipeFile::parse(front + typed, 1, &file, &error), qPrintable(error));
    QTEST(file.rows().first().value, "value");
    QCOMPARE(file.withValues({file.rows().first().value}), front + typed);
    QCOMPARE(file.withValues({changed}), front + written);
    QVERIFY2(RecipeFile::parse(front + written, 1, &file, &error), qPrintable(error));
    QCOMPARE(file.rows().first().value, changed);
}

void RecipeRowTest::namesOfTagsStandForAddresses()
{
    RecipeFile file;
    QString error;
    QVERIFY2(RecipeFile::parse("name,register,address,type,value\n"
                               "Pressure,,,,12.5\nLevel,,,,0.1\nLamp,,,,1\n"
                               "Pressure,D,7,uint16,9\n",
                               withTags(), &file, &error),
             qPrintable(error));
    QStringList rows;
    for (const RecipeRow& row : file.rows()) {
        QStringList words;
        for (const qint64 word : row.value)
            words << QString::number(word, 16);
        rows << row.name + ' ' + valueAddressText(row.range, row.format) + ' ' + words.join(' ');
    }
    QCOMPARE(rows, (QStringList{"Pressure D100@2/s16*0.1+5,min=0,max=16,unit=bar 4b",
                                "Level D110@5/float cccd 3dcc", "Lamp Y17@5/bit 1",
                                "Pressure D7@5/u16 9"}));
}

void RecipeRowTest::theDefaultOrderIsForFormats()
{
    RecipeDefaults defaults = withTags();
    defaults.order.order = WordOrder::HighFirst;
    RecipeFile file;
    QString error;
    QVERIFY2(
        RecipeFile::parse("name,address,type,format,order,value\n"
                          ",D100,,u32,,1\n,D102,,u32,low,1\n,D104,uint32,,,1\nLevel,,,,,12.5\n",
                          defaults, &file, &error),
        qPrintable(error));
    QCOMPARE(file.rows().at(0).value, (QList<qint64>{0, 1}));
    QCOMPARE(file.rows().at(1).value, (QList<qint64>{1, 0}));
    QCOMPARE(file.rows().at(2).value, (QList<qint64>{1, 0}));
    QCOMPARE(file.rows().at(3).value, (QList<qint64>{0x4148, 0}));
}

void RecipeRowTest::wrongRowsAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* text, const QString& error) {
        QTest::newRow(name) << QByteArray(text) << "line 2: " + error;
    };
    const QString bit = " is one bit of a word, and a recipe holds whole values; take %1 with "
                        "format bin or hex";
    row("a bit of a word", "address,format,value\nD120.5,,1", "D120.5" + bit.arg("D120"));
    row("a bit behind a register", "register,address,type,value\nD,120.5,uint16,1",
        "D120.5" + bit.arg("D120"));
    row("a bit by its name", "name,value\nAlarm,1", "D130.5" + bit.arg("D130"));
    row("a bit that is none", "address,format,value\nD120.16,,1",
        "D120.16: '120.16' is not a decimal number; the addresses are D0 to D7999 (decimal)");
    row("a format behind the address", "address,value\nD100/float,1",
        "address D100/float: station and format have columns of their own");
    row("a count", "address,value\nD100:2,1",
        "address D100:2: station and format have columns of their own");
    row("no address", "name,value\n,5", "the row has no address");
    row("a name that no tag has", "name,value\nPresure,5",
        "the row has no address, and 'Presure' is no tag");
    row("a tag of several values", "name,value\nFour,5",
        "the tag 'Four' has 4 values, and a row one");
    row("a tag and a station", "name,station,value\nLevel,3,5",
        "station 3: the tag 'Level' says that");
    row("a tag and a type", "name,type,value\nLevel,int16,5",
        "type int16: the tag 'Level' says that");
    row("a tag and a scale", "name,scale,value\nLevel,2,5", "scale 2: the tag 'Level' says that");
    row("a type and a scale", "address,type,scale,value\nD100,int16,0.1,5",
        "scale 0.1: goes with a format, and the row has type int16");
    row("a type and a format", "address,type,format,value\nD100,float,float,5",
        "format float: goes with a format, and the row has type float");
    row("a format as a type", "address,type,value\nD100,s16,5",
        "'s16' is a format and no type; it belongs into the column format");
    row("neither type nor format where there are types", "address,type,format,value\nD100,,,5",
        "unknown type ''; the types are bit, uint16, int16, hex16, uint32, int32, float");
    row("an unknown format", "address,format,value\nD100,real,5",
        "format real: unknown format 'real'; the formats are u16, s16, hex, bin, bcd, u32, s32, "
        "float, u64, s64, double, ascii:N, bit");
    row("a scale of 0", "address,scale,value\nD100,0,5",
        "scale 0: must not be 0, and have at most 9 digits");
    row("a scaled text", "address,format,scale,value\nD100,ascii:2,2,5",
        "scale 2: text has no scale, offset, decimals, min or max");
    row("bits with a format", "address,format,value\nY17,u16,1",
        "format u16: Y holds bits, which have no format but bit");
    row("past the last register", "address,format,value\nD7997,double,5",
        "D7997: the value runs past the last address, 4 registers each; the addresses are D0 to "
        "D7999 (decimal)");
    row("on both sides of a gap", "address,format,value\nSD254,double,5",
        "SD254: the value from SD254 to SD257 lies on both sides of a gap in the controller's "
        "registers");
    row("a value that does not fit", "address,format,value\nD100,u16,-1",
        "-1 does not fit; D takes 0 to 65535");
    row("below 0 without a format", "address,value\nD100,-1",
        "-1 does not fit; D takes 0 to 65535");
    row("between two steps", "address,scale,value\nD100,0.5,12.3",
        "12.3 is between two steps of 0.5; the nearest is 12.5");
    row("a text that is too long", "address,format,value\nD100,ascii:1,ABC",
        "'ABC' does not fit; it has 3 bytes, and the registers hold 2");
}

void RecipeRowTest::wrongRowsAreRefused()
{
    QFETCH(QByteArray, text);
    RecipeFile file;
    QString error;
    QVERIFY(!RecipeFile::parse(text, withTags(), &file, &error));
    QTEST(error, "error");
}

void RecipeRowTest::boundsKeepDownloadsAlone()
{
    const QByteArray text = "name,value\nPressure,16.1\n";
    RecipeFile file;
    QString error;
    QVERIFY2(RecipeFile::parse(text, withTags(), &file, &error), qPrintable(error));
    QVERIFY(!canBeDownloaded(file.rows(), &error));
    QCOMPARE(error, QString("line 2 (Pressure): 16.1 is refused; it must be at least 0 and at most "
                            "16"));
    QVERIFY(RecipeFile::parse(file.withValues({{110}}), withTags(), &file, &error));
    QCOMPARE(file.withValues({{110}}), QByteArray("name,value\nPressure,16.0\n"));
    QVERIFY2(canBeDownloaded(file.rows(), &error), qPrintable(error));
}

/// The format's columns with the value behind, in front, and in other separators.
void RecipeRowTest::everyFormatComesBack_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char* format :
         {",,,,", "u16,,,,", "s16,,0.1,5,1", "hex,swapped,,,", "bin,,,,", "bcd,,,,", "bcd,,0.1,,",
          "u32,,,,", "s32,high,0.01,-273.15,", "float,,,,", "float,high swapped,0.3,-7,",
          "float,,,,1", "u64,,,,", "s64,swapped,-7,,", "double,,,,", "double,high,1.5e-5,100,2",
          "ascii:1,,,,", "ascii:3,swapped,,,"})
        QTest::newRow(format) << QByteArray(format);
}

void RecipeRowTest::everyFormatComesBack()
{
    QFETCH(QByteArray, format);
    std::mt19937 random(1);
    const QByteArray header = "address,format,order,scale,offset,decimals";
    for (int i = 0; i < 3000; ++i) {
        const bool isFirst = i % 2 != 0;
        QByteArray text = isFirst ? "value," + header + "\n,D100," + format
                                  : header + ",value\nD100," + format + ',';
        if (i % 3 != 0)
            text.replace(',', i % 3 == 1 ? ';' : '\t');
        RecipeFile file;
        QString error;
        QVERIFY2(RecipeFile::parse(text, 1, &file, &error), qPrintable(error));
        const qint64 corners[] = {0,      1,      0x7FFF, 0x8000, 0xFFFF, 0x7F80, 0x7FF0, 0x7FC0,
                                  0x2020, 0x2322, 0x2C3B, 0x0009, 0x4122, 0xC3A4, 0x5C2C};
        QList<qint64> value;
        for (int word = 0; word < file.rows().first().range.values; ++word)
            value << (random() % 2 == 0 ? corners[random() % 15] : qint64(random() & 0xFFFF));
        const QByteArray uploaded = file.withValues({value});
        QVERIFY2(RecipeFile::parse(uploaded, 1, &file, &error),
                 qPrintable(error + '\n' + QString::fromUtf8(uploaded)));
        QVERIFY2(file.rows().first().value == value, uploaded.constData());
        QVERIFY2(canBeDownloaded(file.rows(), &error), qPrintable(error));
        QCOMPARE(file.withValues({value}), uploaded);
    }
}

QTEST_APPLESS_MAIN(RecipeRowTest)
#include "tst_recipe_row.moc"
