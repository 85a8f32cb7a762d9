// `kxhost recipe` as a process, when something goes wrong on the way.

#include "recipe_fixture.h"
#include "support/process_signal.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

// Six blocks of a station that answers, and one of a station that is not there.
const char SEVEN_ROWS[] = "name,station,register,address,type,value\n"
                          "a,1,D,0,uint16,1\nb,1,D,10,uint16,2\nc,1,D,20,uint16,3\n"
                          "d,1,D,30,uint16,4\ne,1,D,40,uint16,5\nf,1,D,50,uint16,6\n"
                          "g,9,D,0,uint16,7\n";

/// Of a controller, so that what ends a recipe comes before its end.
const QStringList SLOWLY = {"--turnaround", "200ms"};

/// Three hundred registers: ten blocks.
QByteArray longRecipe()
{
    QByteArray text = "name,station,register,address,type,value\n";
    for (int address = 0; address < 300; ++address)
        text += "r,1,D," + QByteArray::number(address) + ",uint16,7\n";
    return text;
}

} // namespace

class RecipeFailuresTest : public QObject
{
    Q_OBJECT

private slots:
    void failedDownloadNamesTheBlocksSent();
    void longListOfBlocksIsCutShort();
    void jsonHasEveryBlock();
    void failedUploadLeavesTheFile();
    void lineThatDiesLeavesTheFileAndTheNextCommandWorks_data();
    void lineThatDiesLeavesTheFileAndTheNextCommandWorks();
    void interruptLeavesTheFile();
    void fullDiskLeavesTheFile_data();
    void fullDiskLeavesTheFile();
    void missingFileIsNamed();
};

void RecipeFailuresTest::failedDownloadNamesTheBlocksSent()
{
    const RecipeFixture fixture;
    KxsimProcess controller({"--still"});
    fixture.store("name,station,register,address,type,value\n"
                  "a,1,D,0,uint16,5\nb,1,D,9,uint16,6\nc,9,D,0,uint16,7\nd,10,D,0,uint16,7\n");
    const CommandResult result =
        fixture.run("download", controller.portName(), {"--timeout", "300", "--retries", "2"});
    QCOMPARE(result.errors, (QStringList{"kxhost: download of " + fixture.path()
                                         + " stopped after 2 of 4 blocks: D0:1@9: no reply; "
                                           "blocks sent: D0:1@1, D9:1@1; perhaps also D0:1@9"}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(controller.ask("get D0"), QStringLiteral("D0=5"));
    QCOMPARE(controller.ask("get D9"), QStringLiteral("D9=6"));
}

void RecipeFailuresTest::longListOfBlocksIsCutShort()
{
    const RecipeFixture fixture;
    const KxsimProcess controller({"--still"});
    fixture.store(SEVEN_ROWS);
    const CommandResult result =
        fixture.run("download", controller.portName(), {"--timeout", "300", "--retries", "1"});
    QCOMPARE(result.errors,
             (QStringList{"kxhost: download of " + fixture.path()
                          + " stopped after 6 of 7 blocks: D0:1@9: no reply; blocks sent: "
                            "D0:1@1, D10:1@1, D20:1@1, D30:1@1, D40:1@1 and 1 more; "
                            "perhaps also D0:1@9"}));
}

void RecipeFailuresTest::jsonHasEveryBlock()
{
    const RecipeFixture fixture;
    const KxsimProcess controller({"--still"});
    fixture.store(SEVEN_ROWS);
    const CommandResult result = fixture.run("download", controller.portName(),
                                             {"--timeout", "300", "--retries", "1", "--json"});
    QCOMPARE(result.output.last(),
             QStringLiteral("{\"blocks\":[\"D0:1@1\",\"D10:1@1\",\"D20:1@1\",\"D30:1@1\","
                            "\"D40:1@1\",\"D50:1@1\"],\"complete\":false,"
                            "\"event\":\"download\",\"failure\":\"D0:1@9: no reply\","
                            "\"maybeSent\":\"D0:1@9\",\"values\":7}"));
    QCOMPARE(result.exitCode, 1);
}

void RecipeFailuresTest::failedUploadLeavesTheFile()
{
    const RecipeFixture fixture;
    const KxsimProcess controller({"--still", "--set", "D0=5"});
    const QByteArray text = "name,station,register,address,type,value\n"
                            "a,1,D,0,uint16,1\nb,9,D,0,uint16,2\n";
    fixture.store(text);
    const CommandResult result =
        fixture.run("upload", controller.portName(), {"--timeout", "300", "--retries", "1"});
    QCOMPARE(result.errors, (QStringList{"kxhost: upload of " + fixture.path()
                                         + " stopped after 1 of 2 blocks: D0:1@9: no reply; "
                                           "the file is unchanged"}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(fixture.stored(), text);
    QCOMPARE(fixture.files(), QStringList{"filling.csv"});
}

void RecipeFailuresTest::lineThatDiesLeavesTheFileAndTheNextCommandWorks_data()
{
    QTest::addColumn<QByteArray>("direction");

    QTest::newRow("download") << QByteArray("download");
    QTest::newRow("upload") << QByteArray("upload");
}

void RecipeFailuresTest::lineThatDiesLeavesTheFileAndTheNextCommandWorks()
{
    const RecipeFixture fixture;
    QFETCH(QByteArray, direction);
    const QString link = fixture.pathOf("line");
    const QStringList options = {"--still", "--symlink", link};
    auto controller = std::make_unique<KxsimProcess>(options + SLOWLY);
    fixture.store(longRecipe());
    QProcess host;
    host.start(QStringLiteral(KX_HOST_PROGRAM),
               {"recipe", direction, fixture.path(), "--port", link});
    while (!host.canReadLine() && host.waitForReadyRead())
        continue;
    QCOMPARE(host.readLine().trimmed(), QByteArray("1/10 D0:32@1"));
    controller.reset();
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitCode(), 1);
    QVERIFY(host.readAllStandardError().startsWith("kxhost: " + direction));
    QCOMPARE(fixture.stored(), longRecipe());

    QFile::remove(link);
    controller = std::make_unique<KxsimProcess>(options);
    QCOMPARE(fixture.run("download", link).exitCode, 0);
    QCOMPARE(fixture.run("upload", link).exitCode, 0);
    QCOMPARE(fixture.stored(), longRecipe());
    QCOMPARE(controller->ask("get D298:3"), QStringLiteral("D298=7,7,0"));
}

void RecipeFailuresTest::interruptLeavesTheFile()
{
    const RecipeFixture fixture;
    const KxsimProcess controller(QStringList{"--still"} + SLOWLY);
    fixture.store(longRecipe());
    QProcess host;
    host.start(QStringLiteral(KX_HOST_PROGRAM),
               {"recipe", "upload", fixture.path(), "--port", controller.portName()});
    while (!host.canReadLine() && host.waitForReadyRead())
        continue;
    QVERIFY(signalProcess(host.processId(), SIGINT));
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 1);
    const QByteArray error = host.readAllStandardError();
    QVERIFY2(error.contains("interrupted; the file is unchanged"), error.constData());
    QCOMPARE(fixture.stored(), longRecipe());
}

void RecipeFailuresTest::fullDiskLeavesTheFile_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("lastLine");

    QTest::newRow("lines") << QStringList() << QByteArray("10/10 D288:12@1");
    QTest::newRow("JSON") << QStringList{"--json"}
                          << QByteArray(R"(: File too large","values":300})");
}

// A limit of one block, 512 bytes, for every file that kxhost writes.
void RecipeFailuresTest::fullDiskLeavesTheFile()
{
    const RecipeFixture fixture;
    QFETCH(QStringList, options);
    QFETCH(QByteArray, lastLine);
    fixture.store(longRecipe());
    const QStringList limited = {"-c",
                                 "trap '' XFSZ; ulimit -f 1; exec \"$0\" \"$@\"",
                                 KX_HOST_PROGRAM,
                                 "recipe",
                                 "upload",
                                 fixture.path(),
                                 "--simulate"};
    QProcess host;
    host.start(QStringLiteral("sh"), limited + options);
    QVERIFY(host.waitForFinished());
    QCOMPARE(QString::fromUtf8(host.readAllStandardError()),
             "kxhost: " + fixture.path() + ": File too large; the file is unchanged\n");
    const QByteArray output = host.readAllStandardOutput().trimmed();
    QVERIFY2(output.endsWith(lastLine), output.constData());
    QCOMPARE(host.exitCode(), 1);
    QCOMPARE(fixture.stored(), longRecipe());
    QCOMPARE(fixture.files(), QStringList{"filling.csv"});
}

void RecipeFailuresTest::missingFileIsNamed()
{
    const RecipeFixture fixture;
    const CommandResult result = fixture.run("upload", QStringLiteral("/dev/null"));
    QCOMPARE(result.errors,
             (QStringList{"kxhost: " + fixture.path() + ": No such file or directory"}));
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(fixture.files(), QStringList());
}

QTEST_GUILESS_MAIN(RecipeFailuresTest)
#include "tst_recipe_failures.moc"
