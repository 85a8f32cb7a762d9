// The tags file: a good one, and every way in which one can be wrong.

#include "panel/files/tags_file.h"
#include "panel/values/value_address.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class TagsFileTest : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsRead();
    void whatMayBeLeftOff_data();
    void whatMayBeLeftOff();
    void spreadsheetsAreRead_data();
    void spreadsheetsAreRead();
    void aWrongFileIsRefusedWithFileAndLine_data();
    void aWrongFileIsRefusedWithFileAndLine();
    void aWrongFileLeavesTheTagsAlone();
    void intervalsAreRead_data();
    void intervalsAreRead();
    void formatsAreRead_data();
    void formatsAreRead();
    void allFaultsAreTold();
    void aFileOnDiskIsRead();
    void aMissingFileIsNamed();
};

namespace
{

const char* const HEADER = "name,station,address,count,comment\n";

/// "Pump: D100:4@2 (comment)".
QString describe(const Tag& tag)
{
    return QString::fromLatin1("%1: %2:%3@%4 (%5)")
        .arg(tag.name, addressText(tag.range.type, tag.range.address),
             QString::number(tag.range.values), QString::number(tag.range.station), tag.comment);
}

/// UTF-16 without a byte-order mark; `lowByte` 0: little-endian, 1: big-endian.
QByteArray utf16(const QByteArray& utf8, int lowByte)
{
    QByteArray bytes;
    for (const QChar unit : QString::fromUtf8(utf8)) {
        QByteArray pair(2, static_cast<char>(unit.row()));
        pair[lowByte] = static_cast<char>(unit.cell());
        bytes += pair;
    }
    return bytes;
}

QStringList parsed(const QByteArray& text)
{
    QList<Tag> tags;
    QString error;
    if (!parseTags(text, QLatin1String("tags.csv"), &tags, &error))
        return {error};
    QStringList lines;
    for (const Tag& tag : tags)
        lines << describe(tag);
    return lines;
}

} // namespace

void TagsFileTest::aFileIsRead()
{
    QCOMPARE(
        parsed("# the pump house\n"
               "\n"
               "name,station,address,count,comment\n"
               "Running,2,Y10,1,contact K3\n"
               "  # not yet wired: Stopped,2,Y11,1,\n"
               "\"Level, left\",,D100,4,\"four \"\"words\"\"\"\n"
               "Z\xC3\xA4hler,3,32CV200,2,# not a comment here\n"),
        (QStringList{"Running: Y10:1@2 (contact K3)", "Level, left: D100:4@-1 (four \"words\")",
                     QString::fromUtf8("Z\xC3\xA4hler: 32CV200:2@3 (# not a comment here)")}));
}

void TagsFileTest::whatMayBeLeftOff_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::newRow("nothing") << QByteArray("a,,D7,1,\n");
    QTest::newRow("count") << QByteArray("a,,D7,,\n");
    QTest::newRow("the comment's comma") << QByteArray("a,,D7,1\n");
    QTest::newRow("both commas") << QByteArray("a,,D7\n");
    QTest::newRow("the last line end") << QByteArray("a,,D7");
    QTest::newRow("Windows line ends") << QByteArray("a,,D7,1,\r\n");
    QTest::newRow("blanks around fields") << QByteArray(" a , , D7 , 1 , \n");
}

void TagsFileTest::whatMayBeLeftOff()
{
    QFETCH(QByteArray, row);
    QCOMPARE(parsed(HEADER + row), (QStringList{"a: D7:1@-1 ()"}));
    // As some spreadsheets write it, with a byte-order mark.
    QCOMPARE(parsed("\xEF\xBB\xBF# tags\n" + QByteArray(HEADER) + row),
             (QStringList{"a: D7:1@-1 ()"}));
}

void TagsFileTest::spreadsheetsAreRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("semicolons") << QByteArray("name;station;address;count;comment\r\n"
                                              "Z\xC3\xA4hler;2;D7;4;a,b\r\n");
    QTest::newRow("tabs") << QByteArray("name\tstation\taddress\tcount\tcomment\r\n"
                                        "Z\xC3\xA4hler\t2\tD7\t4\ta,b\r\n");
    QTest::newRow("another order") << QByteArray("comment,count,address,station,name\n"
                                                 "\"a,b\",4,D7,2,Z\xC3\xA4hler\n");
    QTest::newRow("rows without text at the end")
        << QByteArray("name;station;address;count;comment\n"
                      "Z\xC3\xA4hler;2;D7;4;a,b\n;;;;\n ; \n");
}

void TagsFileTest::spreadsheetsAreRead()
{
    QFETCH(QByteArray, text);
    const QStringList expected = {QString::fromUtf8("Z\xC3\xA4hler: D7:4@2 (a,b)")};
    QCOMPARE(parsed(text), expected);
    QCOMPARE(parsed(QByteArray("\xFF\xFE") + utf16(text, 0)), expected);
    QCOMPARE(parsed(QByteArray("\xFE\xFF") + utf16(text, 1)), expected);
}

void TagsFileTest::aWrongFileIsRefusedWithFileAndLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QByteArray& text, const char* error) {
        QTest::newRow(name) << text << QString::fromLatin1(error);
    };
    const QByteArray header = HEADER;
    row("empty", "",
        "tags.csv: no header line; it is name,station,address,count,every,format,order,"
        "scale,offset,unit,decimals,min,max,comment");
    row("a header only", header, "tags.csv: no rows behind the header");
    row("no header", "a,,D7,1,\n",
        "tags.csv:1: the first line must be the header name,station,address,count,every,"
        "format,order,scale,offset,unit,decimals,min,max,comment, separated by commas, semicolons "
        "or tabs");
    row("a header after comments", "# a\n\nb\n",
        "tags.csv:3: the first line must be the header name,station,address,count,every,"
        "format,order,scale,offset,unit,decimals,min,max,comment, separated by commas, semicolons "
        "or tabs");
    row("another separator", "name|station|address|count|comment\n",
        "tags.csv:1: the first line must be the header name,station,address,count,every,"
        "format,order,scale,offset,unit,decimals,min,max,comment, separated by commas, semicolons "
        "or tabs");
    row("too few fields", header + "a,1\n",
        "tags.csv:2: 2 fields separated by commas instead of 3 to 5");
    row("too many fields", header + "a,1,D7,1,b,c\n",
        "tags.csv:2: 6 fields separated by commas instead of 3 to 5");
    row("Latin-1", header + "Z\xE4hler,1,D7,1,\n",
        "tags.csv:2: column 2: byte 0xe4 is not UTF-8; save the file as UTF-8");
    row("UTF-16 without a mark", utf16(header, 0),
        "tags.csv:1: column 2: a byte that is 0; save the file as UTF-8");
    row("no name", header + ",1,D7,1,\n", "tags.csv:2: the tag has no name");
    row("a name twice", header + "# x\na,1,D7,1,\na,1,D8,1,\n",
        "tags.csv:4: the name 'a' is taken by line 3");
    row("a wrong address", header + "a,1,D7,1,\nb,1,X8,1,\n",
        "tags.csv:3: address X8: '8' is not an octal number; the addresses are X0 to X377 (octal)");
    row("no address", header + "a,,,,\n", "tags.csv:2: the tag has no address");
    row("a count of 0", header + "a,,D7,0,\n", "tags.csv:2: count 0: must be 1 or more");
    row("a count past the end", header + "a,,D7999,2,\n",
        "tags.csv:2: count 2: 2 values run past the last address; the addresses are D0 to D7999 "
        "(decimal)");
    row("a wrong station", header + "a,248,D7,,\n", "tags.csv:2: station 248: must be 1 to 247");
    row("a count in the address", header + "a,,D7:4,,\n",
        "tags.csv:2: address D7:4: count, station and format have columns of their own");
    row("a station in the address", header + "a,,D7@4,,\n",
        "tags.csv:2: address D7@4: count, station and format have columns of their own");
    row("an open quote", header + "\"a,,D7,,\n", "tags.csv:2: a quote is not closed");
    row("text behind a quote", header + "\"a\"b,,D7,,\n",
        "tags.csv:2: text follows a closing quote");
}

void TagsFileTest::aWrongFileIsRefusedWithFileAndLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    QCOMPARE(parsed(text), QStringList{error});
}

void TagsFileTest::intervalsAreRead_data()
{
    QTest::addColumn<QByteArray>("every");
    QTest::addColumn<int>("interval"); // milliseconds
    QTest::addColumn<QString>("error");
    const auto row = [](const char* every, int interval, const char* error) {
        QTest::newRow(every) << QByteArray(every) << interval << QString::fromLatin1(error);
    };
    row("", -1, "");
    row("0", 0, "");
    row("250", 250, "");
    row("0.5s", 500, "");
    row("100us", 1, ""); // no shorter than a millisecond
    row("1440min", 86400000, "");
    row("1441min", -1,
        "tags.csv:2: every 1441min: must be a time from 0 to 1440min, such as 500ms, 10s or 5min");
    row("often", -1,
        "tags.csv:2: every often: must be a time from 0 to 1440min, such as 500ms, 10s or 5min");
}

void TagsFileTest::intervalsAreRead()
{
    QFETCH(QByteArray, every);
    QFETCH(int, interval);
    QFETCH(QString, error);
    QList<Tag> tags;
    QString faulty;
    const bool isRead = parseTags("name,address,every\na,D7," + every + "\n",
                                  QStringLiteral("tags.csv"), &tags, &faulty);
    QCOMPARE(faulty, error);
    QCOMPARE(isRead, error.isEmpty());
    if (isRead)
        QCOMPARE(tags.first().interval, interval);
}

void TagsFileTest::formatsAreRead_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("read"); // as it is typed, or what is wrong
    const auto row = [](const char* name, const char* header, const char* text, const char* read) {
        QTest::newRow(name) << QByteArray(header) << QByteArray(text) << QString::fromLatin1(read);
    };
    row("none", "name,address", "a,D7", "D7");
    row("a format", "name,address,format", "a,D7,float", "D7/float");
    row("values of two registers", "name,address,count,format", "a,D7,4,float", "D7:4/float");
    row("a text", "name,address,format", "a,D7,ascii:8", "D7/ascii:8");
    row("a bit of a word", "name,address", "a,D7.15", "D7.15");
    row("a 32CV", "name,address,count,format", "a,32CV200,2,s32", "32CV200:2/s32");
    row("another order of columns", "max,format,address,min,name", "9,s16,D7,-9,a",
        "D7/s16,min=-9,max=9");
    row("all columns",
        "name,station,address,count,every,format,order,scale,offset,unit,decimals,min,max,comment",
        "a,2,D7,,1s,s32,high swapped,0.1,-5,bar,1,0,16.5,x",
        "D7@2/s32*0.1-5,high,swapped,decimals=1,min=0,max=16.5,unit=bar");
    row("an unknown format", "name,address,format", "a,D7,real",
        "tags.csv:2: format real: unknown format 'real'; the formats are u16, s16, hex, bin, bcd, "
        "u32, s32, float, u64, s64, double, ascii:N, bit");
    row("a text without length", "name,address,format", "a,D7,ascii",
        "tags.csv:2: format ascii: ascii needs its registers, 1 to 123, such as ascii:8");
    row("a format of bits", "name,address,format", "a,X7,u16",
        "tags.csv:2: format u16: X holds bits, which have no format but bit");
    row("a format of a bit", "name,address,format", "a,D7.3,u16",
        "tags.csv:2: format u16: one bit of a word has no format");
    row("bits of words", "name,address,count", "a,D7.3,2",
        "tags.csv:2: count 2: one bit of a word has no count");
    row("a bit too high", "name,address", "a,D7.16",
        "tags.csv:2: address D7.16: '16' is not a bit of a word; they are 0 to 15");
    row("a format in the address", "name,address", "a,D7/float",
        "tags.csv:2: address D7/float: count, station and format have columns of their own");
    row("an unknown order", "name,address,format,order", "a,D7,u32,big",
        "tags.csv:2: order big: must be low, high, swapped, 'low swapped' or 'high "
        "swapped'");
    row("an order of one word", "name,address,order", "a,D7,high",
        "tags.csv:2: order high: low and high are for numbers of several registers");
    row("a scale of 0", "name,address,scale", "a,D7,0",
        "tags.csv:2: scale 0: must not be 0, and have at most 9 digits");
    row("a scale that is none", "name,address,scale", "a,D7,0,1",
        "tags.csv:2: 4 fields separated by commas instead of 2 to 3");
    row("a scale with a comma", "name;address;scale", "a;D7;0,1",
        "tags.csv:2: scale 0,1: must be a decimal number such as 12.5");
    row("a scale of bits", "name,address,scale", "a,M7,2",
        "tags.csv:2: scale 2: bits have no scale, offset, decimals, min or max");
    row("an offset that is none", "name,address,offset", "a,D7,five",
        "tags.csv:2: offset five: must be a decimal number such as 12.5");
    row("too few decimals", "name,address,scale,decimals", "a,D7,0.25,0",
        "tags.csv:2: decimals 0: with decimals 0 values 0.25 apart look alike; take 1 or more");
    row("a minimum above the maximum", "name,address,min,max", "a,D7,5,4",
        "tags.csv:2: max 4: min 5 is above max 4");
    row("half a value at the end", "name,address,format", "a,D7999,u32",
        "tags.csv:2: address D7999: the value runs past the last address, 2 registers each; the "
        "addresses are D0 to D7999 (decimal)");
    row("a value over a gap", "name,address,format", "a,SD255,u32",
        "tags.csv:2: address SD255: the value from SD255 to SD256 lies on both sides of a gap in "
        "the controller's registers");
}

void TagsFileTest::formatsAreRead()
{
    QFETCH(QByteArray, header);
    QFETCH(QByteArray, row);
    QFETCH(QString, read);
    QList<Tag> tags;
    QString error;
    if (parseTags(header + '\n' + row, QStringLiteral("tags.csv"), &tags, &error))
        error = valueAddressText(tags.first().range, tags.first().format);
    QCOMPARE(error, read);
}

void TagsFileTest::allFaultsAreTold()
{
    const QByteArray text = "name,station,address,count,every,format,scale\n"
                            "a,0,X8,0,often,real,\n"
                            "b,1,D7\n"
                            "a,1,D8,x\n"
                            ",1,D9,1,,,,,,\n"
                            ",1,,1,,,x\n";
    QList<Tag> tags;
    QCOMPARE(tagFaults(text, QStringLiteral("t.csv"), &tags),
             (QStringList{
                 "t.csv:2: station 0: must be 1 to 247", "t.csv:2: count 0: must be 1 or more",
                 "t.csv:2: address X8: '8' is not an octal number; the addresses are X0 to X377 "
                 "(octal)",
                 "t.csv:2: format real: unknown format 'real'; the formats are u16, s16, hex, bin, "
                 "bcd, u32, s32, float, u64, s64, double, ascii:N, bit",
                 "t.csv:2: every often: must be a time from 0 to 1440min, such as 500ms, 10s or "
                 "5min",
                 "t.csv:4: count x: must be 1 or more", "t.csv:4: the name 'a' is taken by line 2",
                 "t.csv:5: 10 fields separated by commas instead of 3 to 7",
                 "t.csv:6: the tag has no name", "t.csv:6: the tag has no address",
                 "t.csv:6: scale x: must be a decimal number such as 12.5"}));
    QCOMPARE(tagFaults("name,address\na,D7\n", QString(), &tags), QStringList());
    QCOMPARE(static_cast<int>(tags.size()), 1);
}

void TagsFileTest::aWrongFileLeavesTheTagsAlone()
{
    QList<Tag> tags;
    QString error;
    QVERIFY(parseTags(HEADER + QByteArray("a,,D7,,\n"), QString(), &tags, &error));
    QVERIFY(!parseTags(HEADER + QByteArray("b,,D8,,\nc,,X8,,\n"), QString(), &tags, &error));
    QCOMPARE(static_cast<int>(tags.size()), 1);
    QCOMPARE(describe(tags.first()), QString::fromLatin1("a: D7:1@-1 ()"));
}

void TagsFileTest::aFileOnDiskIsRead()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QLatin1String("tags.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(HEADER + QByteArray("a,,D7,,\n"));
    file.close();
    QList<Tag> tags;
    QString error;
    QVERIFY2(loadTags(path, &tags, &error), qPrintable(error));
    QCOMPARE(describe(tags.first()), QString::fromLatin1("a: D7:1@-1 ()"));
}

void TagsFileTest::aMissingFileIsNamed()
{
    QList<Tag> tags;
    QString error;
    QVERIFY(!loadTags(QLatin1String("no/such.csv"), &tags, &error));
    QCOMPARE(error, QString::fromLatin1("no/such.csv: No such file or directory"));
    QVERIFY(!loadTags(QLatin1String("/"), &tags, &error));
    QVERIFY2(error.startsWith(QLatin1String("/: ")), qPrintable(error));
}

QTEST_APPLESS_MAIN(TagsFileTest)
#include "tst_tags_file.moc"
