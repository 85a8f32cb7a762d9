// `kxhost dump` and `kxhost compare` as processes, against a simulated controller as a process.

#include "dump_fixture.h"
#include "support/process_signal.h"
#include "tools/kxhost/commands/modbus_tcp_server.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

const QStringList TWO_STATIONS = {"--still", "--station", "1", "--station", "2"};
const QStringList SHORT = {"--timeout", "300", "--retries", "1"};

/// The values' lines, and those of the stations.
QStringList rowsOf(const QByteArray& dump)
{
    QStringList rows;
    for (const QString& line : QString::fromLatin1(dump).split('\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith("kx-dump") && !line.startsWith('#') && !line.startsWith("read ")
            && !line.startsWith("end "))
            rows << line;
    }
    return rows;
}

} // namespace

class DumpCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreKept();
    void valuesOfATagsFileAreKept();
    void jsonSummary();
    void aStationThatDoesNotAnswerLeavesNoFile();
    void whatFailsLeavesTheFileThatWasThere();
    void aFullDiskLeavesNoFile();
    void anInterruptLeavesNoFile();
    void theSameIsTheSame();
    void differencesAreShown();
    void differencesAsJson();
    void whatCannotBeReadIsNotTakenForTheSame();
    void aStationThatRefusesPart();
    void theSimulatorInside();
    void aFullOutputIsNoDifference();
    void helpTellsExitCodes();
    void badInputSendsNothing_data();
    void badInputSendsNothing();
};

void DumpCommandTest::valuesAreKept()
{
    const DumpFixture fixture({"D0@1=5,6,7", "X7@1=1,0", "M2047@1=1,1", "32CV200@2=4294967295"},
                              TWO_STATIONS);
    const CommandResult result =
        fixture.dump({"32CV200@2", "D1:2", "M2047:2", "D0:2", "X7:2", "D0@2"});
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output, QStringList{"9 values of stations 1 and 2 kept in " + fixture.path()});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(rowsOf(fixture.stored()),
             (QStringList{"station 1", "X7 1", "X10 0", "M2047 1", "M2048 1", "D0 5", "D1 6",
                          "D2 7", "station 2", "D0 0", "32CV200 4294967295"}));
    QCOMPARE(fixture.files(), QStringList{"memory.kxd"});
    const QRegularExpression times(
        "\nread 20..-..-..T..:..:..\\....Z to 20..-..-..T..:..:..\\.\\d\\d\\dZ\n");
    QVERIFY2(times.match(QString::fromLatin1(fixture.stored())).hasMatch(),
             fixture.stored().constData());
}

void DumpCommandTest::valuesOfATagsFileAreKept()
{
    const DumpFixture fixture({"D5=7,8"});
    const QString tags = fixture.path("tags.csv");
    QFile file(tags);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("name,address,count\nLevel,D5,2\n") > 0);
    file.close();
    QCOMPARE(fixture.dump({tags}).exitCode, 0);
    QCOMPARE(rowsOf(fixture.stored()), (QStringList{"station 1", "D5 7", "D6 8"}));
}

void DumpCommandTest::jsonSummary()
{
    const DumpFixture fixture({});
    QCOMPARE(fixture.dump({"D0:3", "--json"}).output,
             QStringList{R"({"complete":true,"event":"dump","file":")" + fixture.path()
                         + R"(","values":3})"});
    QCOMPARE(fixture.dump(QStringList{"D0:3", "D7:2@9", "--json"} + SHORT).output,
             QStringList{R"({"complete":false,"event":"dump","failure":")" + fixture.path()
                         + R"(: not written, since not all values could be read","file":")"
                         + fixture.path()
                         + R"(","unread":[{"address":"D7","count":2,"failure":"no reply",)"
                           R"("station":9}],"values":3})"});
}

void DumpCommandTest::aStationThatDoesNotAnswerLeavesNoFile()
{
    const DumpFixture fixture({});
    const CommandResult result = fixture.dump(QStringList{"D0:3", "D0:250@9", "M7@9"} + SHORT);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors,
             (QStringList{"kxhost: M7@9: no reply", "kxhost: D0:250@9: no reply",
                          "kxhost: " + fixture.path()
                              + ": not written, since not all values could be read"}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(fixture.files(), QStringList());
}

void DumpCommandTest::whatFailsLeavesTheFileThatWasThere()
{
    const DumpFixture fixture({"D0=5"});
    QCOMPARE(fixture.dump({"D0"}).exitCode, 0);
    const QByteArray before = fixture.stored();
    QCOMPARE(fixture.dump(QStringList{"D0", "D0@9"} + SHORT).exitCode, 1);
    QCOMPARE(fixture.stored(), before);
    QCOMPARE(fixture.files(), QStringList{"memory.kxd"});
}

// A limit of one block, 512 bytes, for every file that kxhost writes.
void DumpCommandTest::aFullDiskLeavesNoFile()
{
    const DumpFixture fixture({});
    QProcess host;
    host.start("sh", {"-c", "trap '' XFSZ; ulimit -f 1; exec \"$0\" \"$@\"", KX_HOST_PROGRAM,
                      "dump", "D0:100", "--port", fixture.port(), "--to", fixture.path()});
    QVERIFY(host.waitForFinished());
    QCOMPARE(QString::fromUtf8(host.readAllStandardError()),
             "kxhost: " + fixture.path() + ": File too large\n");
    QCOMPARE(host.readAllStandardOutput(), QByteArray());
    QCOMPARE(host.exitCode(), 1);
    QCOMPARE(fixture.files(), QStringList());
}

void DumpCommandTest::anInterruptLeavesNoFile()
{
    const DumpFixture fixture({}, SLOWLY);
    QProcess host;
    host.start(KX_HOST_PROGRAM,
               {"dump", "D0:8000", "--frames", "--port", fixture.port(), "--to", fixture.path()});
    QVERIFY(host.waitForReadyRead());
    QVERIFY(signalProcess(host.processId(), SIGINT));
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitCode(), 1);
    const QByteArray errors = host.readAllStandardError();
    QVERIFY2(errors.contains(": interrupted\n"), errors.constData());
    QVERIFY2(errors.contains(": not written, since"), errors.constData());
    QCOMPARE(fixture.files(), QStringList());
}

void DumpCommandTest::theSameIsTheSame()
{
    const DumpFixture fixture({"D0=5,6", "X10=1", "32CV255=7"});
    QCOMPARE(fixture.dump({"D0:250", "X0:20", "32CV200:56"}).exitCode, 0);
    const CommandResult result = fixture.run("compare");
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output, QStringList{"values: 326, different: 0, not read: 0"});
    QCOMPARE(result.exitCode, 0);
}

void DumpCommandTest::differencesAreShown()
{
    DumpFixture fixture({"D0=5,6", "X7=0,1", "D100@2=65535"}, TWO_STATIONS);
    QCOMPARE(fixture.dump({"D0:10", "X7:2", "D100@2", "32CV200"}).exitCode, 0);
    for (const char* change : {"D1=7", "X10=0", "D100@2=0", "32CV200=4294967295", "D50=1"})
        fixture.controller().tell(QString("set ") + change);
    const CommandResult result = fixture.run("compare");
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output, (QStringList{"1 X10 file 1 controller 0", "1 D1 file 6 controller 7",
                                         "1 32CV200 file 0 controller 4294967295",
                                         "2 D100 file 65535 controller 0",
                                         "values: 14, different: 4, not read: 0"}));
    QCOMPARE(result.exitCode, 1);
}

void DumpCommandTest::differencesAsJson()
{
    DumpFixture fixture({"D0=5"});
    QCOMPARE(fixture.dump({"D0:2"}).exitCode, 0);
    fixture.controller().tell("set D0=6");
    const CommandResult result = fixture.run("compare", {"--json"});
    QCOMPARE(
        result.output,
        (QStringList{R"({"address":"D0","controller":6,"event":"difference","file":5,"station":1})",
                     R"({"complete":true,"different":1,"event":"compare","values":2})"}));
    QCOMPARE(result.exitCode, 1);
}

void DumpCommandTest::whatCannotBeReadIsNotTakenForTheSame()
{
    const DumpFixture both({}, TWO_STATIONS);
    QCOMPARE(both.dump({"D0:2", "D0:200@2", "M0@2"}).exitCode, 0);
    const DumpFixture one({"D0=5"});
    one.store(both.stored());
    const CommandResult text = one.run("compare", SHORT);
    QCOMPARE(text.output,
             (QStringList{"1 D0 file 0 controller 5", "values: 203, different: 1, not read: 201"}));
    QCOMPARE(text.errors, (QStringList{"kxhost: M0@2: no reply", "kxhost: D0:200@2: no reply"}));
    QCOMPARE(text.exitCode, 4);
    QCOMPARE(one.run("compare", SHORT + QStringList{"--json"}).output.last(),
             QString(R"({"complete":false,"different":1,"event":"compare","unread":[)"
                     R"({"address":"M0","count":1,"failure":"no reply","station":2},)"
                     R"({"address":"D0","count":200,"failure":"no reply","station":2}],)"
                     R"("values":203})"));
}

// It has registers 0 to 999, and refuses what lies beyond.
void DumpCommandTest::aStationThatRefusesPart()
{
    const DumpFixture fixture({"D100=1234", "D999=1"});
    const ModbusTcpServer server;
    QCOMPARE(fixture.dump({"D0:1000"}).exitCode, 0);
    const CommandResult whole =
        runCommand({"compare", fixture.path(), "--tcp", server.address(), "--protocol", "tcp"});
    QCOMPARE(whole.output, (QStringList{"1 D999 file 1 controller 0",
                                        "values: 1000, different: 1, not read: 0"}));
    QCOMPARE(whole.exitCode, 1);

    QCOMPARE(fixture.dump({"D0:1150"}).exitCode, 0);
    const CommandResult part =
        runCommand({"compare", fixture.path(), "--tcp", server.address(), "--protocol", "tcp"});
    QCOMPARE(part.output, (QStringList{"1 D999 file 1 controller 0",
                                       "values: 1150, different: 1, not read: 150"}));
    QCOMPARE(part.errors, QStringList{"kxhost: D1000:150@1: exception 2 (illegal data address)"});
    QCOMPARE(part.exitCode, 4);
}

void DumpCommandTest::theSimulatorInside()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.kxd");
    QCOMPARE(runCommand({"dump", "D100:3", "D5@2", "--to", path, "--simulate"}).exitCode, 0);
    const CommandResult result = runCommand({"compare", path, "--simulate"});
    QCOMPARE(result.output, QStringList{"values: 4, different: 0, not read: 0"});
    QCOMPARE(result.exitCode, 0);
}

void DumpCommandTest::aFullOutputIsNoDifference()
{
    const DumpFixture fixture({});
    QCOMPARE(fixture.dump({"D0"}).exitCode, 0);
    QProcess host;
    host.setStandardOutputFile("/dev/full");
    host.start(KX_HOST_PROGRAM, {"compare", fixture.path(), "--port", fixture.port()});
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.readAllStandardError(),
             QByteArray("kxhost: cannot write standard output: No space left on device\n"));
    QCOMPARE(host.exitCode(), 4);
}

void DumpCommandTest::helpTellsExitCodes()
{
    const QStringList compare = {
        "Exit codes: 0 all as in the file, 1 some values differ, 2 wrong usage or a damaged",
        "file, 3 the port or the library cannot be opened, 4 not all values could be read."};
    const QStringList help = runCommand("compare --help").output;
    QCOMPARE(help.mid(help.size() - 2), compare);
    const QStringList all = runCommand("--help").output;
    QVERIFY(
        all.contains("3 the port or the library cannot be opened; of compare: 1 values differ,"));
    QVERIFY(all.contains("4 not all values could be read."));
}

void DumpCommandTest::badInputSendsNothing_data()
{
    QTest::addColumn<QStringList>("arguments"); ///< %1 is the folder, where a.kxd is damaged
    QTest::addColumn<QString>("error");

    QTest::newRow("no address") << QStringList{
        "dump", "--to",
        "%1/b.kxd"} << "nothing to dump; name addresses such as D0:1000, or a tags file";
    QTest::newRow("no file to be made")
        << QStringList{"dump", "D0"} << "no file; name the one for the values with --to FILE";
    QTest::newRow("a folder that is not there") << QStringList{"dump", "D0", "--to", "%1/no/b.kxd"}
                                                << "%1/no/b.kxd: No such file or directory";
    QTest::newRow("an address that does not exist")
        << QStringList{"dump", "D8000", "--to", "%1/b.kxd"}
        << "D8000: out of range; the addresses are D0 to D7999 (decimal)";
    QTest::newRow("a dump of what takes two registers")
        << QStringList{"dump", "32CV200", "--to", "%1/b.kxd", "--max-words", "1"}
        << "32CV200: a 32CV takes 2 registers; raise --max-words, which is 1";
    QTest::newRow("no dump to compare")
        << QStringList{"compare"} << "no file; name one file that kxhost dump has made";
    QTest::newRow("two dumps to compare")
        << QStringList{"compare", "a", "b"}
        << "more than one file; name one file that kxhost dump has made";
    QTest::newRow("a station for what names its stations")
        << QStringList{"compare", "%1/a.kxd", "--station", "2"}
        << "--station: the file names the stations";
    QTest::newRow("a dump that is not there")
        << QStringList{"compare", "%1/b.kxd"} << "%1/b.kxd: No such file or directory";
    QTest::newRow("a dump that is cut off")
        << QStringList{"compare", "%1/a.kxd"}
        << "%1/a.kxd:2:1: the file is cut off: its 'end' line is missing";
    QTest::newRow("half a dump to restore")
        << QStringList{"restore", "%1/a.kxd", "--yes"}
        << "%1/a.kxd:2:1: the file is cut off: its 'end' line is missing";
}

void DumpCommandTest::badInputSendsNothing()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    KxsimProcess controller({"--still", "--log"});
    const QTemporaryDir folder;
    QFile damaged(folder.filePath("a.kxd"));
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    QVERIFY(damaged.write("kx-dump 1\n") > 0);
    damaged.close();
    const CommandResult result = runCommand(arguments.replaceInStrings("%1", folder.path())
                                            + QStringList{"--port", controller.portName()});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors, QStringList{"kxhost: " + error.replace("%1", folder.path())});
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"a.kxd"});
    QCOMPARE(controller.errorOutput(), QString());
}

QTEST_GUILESS_MAIN(DumpCommandTest)
#include "tst_dump_command.moc"
