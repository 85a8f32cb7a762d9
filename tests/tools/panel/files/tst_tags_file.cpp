// The tags file: a good one, and every way in which one can be wrong.

#include "panel/files/tags_file.h"

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
    row("empty", "", "tags.csv: no header line; it is name,station,address,count,every,comment");
    row("a header only", header, "tags.csv: no rows behind the header");
    row("no header", "a,,D7,1,\n",
        "tags.csv:1: the first line must be the header name,station,address,count,every,comment, "
        "separated by commas, semicolons or tabs");
    row("a header after comments", "# a\n\nb\n",
        "tags.csv:3: the first line must be the header name,station,address,count,every,comment, "
        "separated by commas, semicolons or tabs");
    row("another separator", "name|station|address|count|comment\n",
        "tags.csv:1: the first line must be the header name,station,address,count,every,comment, "
        "separated by commas, semicolons or tabs");
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
        "tags.csv:3: X8:1@1: '8' is not an octal number; the addresses are X0 to X377 (octal)");
    row("no address", header + "a,,,,\n", "tags.csv:2: the tag has no address");
    row("a count of 0", header + "a,,D7,0,\n", "tags.csv:2: D7:0: the count must be 1 or more");
    row("a count past the end", header + "a,,D7999,2,\n",
        "tags.csv:2: D7999:2: 2 values run past the last address; the addresses are D0 to D7999 "
        "(decimal)");
    row("a wrong station", header + "a,248,D7,,\n",
        "tags.csv:2: D7@248: the station must be 1 to 247");
    row("a count in the address", header + "a,,D7:4,,\n",
        "tags.csv:2: D7:4: count and station have columns of their own");
    row("a station in the address", header + "a,,D7@4,,\n",
        "tags.csv:2: D7@4: count and station have columns of their own");
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
