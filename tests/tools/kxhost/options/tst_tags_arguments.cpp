// Watched addresses on a command line: typed, or in tags files.

#include "kxhost/options/tags_arguments.h"

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
        lines << QString::fromLatin1("%1 %2:%3@%4")
                     .arg(tag.name.isEmpty() ? QLatin1String("-") : tag.name,
                          addressText(tag.range.type, tag.range.address),
                          QString::number(tag.range.values), QString::number(tag.range.station));
    return lines;
}

} // namespace

void TagsArgumentsTest::initTestCase()
{
    m_before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder.path()));
    write("tags.csv");
    write("plain");
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
