// Texts from files and arguments that a terminal would obey: kxhost shows them.

#include "host_terminal.h"
#include "recipe_fixture.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const char TAGS_HEADER[] = "name,station,address,count,comment\n";
const char RECIPE_HEADER[] = "name,station,register,address,type,value\n";
const char RED[] = "\x1b[31mred";
const char RED_SHOWN[] = "\xEF\xBF\xBD[31mred"; // U+FFFD in place of the escape

} // namespace

class HostileTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void linesShowThem_data();
    void linesShowThem();
    void jsonEscapesThem();
    void tableShowsThem();
};

/// Arguments of kxhost, of which %1 is the file.
void HostileTextsTest::linesShowThem_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("isError");

    const QByteArray name = TAGS_HEADER + QByteArray(RED) + ",,D0,,\n";
    QTest::newRow("tag name, read") << name << QStringList{"read", "%1", "--simulate"} << false;
    QTest::newRow("tag name, watch")
        << name << QStringList{"watch", "%1", "--simulate", "--cycles", "1"} << false;
    QTest::newRow("address in a tags file") << TAGS_HEADER + QByteArray("a,,") + RED + ",,\n"
                                            << QStringList{"plan", "%1"} << true;
    QTest::newRow("name in a tags file") << name + RED + ",,D1,,\n"
                                         << QStringList{"plan", "%1"} << true;
    QTest::newRow("name in a recipe")
        << RECIPE_HEADER + QByteArray(RED) + ",1,D,0,uint16,\n"
        << QStringList{"recipe", "download", "%1", "--simulate"} << true;
    QTest::newRow("value in a recipe")
        << RECIPE_HEADER + QByteArray("a,1,D,0,uint16,") + RED + '\n'
        << QStringList{"recipe", "download", "%1", "--simulate"} << true;
    QTest::newRow("version of a dump") << QByteArray("kx-dump ") + RED + '\n'
                                       << QStringList{"compare", "%1", "--simulate"} << true;
    QTest::newRow("path of a dump")
        << QByteArray() << QStringList{"dump", "D0", "--simulate", "--to", QString("no/") + RED}
        << true;
    const QString address = QString("D0") + RED;
    for (const char* const command : {"plan", "check", "series"})
        QTest::addRow("address for %s", command)
            << QByteArray() << QStringList{QLatin1String(command), address} << true;
    for (const char* const command : {"read", "watch", "write"})
        QTest::addRow("address for %s", command)
            << QByteArray() << QStringList{QLatin1String(command), address, "--simulate"} << true;
    QTest::newRow("command") << QByteArray() << QStringList{RED} << true;
    QTest::newRow("option") << QByteArray() << QStringList{"read", QString("--") + RED} << true;
    QTest::newRow("value of an option")
        << QByteArray() << QStringList{"read", "D0", "--baud", RED} << true;
    QTest::newRow("port") << QByteArray() << QStringList{"read", "D0", "--port", RED} << true;
    QTest::newRow("gateway") << QByteArray()
                             << QStringList{"read", "D0", "--tcp", QString(RED) + ":x"} << true;
    QTest::newRow("library") << QByteArray() << QStringList{"check", "D0", "--library", RED}
                             << true;
    QTest::newRow("path") << QByteArray() << QStringList{"recipe", "upload", RED, "--simulate"}
                          << true;
}

void HostileTextsTest::linesShowThem()
{
    const RecipeFixture fixture;
    QFETCH(QByteArray, file);
    QFETCH(QStringList, arguments);
    QFETCH(bool, isError);
    fixture.store(file);
    const CommandResult result = runCommand(arguments.replaceInStrings("%1", fixture.path()));
    const QByteArray shown =
        (isError ? result.errors : result.output).join(QLatin1Char('\n')).toUtf8();
    QVERIFY2(shown.contains(RED_SHOWN), shown.constData());
    QVERIFY2(!shown.contains('\x1b'), shown.constData());
    QCOMPARE(result.errors.size(), isError ? 1 : 0);
}

void HostileTextsTest::jsonEscapesThem()
{
    const RecipeFixture fixture;
    const QByteArray name = "\x1b[31m\x7F\xC2\x9B\xE2\x80\xAE"; // U+001B, 7F, 9B, 202E
    fixture.store(TAGS_HEADER + name + ",,D0,,\n");
    const CommandResult result = runCommand({"read", fixture.path(), "--simulate", "--json"});
    QCOMPARE(result.output.size(), 1);
    const QString line = result.output.constFirst();
    QVERIFY2(line.contains(QLatin1String(R"("name":"\u001b[31m\u007f\u009b\u202e")")),
             qPrintable(line));
    QCOMPARE(QJsonDocument::fromJson(line.toUtf8())["name"].toString(), QString::fromUtf8(name));
}

void HostileTextsTest::tableShowsThem()
{
    const RecipeFixture fixture;
    fixture.store(TAGS_HEADER + QByteArray(RED) + ",,Z15,,\n");
    HostTerminal terminal({"watch", fixture.path(), "--simulate"});
    QVERIFY(terminal.waitFor(RED_SHOWN));
    QVERIFY(terminal.waitFor("0x0000")); // was read
    terminal.type("\x03");               // Ctrl-C
    QCOMPARE(terminal.exitCode(), 0);
    QVERIFY(!terminal.output().contains(RED));
}

QTEST_GUILESS_MAIN(HostileTextsTest)
#include "tst_hostile_texts.moc"
