// `kxhost tags check` as a process.

#include "tools/kxhost/commands/command_process.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class TagsCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aGoodFile();
    void allFaultsOfAllFiles();
    void allFaultsOfAHeader();
    void asJson();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();

private:
    QString write(const char* name, const QByteArray& text);

    QTemporaryDir m_folder;
    QString m_good;
    QString m_wrong;
};

QString TagsCheckTest::write(const char* name, const QByteArray& text)
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

void TagsCheckTest::initTestCase()
{
    m_good = write("good.csv", "name,address,format\nPump,D100,float\nLamp,Y10\n");
    m_wrong = write("wrong.csv", "name,address,format,scale\nPump,X8,real,0\nLamp,Y10,u16\n");
}

void TagsCheckTest::aGoodFile()
{
    const CommandResult result = runCommand({"tags", "check", m_good});
    QCOMPARE(result.output, QStringList{m_good + ": good, 2 tags"});
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void TagsCheckTest::allFaultsOfAllFiles()
{
    const CommandResult result = runCommand({"tags", "check", "no.csv", m_wrong, m_good});
    const QString place = "kxhost: " + m_wrong;
    QCOMPARE(
        result.errors,
        (QStringList{
            "kxhost: no.csv: No such file or directory",
            place
                + ":2: address X8: '8' is not an octal number; the addresses are X0 to X377 "
                  "(octal)",
            place
                + ":2: format real: unknown format 'real'; the formats are u16, s16, hex, bin, "
                  "bcd, u32, s32, float, u64, s64, double, ascii:N, bit",
            place + ":2: scale 0: must not be 0, and have at most 9 digits",
            place + ":3: format u16: Y holds bits, which have no format but bit"}));
    QCOMPARE(result.output, QStringList{m_good + ": good, 2 tags"});
    QCOMPARE(result.exitCode, 2);
}

void TagsCheckTest::allFaultsOfAHeader()
{
    const QString path = write("header.csv", "adress,unit,every,unit\nD100,bar,1s,bar\n");
    const QString place = "kxhost: " + path + ":1: ";
    const QString columns = "; the columns are name,station,address,count,every,format,order,scale,"
                            "offset,unit,decimals,min,max,comment";
    QCOMPARE(runCommand({"tags", "check", path}).errors,
             (QStringList{place + "unknown column 'adress', separated by commas" + columns,
                          place + "the header has two columns 'unit'",
                          place + "the header has no column 'name'" + columns,
                          place + "the header has no column 'address'" + columns}));
}

void TagsCheckTest::asJson()
{
    const CommandResult result = runCommand({"tags", "check", "--json", "no.csv", m_good});
    QCOMPARE(
        result.output,
        (QStringList{R"({"faults":["no.csv: No such file or directory"],"file":"no.csv","tags":0})",
                     R"({"faults":[],"file":")" + m_good + R"(","tags":2})"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 2);
}

void TagsCheckTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList{"tags"};
    QTest::newRow("no file") << QStringList{"tags", "check"};
    QTest::newRow("another word") << QStringList{"tags", "show", "tags.csv"};
}

void TagsCheckTest::wrongUsageIsOneLine()
{
    QFETCH(QStringList, arguments);
    const CommandResult result = runCommand(arguments);
    QCOMPARE(result.errors,
             QStringList{"kxhost: tags: write tags check FILE, such as tags check line3.csv"});
    QCOMPARE(result.exitCode, 2);
}

QTEST_GUILESS_MAIN(TagsCheckTest)
#include "tst_tags_check.moc"
