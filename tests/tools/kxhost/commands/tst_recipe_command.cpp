// `kxhost recipe` as a process, against a simulated controller as a process.

#include "recipe_fixture.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const char RECIPE[] = "# Start values, \"as built\n"
                      "name,station,register,address,type,value\n"
                      "Speed,1,D,100,uint16,1234\n"
                      "Length,,D,101,uint32,100000\n"
                      "Offset,1,D,103,int16,-5\n"
                      "\n"
                      "Mode,1,SD,255,hex16,0xBEEF\n"
                      "Mode 2,1,SD,256,hex16, \"0x1\" \n"
                      "\"Belt, left\",1,Y,17,bit,1\n"
                      "M0,1,M,0,bit,1\nM1,1,M,1,bit,0\nM2,1,M,2,bit,1\nM3,1,M,3,bit,1\n"
                      "M4,1,M,4,bit,0\nM5,1,M,5,bit,0\nM6,1,M,6,bit,1\nM7,1,M,7,bit,1\n"
                      "Total,1,32CV,200,uint32,100000\n"
                      "Rest,1,32CV,202,int32,-1\n"
                      "Other,2,TV,7,uint16,70";

const QStringList BOTH_STATIONS = {"--still", "--station", "1", "--station", "2"};

} // namespace

class RecipeCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void downloadedValuesArrive();
    void downloadedAndUploadedIsTheSameFile();
    void uploadFillsInValues();
    void formatsAndNamesOfTags();
    void valuesAreNotCut();
    void holesAreNotWritten();
    void progressAsJson();
    void barOnATerminal();
    void badInputSendsNothing_data();
    void badInputSendsNothing();
};

void RecipeCommandTest::downloadedValuesArrive()
{
    const RecipeFixture fixture;
    KxsimProcess controller(BOTH_STATIONS);
    fixture.store(RECIPE);
    const CommandResult result = fixture.run("download", controller.portName());
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output,
             (QStringList{"1/9 Y17:1@1", "2/9 M0:1@1", "3/9 32CV200:1@1", "4/9 M1:7@1",
                          "5/9 32CV202:1@1", "6/9 D100:4@1", "7/9 SD255:1@1", "8/9 SD256:1@1",
                          "9/9 TV7:1@2", "17 values downloaded in 9 blocks"}));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(controller.ask("get D100:5@1"), QStringLiteral("D100@1=1234,34464,1,65531,0"));
    QCOMPARE(controller.ask("get SD254:4@1"), QStringLiteral("SD254@1=0,48879,1,0"));
    QCOMPARE(controller.ask("get Y16:3@1"), QStringLiteral("Y16@1=0,1,0"));
    QCOMPARE(controller.ask("get M0:9@1"), QStringLiteral("M0@1=1,0,1,1,0,0,1,1,0"));
    QCOMPARE(controller.ask("get 32CV200:4@1"), QStringLiteral("32CV200@1=100000,0,4294967295,0"));
    QCOMPARE(controller.ask("get TV7@2"), QStringLiteral("TV7@2=70"));
    QCOMPARE(controller.ask("get TV7@1"), QStringLiteral("TV7@1=0"));
}

void RecipeCommandTest::downloadedAndUploadedIsTheSameFile()
{
    const RecipeFixture fixture;
    const KxsimProcess controller(BOTH_STATIONS);
    fixture.store(RECIPE);
    QCOMPARE(fixture.run("download", controller.portName()).exitCode, 0);
    QCOMPARE(fixture.run("upload", controller.portName()).exitCode, 0);
    QCOMPARE(fixture.stored(), QByteArray(RECIPE));
}

void RecipeCommandTest::uploadFillsInValues()
{
    const RecipeFixture fixture;
    const KxsimProcess controller({"--still", "--set", "D100=1,2,3,65535", "--set", "X10=1,0,1",
                                   "--set", "32CV254=5,4294967295"});
    fixture.store("name,station,register,address,type,value\n"
                  "a,1,D,100,hex16,\n"
                  "b,1,D,101,uint32, 9 \n"
                  "c,1,D,103,int16,x\n"
                  "d,1,X,10,bit,\ne,1,X,11,bit,1\nf,1,X,12,bit,\n"
                  "g,1,32CV,254,uint32,\nh,1,32CV,255,int32,0\n");
    QCOMPARE(fixture.run("upload", controller.portName()).errors,
             (QStringList{"kxhost: " + fixture.path()
                          + ": line 4: 'x' is not a decimal or 0x hexadecimal number"}));
    fixture.store(fixture.stored().replace("x\n", "\n"));
    const CommandResult result = fixture.run("upload", controller.portName());
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(fixture.stored(), QByteArray("name,station,register,address,type,value\n"
                                          "a,1,D,100,hex16,0x0001\n"
                                          "b,1,D,101,uint32, 196610 \n" // 3 * 65536 + 2
                                          "c,1,D,103,int16,-1\n"
                                          "d,1,X,10,bit,1\ne,1,X,11,bit,0\nf,1,X,12,bit,1\n"
                                          "g,1,32CV,254,uint32,5\nh,1,32CV,255,int32,-1\n"));
}

void RecipeCommandTest::formatsAndNamesOfTags()
{
    const RecipeFixture fixture;
    KxsimProcess controller({"--still"});
    QFile tags(fixture.pathOf("tags.csv"));
    QVERIFY(tags.open(QIODevice::WriteOnly));
    tags.write("name,address,format,scale,offset,min,max\nPressure,D110,s16,0.1,5,0,16\n");
    tags.close();
    const QByteArray recipe = "name,address,format,order,value\n"
                              "Pressure,,,,12.5\n"
                              "Flow,D111,float,,0.1\n"     // 0x3DCCCCCD
                              "Total,D113,double,low,-0\n" // the sign bit alone
                              "Batch,D117,ascii:2,,\"a,b\"\n"
                              "Lamp,Y17,,,1\nCount,32CV200,s32,,-1\n";
    fixture.store(recipe);
    const QStringList options = {"--tags", fixture.pathOf("tags.csv"), "--word-order", "high"};
    const CommandResult result = fixture.run("download", controller.portName(), options);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(controller.ask("get D110:9"),
             QStringLiteral("D110=75,15820,52429,0,0,0,32768,24876,25088"));
    QCOMPARE(controller.ask("get Y17"), QStringLiteral("Y17=1"));
    QCOMPARE(controller.ask("get 32CV200"), QStringLiteral("32CV200=4294967295"));
    QCOMPARE(fixture.run("upload", controller.portName(), options).exitCode, 0);
    QCOMPARE(fixture.stored(), recipe);
    controller.ask("set D110=65535,17076,39322,0,0,0,16424,8224,0");
    QCOMPARE(fixture.run("upload", controller.portName(), options).exitCode, 0);
    QCOMPARE(fixture.stored(), QByteArray("name,address,format,order,value\n"
                                          "Pressure,,,,4.9\n"
                                          "Flow,D111,float,,90.3\n" // 0x42B4999A
                                          "Total,D113,double,low,12\n"
                                          "Batch,D117,ascii:2,,\"  \"\n"
                                          "Lamp,Y17,,,1\nCount,32CV200,s32,,-1\n"));
}

void RecipeCommandTest::valuesAreNotCut()
{
    const RecipeFixture fixture;
    KxsimProcess controller({"--still"});
    fixture.store("address,format,value\nD0,u16,1\nD1,float,12.5\nD3,float,-1\nD5,u32,7\n");
    const QStringList options = {"--max-words", "4"};
    for (const char* const direction : {"download", "upload"}) {
        const CommandResult result = fixture.run(direction, controller.portName(), options);
        QCOMPARE(result.output.mid(0, 2), (QStringList{"1/2 D0:3@1", "2/2 D3:4@1"}));
        QCOMPARE(result.exitCode, 0);
    }
    QCOMPARE(controller.ask("get D0:7"), QStringLiteral("D0=1,0,16712,0,49024,7,0"));
    QCOMPARE(fixture.stored(),
             QByteArray("address,format,value\nD0,u16,1\nD1,float,12.5\nD3,float,-1\nD5,u32,7\n"));
    QCOMPARE(fixture.run("download", controller.portName(), {"--max-words", "1"}).errors,
             QStringList{"kxhost: " + fixture.path()
                         + ": line 3: a value takes 2 registers; raise --max-words, which is 1"});
}

void RecipeCommandTest::holesAreNotWritten()
{
    const RecipeFixture fixture;
    KxsimProcess controller({"--still", "--set", "32CV201=11", "--set", "D1=12", "--set", "M1=1"});
    fixture.store(
        "name,station,register,address,type,value\n"
        "a,1,32CV,200,uint32,1\nb,1,32CV,202,uint32,2\nc,1,D,0,uint16,3\nd,1,D,2,uint16,4\n"
        "e,1,M,0,bit,1\nf,1,M,2,bit,1\n");
    QCOMPARE(fixture.run("download", controller.portName()).exitCode, 0);
    QCOMPARE(controller.ask("get 32CV200:4"), QStringLiteral("32CV200=1,11,2,0"));
    QCOMPARE(controller.ask("get D0:4"), QStringLiteral("D0=3,12,4,0"));
    QCOMPARE(controller.ask("get M0:4"), QStringLiteral("M0=1,1,1,0"));
}

void RecipeCommandTest::progressAsJson()
{
    const RecipeFixture fixture;
    const KxsimProcess controller({"--still"});
    fixture.store("name,station,register,address,type,value\na,1,D,0,uint16,1\nb,1,D,5,uint16,1\n");
    const CommandResult result = fixture.run("download", controller.portName(), {"--json"});
    QCOMPARE(result.output,
             (QStringList{R"({"block":"D0:1@1","blocks":2,"done":1,"event":"block"})",
                          R"({"block":"D5:1@1","blocks":2,"done":2,"event":"block"})",
                          R"({"blocks":["D0:1@1","D5:1@1"],"complete":true,)"
                          R"("event":"download","values":2})"}));
    QCOMPARE(result.exitCode, 0);
}

// script(1) gives the command a terminal.
void RecipeCommandTest::barOnATerminal()
{
    const RecipeFixture fixture;
    const KxsimProcess controller({"--still"});
    fixture.store("name,station,register,address,type,value\na,1,D,0,uint16,1\nb,1,D,5,uint16,1\n");
    QProcess terminal;
    terminal.start(QStringLiteral("script"),
                   {"-qec",
                    QStringLiteral("%1 recipe download %2 --port %3")
                        .arg(QLatin1String(KX_HOST_PROGRAM), fixture.path(), controller.portName()),
                    "/dev/null"});
    QVERIFY2(terminal.waitForFinished(), qPrintable(terminal.errorString()));
    QCOMPARE(terminal.readAll(), "\r[" + QByteArray(20, '#') + QByteArray(20, '.')
                                     + "] 1/2 blocks\r[" + QByteArray(40, '#')
                                     + "] 2/2 blocks\r\n2 values downloaded in 2 blocks\r\n");
    QCOMPARE(terminal.exitCode(), 0);
}

void RecipeCommandTest::badInputSendsNothing_data()
{
    QTest::addColumn<QByteArray>("direction");
    QTest::addColumn<QByteArray>("rows"); ///< after the header
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("error"); ///< %1 is the file

    const QStringList none;
    QTest::newRow("no direction") << QByteArray("send") << QByteArray("a,1,D,1,uint16,5\n") << none
                                  << "write recipe download FILE.csv or recipe upload FILE.csv";
    QTest::newRow("two files") << QByteArray("upload") << QByteArray("a,1,D,1,uint16,5\n")
                               << QStringList{"x.csv"}
                               << "recipe upload takes one file; write recipe upload FILE.csv";
    QTest::newRow("a bad row among good ones")
        << QByteArray("download") << QByteArray("a,1,D,1,uint16,5\nb,1,D,8000,uint16,5\n") << none
        << "%1: line 3: D8000@1: out of range; the addresses are D0 to D7999 (decimal)";
    QTest::newRow("no value") << QByteArray("download")
                              << QByteArray("a,1,D,1,uint16,5\nb,1,D,2,uint16,\n") << none
                              << "%1: line 3 (b): no value for D2";
    QTest::newRow("a bit of a word")
        << QByteArray("download") << QByteArray("a,1,D,1,uint16,5\nb,1,D,2.5,bit,1\n") << none
        << "%1: line 3: D2.5 is one bit of a word, and a recipe holds whole values; take D2 with "
           "format bin or hex";
    QTest::newRow("a tags file that is not there")
        << QByteArray("download") << QByteArray("a,1,D,1,uint16,5\n")
        << QStringList{"--tags", "/no.csv"} << "/no.csv: No such file or directory";
    QTest::newRow("input") << QByteArray("download")
                           << QByteArray("a,1,D,1,uint16,5\nb,1,X,7,bit,1\n") << none
                           << "%1: line 3 (b): X7 is an input and cannot be written";
    QTest::newRow("two values for one register")
        << QByteArray("download") << QByteArray("a,1,D,1,uint16,5\nb,1,D,1,uint16,6\n") << none
        << "%1: line 2 (a) and line 3 (b) give D1@1 different values: 5 and 6";
    QTest::newRow("cannot be laid out")
        << QByteArray("upload") << QByteArray("a,1,D,1,uint16,5\nb,1,32CV,200,uint32,6\n")
        << QStringList{"--max-words", "1"}
        << "%1: line 3 (b): a 32CV takes 2 registers; raise --max-words, which is 1";
}

void RecipeCommandTest::badInputSendsNothing()
{
    const RecipeFixture fixture;
    QFETCH(QByteArray, direction);
    QFETCH(QByteArray, rows);
    QFETCH(QStringList, options);
    QFETCH(QString, error);
    KxsimProcess controller({"--still", "--log"});
    const QByteArray text = "name,station,register,address,type,value\n" + rows;
    fixture.store(text);
    const CommandResult result = fixture.run(direction.constData(), controller.portName(), options);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors, (QStringList{"kxhost: " + error.replace("%1", fixture.path())}));
    QCOMPARE(fixture.stored(), text);
    QCOMPARE(controller.ask("get D1"), QStringLiteral("D1=0"));
    QCOMPARE(controller.errorOutput(), QString());
}

QTEST_GUILESS_MAIN(RecipeCommandTest)
#include "tst_recipe_command.moc"
