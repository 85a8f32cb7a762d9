// `kxhost read` as a process, against a simulated controller as a process.

#include "command_process.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QTemporaryFile>
#include <QtTest/QTest>

using namespace kx;

namespace
{

CommandResult readFrom(const KxsimProcess& controller, const QStringList& arguments)
{
    return runCommand(QStringList{"read", "--port", controller.portName()} + arguments);
}

} // namespace

class ReadCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreShown_data();
    void valuesAreShown();
    void failedRangesAreNamed();
    void resultsAsJson();
    void formatsAsJson();
    void namesOfATagsFileAreShown();
    void longRangesAreCut();
    void framesAreShown();
    void framesSayWhatIsWrong_data();
    void framesSayWhatIsWrong();
    void badInputSendsNothing_data();
    void badInputSendsNothing();
};

void ReadCommandTest::valuesAreShown_data()
{
    QTest::addColumn<QStringList>("presets");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("output");

    QTest::newRow("registers") << QStringList{"D100=1234,65535"} << QStringList{"D100:3"}
                               << QStringList{"1 D100 1234", "1 D101 65535", "1 D102 0"};
    QTest::newRow("formats")
        << QStringList{"D100=0,16712,65534,16706,32"}
        << QStringList{"D100/float",   "D100/u32,high", "D102/s16*0.5,unit=bar",
                       "D103/ascii:1", "D104.5",        "D102/hex"}
        << QStringList{
               "1 D100/float 12.5", "1 D100/u32,high 16712", "1 D102/s16*0.5 -1.0 bar", "1 D103 AB",
               "1 D104.5 1",        "1 D102/hex 0xFFFE"};
    QTest::newRow("values of two registers")
        << QStringList{"D100=0,16712,0,16256"} << QStringList{"D100:2/float"}
        << QStringList{"1 D100 12.5", "1 D102 1"};
    QTest::newRow("octal inputs") << QStringList{"X7=1,0,1"} << QStringList{"X7:3"}
                                  << QStringList{"1 X7 1", "1 X10 0", "1 X11 1"};
    QTest::newRow("several ranges in their order")
        << QStringList{"D1=5", "M0=1"} << QStringList{"M0", "D1"}
        << QStringList{"1 M0 1", "1 D1 5"};
    QTest::newRow("second SD range") << QStringList{"SD255=1,2"} << QStringList{"SD255:2"}
                                     << QStringList{"1 SD255 1", "1 SD256 2"};
    QTest::newRow("second SM range") << QStringList{"SM255=1,1"} << QStringList{"SM254:3"}
                                     << QStringList{"1 SM254 0", "1 SM255 1", "1 SM256 1"};
    QTest::newRow("32CV in several requests of an odd limit")
        << QStringList{"32CV200=1,2,3,100000"} << QStringList{"32CV200:4", "--max-words", "3"}
        << QStringList{"1 32CV200 1", "1 32CV201 2", "1 32CV202 3", "1 32CV203 100000"};
    QTest::newRow("coils in several requests")
        << QStringList{"M7=1,1"} << QStringList{"M6:4", "--max-words", "1"}
        << QStringList{"1 M6 0", "1 M7 1", "1 M8 1", "1 M9 0"};
}

void ReadCommandTest::valuesAreShown()
{
    QFETCH(QStringList, presets);
    QFETCH(QStringList, arguments);
    QStringList options{"--still"};
    for (const QString& preset : presets)
        options << "--set" << preset;
    const KxsimProcess controller(options);
    const CommandResult result = readFrom(controller, arguments);
    QCOMPARE(result.errors, QStringList());
    QTEST(result.output, "output");
    QCOMPARE(result.exitCode, 0);
}

void ReadCommandTest::failedRangesAreNamed()
{
    const KxsimProcess controller({"--still", "--set", "D1=5"});
    const CommandResult result =
        readFrom(controller, {"D0:40@9", "D1", "--timeout", "300", "--retries", "2"});
    QCOMPARE(result.output, (QStringList{"1 D1 5"}));
    QCOMPARE(result.errors, (QStringList{"kxhost: D0:40@9: no reply"}));
    QCOMPARE(result.exitCode, 1);
}

void ReadCommandTest::resultsAsJson()
{
    const KxsimProcess controller({"--still", "--set", "D1=5"});
    const CommandResult result =
        readFrom(controller, {"D1:2", "Y17@9", "--json", "--timeout", "300"});
    QCOMPARE(result.output,
             (QStringList{R"({"address":"D1","count":2,"event":"read","station":1,)"
                          R"("values":[5,0]})",
                          R"({"address":"Y17","count":1,"event":"read","failure":"no reply",)"
                          R"("station":9})"}));
    QCOMPARE(result.exitCode, 1);
}

void ReadCommandTest::formatsAsJson()
{
    const KxsimProcess controller({"--still", "--set", "D1=0,16712,0,32704"});
    const CommandResult result = readFrom(
        controller, {"D1:2/float,unit=bar", "D2.6", "D7:2@9/double", "--json", "--timeout", "300"});
    QCOMPARE(result.output,
             (QStringList{R"({"address":"D1","count":2,"event":"read","format":"float",)"
                          R"("raw":[0,16712,0,32704],"station":1,"unit":"bar",)"
                          R"("values":[12.5,"nan"]})",
                          R"({"address":"D2.6","count":1,"event":"read","raw":[16712],)"
                          R"("station":1,"values":[1]})",
                          R"({"address":"D7","count":2,"event":"read","failure":"no reply",)"
                          R"("format":"double","station":9})"}));
    const CommandResult text = readFrom(controller, {"D7:2@9/double", "--timeout", "300"});
    QCOMPARE(text.errors, QStringList{"kxhost: D7:2@9: no reply"});
}

void ReadCommandTest::namesOfATagsFileAreShown()
{
    QTemporaryFile tags;
    QVERIFY(tags.open());
    QVERIFY(tags.write("name,station,address,count,comment\nPump %3,,D1,2\nLamp,9,Y17\n") > 0);
    tags.close();
    const KxsimProcess controller({"--still", "--set", "D1=5"});
    const QStringList arguments{tags.fileName(), "D1", "--timeout", "300"};
    const CommandResult text = readFrom(controller, arguments);
    QCOMPARE(text.output, (QStringList{"1 D1 (Pump %3) 5", "1 D2 (Pump %3) 0", "1 D1 5"}));
    QCOMPARE(text.errors, (QStringList{"kxhost: Y17@9 (Lamp): no reply"}));
    const CommandResult json = readFrom(controller, arguments + QStringList{"--json"});
    QCOMPARE(json.output,
             (QStringList{R"({"address":"D1","count":2,"event":"read","name":"Pump %3",)"
                          R"("station":1,"values":[5,0]})",
                          R"({"address":"Y17","count":1,"event":"read","failure":"no reply",)"
                          R"("name":"Lamp","station":9})",
                          R"({"address":"D1","count":1,"event":"read","station":1,)"
                          R"("values":[5]})"}));
}

void ReadCommandTest::longRangesAreCut()
{
    KxsimProcess controller({"--still", "--set", "D99=9", "--log"});
    const CommandResult result = readFrom(controller, {"D0:100", "--max-words", "32"});
    QCOMPARE(result.output.size(), 100);
    QCOMPARE(result.output.last(), QStringLiteral("1 D99 9"));
    controller.ask("get D0"); // what kxsim logged has arrived with its answer
    // Requests of 32, 32, 32 and 4 registers (hexadecimal 20 and 04).
    const QString log = controller.errorOutput().toUpper();
    QCOMPARE(log.count(QStringLiteral("01 03 00 00 00 20")), 1);
    QCOMPARE(log.count(QStringLiteral("01 03 00 20 00 20")), 1);
    QCOMPARE(log.count(QStringLiteral("01 03 00 40 00 20")), 1);
    QCOMPARE(log.count(QStringLiteral("01 03 00 60 00 04")), 1);
}

void ReadCommandTest::framesAreShown()
{
    const KxsimProcess controller({"--still", "--set", "D100=1234"});
    const CommandResult result = readFrom(controller, {"D100", "--frames"});
    QCOMPARE(result.output.size(), 3);
    QVERIFY2(result.output.at(0).endsWith(QStringLiteral(
                 "request station 01, function 03, address 00 64, quantity 00 01, CRC C5 D5")),
             qPrintable(result.output.at(0)));
    QCOMPARE(result.output.at(2), QStringLiteral("1 D100 1234"));
}

void ReadCommandTest::framesSayWhatIsWrong_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("row"); // of the reply, behind its time
    const auto row = [](const char* fault, const char* text) {
        QTest::newRow(fault) << QString::fromLatin1(fault) << QString::fromLatin1(text);
    };
    // What is damaged, and where, follows from the seed. Station, function, byte count, value, CRC.
    row("corrupt",
        "01 03 02 04 D2 32 D9: CRC 32 D9 instead of 3A D9: bad reply, failed: 7,1,100,D");
    row("truncate", "01: cut short: 1 of 7 bytes: short reply, failed: 1,1,100,D");
    row("other-station", "station 02, function 03, byte count 02, data 04 D2, CRC 7E D9: "
                         "reply of station 2: reply of another request, failed: 0,1,100,D");
    row("exception", "station 01, function 83, exception 06, CRC C1 32: "
                     "exception 6 (busy), failed: 5,1,100,D");
    row("echo", "01 03 00 64 00 01 C5 D5 01 03 02 04 D2 3A D9: "
                "echo of the request, then the reply: good, accepted");
}

void ReadCommandTest::framesSayWhatIsWrong()
{
    QFETCH(QString, fault);
    QFETCH(QString, row);
    const KxsimProcess controller(
        {"--still", "--set", "D100=1234", "--fault", fault + ":1", "--fault-seed", "5"});
    const CommandResult result =
        readFrom(controller, {"D100", "--frames", "--retries", "1", "--timeout", "300"});
    QVERIFY2(result.output.value(1).endsWith(QStringLiteral(" reply   ") + row),
             qPrintable(result.output.join('\n')));
}

void ReadCommandTest::badInputSendsNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    QTest::newRow("nothing")
        << QStringList{}
        << "kxhost: nothing to read; name addresses such as D100:4, or a tags file";
    QTest::newRow("one bad address among good ones")
        << QStringList{"D1", "X8"}
        << "kxhost: X8: '8' is not an octal number; the addresses are X0 to X377 (octal)";
    QTest::newRow("32CV in requests of one register")
        << QStringList{"D1", "32CV200", "--max-words", "1"}
        << "kxhost: 32CV200: a 32CV takes 2 registers; raise --max-words, which is 1";
}

void ReadCommandTest::badInputSendsNothing()
{
    QFETCH(QStringList, arguments);
    KxsimProcess controller({"--still", "--log"});
    const CommandResult result = readFrom(controller, arguments);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors.size(), 1);
    QTEST(result.errors.first(), "error");
    controller.ask("get D1");
    QCOMPARE(controller.errorOutput(), QString());
}

QTEST_GUILESS_MAIN(ReadCommandTest)
#include "tst_read_command.moc"
