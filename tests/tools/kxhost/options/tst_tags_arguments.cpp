// Watched addresses on a command line: typed, or in tags files.

#include "kxhost/options/tags_arguments.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class TagsArgumentsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void argumentsAreRead_data();
    void argumentsAreRead();
    void cleanupTestCase();

private:
    QTemporaryDir m_folder;
    QString m_before;
};

namespace
{

void write(const char* name)
{
    QFile file(QString::fromLatin1(name));
    if (!file.open(QIODevice::WriteOnly)
        || file.write("name,station,address,count,comment\nLevel,,D100,4,\nLamp,9,X10,,\n") < 0)
        qFatal("cannot write %s", name);
}

QString formatSuffix(const ValueFormat& format)
{
    const QString text = formatText(format);
    return text.isEmpty() ? text : QLatin1Char('/') + text;
}

/// "Level D100:4@1", "- D5:1@1" without a name, or the error alone.
QStringList read(const QStringList& arguments)
{
    QCommandLineParser parser;
    addTagsOption(&parser);
    if (!parser.parse(QStringList{"kxhost"} + arguments))
        return {parser.errorText()};
    QList<Tag> tags;
    QString error;
    if (!parseTagArguments(parser, 1, &tags, &error))
        return {error};
    QStringList lines;
    for (const Tag& tag : tags)
        lines << QString::fromLatin1("%1 %2:%3@%4%5")
                     .arg(tag.name.isEmpty() ? QLatin1String("-") : tag.name,
                          valueName(tag.range, tag.format, 0), QString::number(tag.range.values),
                          QString::number(tag.range.station), formatSuffix(tag.format));
    return lines;
}

} // namespace

void TagsArgumentsTest::initTestCase()
{
    m_before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder.path()));
    write("tags.csv");
    write("plain");
    write("D5.1x");
    write("D100"); // an address comes before a file of that name
}

void TagsArgumentsTest::cleanupTestCase()
{
    QDir::setCurrent(m_before);
}

void TagsArgumentsTest::argumentsAreRead_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("tags");
    const QStringList file{"Level D100:4@1", "Lamp X10:1@9"};
    QTest::newRow("none") << QStringList() << QStringList();
    QTest::newRow("an address") << QStringList{"D5"} << QStringList{"- D5:1@1"};
    QTest::newRow("an address with all") << QStringList{"D5:2@3"} << QStringList{"- D5:2@3"};
    QTest::newRow("a file") << QStringList{"tags.csv"} << file;
    QTest::newRow("a file without a dot") << QStringList{"plain"} << file;
    QTest::newRow("a file that is named like an address")
        << QStringList{"D100"} << QStringList{"- D100:1@1"};
    QTest::newRow("such a file by its path") << QStringList{"./D100"} << file;
    QTest::newRow("such a file by the option") << QStringList{"--tags", "D100"} << file;
    QTest::newRow("files of the option come first")
        << QStringList{"D5", "--tags", "tags.csv"} << file + QStringList{"- D5:1@1"};
    QTest::newRow("files and addresses in order")
        << QStringList{"D5", "plain", "D6"}
        << QStringList{"- D5:1@1"} + file + QStringList{"- D6:1@1"};
    QTest::newRow("a missing file")
        << QStringList{"no.csv"} << QStringList{"no.csv: No such file or directory"};
    QTest::newRow("an option without a file's name")
        << QStringList{"--tags="} << QStringList{"--tags: the name of the file is missing"};
    QTest::newRow("a format") << QStringList{"D5:2/float"} << QStringList{"- D5:4@1/float"};
    QTest::newRow("a bit of a word") << QStringList{"D5.3"} << QStringList{"- D5.3:1@1"};
    QTest::newRow("a wrong format")
        << QStringList{"D5/flot"}
        << QStringList{"D5/flot: unknown format 'flot'; the formats are u16, s16, hex, bin, bcd, "
                       "u32, s32, float, u64, s64, double, ascii:N, bit"};
    QTest::newRow("a wrong bit") << QStringList{
        "D5.77"} << QStringList{"D5.77: '77' is not a bit of a word; they are 0 to 15"};
    QTest::newRow("a missing file that begins as an address")
        << QStringList{"D5.csv"} << QStringList{"D5.csv: No such file or directory"};
    QTest::newRow("a missing file in a folder")
        << QStringList{"no/D5"} << QStringList{"no/D5: No such file or directory"};
    QTest::newRow("a file that begins as an address and a format") << QStringList{"D5.1x"} << file;
    QTest::newRow("only some names")
        << QStringList{"tags.csv", "--only", "L?v*"} << QStringList{"Level D100:4@1"};
    QTest::newRow("names of several patterns")
        << QStringList{"tags.csv", "--only", "Lamp", "--only", "L*l"} << file;
    QTest::newRow("only some names, and an address")
        << QStringList{"tags.csv", "D5", "--only", "*amp"}
        << QStringList{"Lamp X10:1@9", "- D5:1@1"};
    QTest::newRow("a pattern without a name")
        << QStringList{"tags.csv", "--only", "L*", "--only", "lamp"}
        << QStringList{"--only lamp: no tag of the files has such a name"};
    QTest::newRow("a pattern of letters that mean something elsewhere")
        << QStringList{"tags.csv", "--only", "L.*"}
        << QStringList{"--only L.*: no tag of the files has such a name"};
    QTest::newRow("an order") << QStringList{"D5/float", "D7/u32,low", "D9", "--word-order",
                                             "high,swapped"}
                              << QStringList{"- D5:2@1/float,high,swapped", "- D7:2@1/u32,low",
                                             "- D9:1@1"};
    QTest::newRow("a wrong order")
        << QStringList{"D5", "--word-order", "big"}
        << QStringList{"--word-order big: must be low, high, swapped, 'low swapped' or 'high "
                       "swapped'"};
    QTest::newRow("neither address nor file")
        << QStringList{"X8"}
        << QStringList{"X8: '8' is not an octal number; the addresses are X0 to X377 (octal)"};
}

void TagsArgumentsTest::argumentsAreRead()
{
    QFETCH(QStringList, arguments);
    QTEST(read(arguments), "tags");
}

QTEST_GUILESS_MAIN(TagsArgumentsTest)
#include "tst_tags_arguments.moc"
