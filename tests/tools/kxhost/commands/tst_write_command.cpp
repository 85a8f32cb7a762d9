// `kxhost write` as a process, against a simulated controller as a process.

#include "command_process.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QTemporaryFile>
#include <QtTest/QTest>

#include <algorithm>

using namespace kx;

namespace
{

QString runOf(const char* value, int count)
{
    QStringList values;
    std::fill_n(std::back_inserter(values), count, QString::fromLatin1(value));
    return values.join(QLatin1Char(','));
}

CommandResult writeTo(const KxsimProcess& controller, const QStringList& arguments)
{
    return runCommand(QStringList{"write", "--port", controller.portName()} + arguments);
}

} // namespace

class WriteCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesArrive_data();
    void valuesArrive();
    void oneRefusalDoesNotKeepTheOthersBack();
    void stationsAreKeptApart();
    void resultsAsJson();
    void anotherMasterReadsWhatWasWritten();
    void namesAndFormats();
    void badInputSendsNothing_data();
    void badInputSendsNothing();
    void aControllerInside();
};

void WriteCommandTest::valuesArrive_data()
{
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("answer"); ///< one address more than was written

    QTest::newRow("register") << "D100=1234" << 32 << "get D100:2"
                              << "D100=1234,0";
    QTest::newRow("hexadecimal and negative") << "D100=0xFFFE,-1" << 32 << "get D100:3"
                                              << "D100=65534,65535,0";
    QTest::newRow("octal output") << "Y17=1" << 32 << "get Y16:3"
                                  << "Y16=0,1,0";
    QTest::newRow("coils with gaps") << "M0=1,0,1,1" << 32 << "get M0:5"
                                     << "M0=1,0,1,1,0";
    QTest::newRow("eight coils") << "M0=" + runOf("1", 8) << 32 << "get M0:9"
                                 << "M0=" + runOf("1", 8) + ",0";
    QTest::newRow("sixteen coils") << "S0=" + runOf("1", 16) << 32 << "get S0:17"
                                   << "S0=" + runOf("1", 16) + ",0";
    QTest::newRow("more coils than one request carries")
        << "M0=" + runOf("1", 40) << 1 << "get M0:41"
        << "M0=" + runOf("1", 40) + ",0";
    QTest::newRow("both M ranges") << "M2047=1,1" << 32 << "get M2047:3"
                                   << "M2047=1,1,0";
    QTest::newRow("both SM ranges") << "SM255=1,1" << 32 << "get SM255:3"
                                    << "SM255=1,1,0";
    QTest::newRow("both SD ranges") << "SD254=1,2,3,4" << 32 << "get SD254:5"
                                    << "SD254=1,2,3,4,0";
    // 12.5 is 0x41480000 and 1 is 0x3F800000, the low word first.
    QTest::newRow("floats") << "D100/float=12.5,1" << 32 << "get D100:5"
                            << "D100=0,16712,0,16256,0";
    QTest::newRow("64 bits in requests of seven registers")
        << "D100/u64=1,2,3" << 7 << "get D100:12"
        << "D100=1,0,0,0,2,0,0,0,3,0,0,0";
    QTest::newRow("text") << "D100/ascii:2=ABC" << 32 << "get D100:3"
                          << "D100=16706,17152,0";
    QTest::newRow("a scale") << "D100/s16*0.1+5=-12.5" << 32 << "get D100:2"
                             << "D100=65361,0";
    QTest::newRow("32CV") << "32CV200=100000,-1" << 32 << "get 32CV200:3"
                          << "32CV200=100000,4294967295,0";
    QTest::newRow("32CV in several requests of an odd limit")
        << "32CV200=1,2,3,4,5" << 5 << "get 32CV200:6"
        << "32CV200=1,2,3,4,5,0";
    QTest::newRow("more registers than a Modbus write carries")
        << "D0=" + runOf("7", 125) << 125 << "get D0:126"
        << "D0=" + runOf("7", 125) + ",0";
}

void WriteCommandTest::valuesArrive()
{
    QFETCH(QString, assignment);
    QFETCH(int, maxWords);
    QFETCH(QString, question);
    KxsimProcess controller({"--still"});
    const CommandResult result =
        writeTo(controller, {assignment, "--max-words", QString::number(maxWords)});
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.size(), 1);
    QVERIFY2(result.output.first().endsWith(QStringLiteral(" confirmed")),
             qPrintable(result.output.first()));
    QTEST(controller.ask(question), "answer");
}

void WriteCommandTest::oneRefusalDoesNotKeepTheOthersBack()
{
    KxsimProcess controller({"--still"});
    const CommandResult result =
        writeTo(controller, {"D1=5", "D2@9=6", "D3=-7", "--timeout", "300", "--retries", "1"});
    QCOMPARE(result.output,
             (QStringList{"1 D1=5 confirmed", "9 D2=6 failed: no reply", "1 D3=-7 confirmed"}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(controller.ask("get D1:3"), QStringLiteral("D1=5,0,65529"));
}

void WriteCommandTest::stationsAreKeptApart()
{
    KxsimProcess controller({"--still", "--station", "1", "--station", "2"});
    QCOMPARE(writeTo(controller, {"D5@1=10", "D5=20", "--station", "2"}).exitCode, 0);
    QCOMPARE(controller.ask("get D5@1"), QStringLiteral("D5@1=10"));
    QCOMPARE(controller.ask("get D5@2"), QStringLiteral("D5@2=20"));
}

void WriteCommandTest::resultsAsJson()
{
    KxsimProcess controller({"--still"});
    const CommandResult result =
        writeTo(controller, {"D1=5,-6", "M0@9=1", "--json", "--timeout", "300"});
    QCOMPARE(result.output,
             (QStringList{R"({"address":"D1","confirmed":2,"event":"write","station":1,)"
                          R"("values":[5,-6]})",
                          R"({"address":"M0","confirmed":0,"event":"write","failure":"no reply",)"
                          R"("station":9,"values":[1]})"}));
    QCOMPARE(result.exitCode, 1);
}

// mbpoll is another Modbus master; the numbers are the controller's Modbus numbers.
void WriteCommandTest::anotherMasterReadsWhatWasWritten()
{
    KxsimProcess controller({"--still"});
    QCOMPARE(writeTo(controller, {"D100=1234,65535", "M0=" + runOf("1", 8), "32CV200=305419896"})
                 .exitCode,
             0);
    const auto poll = [&](const char* type, int first, int count) {
        QProcess process;
        process.start(QStringLiteral("mbpoll"),
                      {"-m", "rtu", "-a", "1", "-b", "9600", "-P", "none", "-0", "-1", "-t", type,
                       "-r", QString::number(first), "-c", QString::number(count),
                       controller.portName()});
        if (!process.waitForFinished())
            return QStringLiteral("mbpoll does not run: ") + process.errorString();
        QStringList values;
        for (const QString& line : QString::fromLatin1(process.readAll()).split('\n')) {
            if (line.startsWith(QLatin1Char('[')))
                values << line.simplified();
        }
        return values.join(QLatin1Char(' '));
    };
    QCOMPARE(poll("4:hex", 100, 2), QStringLiteral("[100]: 0x04D2 [101]: 0xFFFF"));
    QCOMPARE(poll("0", 2000, 9),
             QStringLiteral("[2000]: 1 [2001]: 1 [2002]: 1 [2003]: 1 [2004]: 1 [2005]: 1 "
                            "[2006]: 1 [2007]: 1 [2008]: 0"));
    // 32CV200 is 0x12345678, high word at the lower register.
    QCOMPARE(poll("4:hex", 9700, 2), QStringLiteral("[9700]: 0x1234 [9701]: 0x5678"));
}

void WriteCommandTest::namesAndFormats()
{
    QTemporaryFile tags;
    QVERIFY(tags.open());
    QVERIFY(tags.write("name,address,format,scale,unit,max\n"
                       "speed,D10,s16,0.1,m/s,50\nlevel,D20,float,,,\n")
            > 0);
    tags.close();
    KxsimProcess controller({"--still", "--set", "D30=0x8001"});
    const QStringList arguments = {"speed=12.5",       "level=-0",   "D30.5=1",
                                   "D40/float,high=1", "--tags",     tags.fileName(),
                                   "--word-order",     "low,swapped"};
    const CommandResult text = writeTo(controller, arguments);
    QCOMPARE(text.errors, QStringList());
    QCOMPARE(text.output,
             (QStringList{"1 D10 (speed)=12.5 m/s confirmed", "1 D20 (level)=-0 confirmed",
                          "1 D30.5=1 confirmed; all of D30 was written as 0x8021",
                          "1 D40=1 confirmed"}));
    QCOMPARE(controller.ask("get D10"), QStringLiteral("D10=125"));
    // -0 is 0x80000000; the bytes of its words are swapped.
    QCOMPARE(controller.ask("get D20:2"), QStringLiteral("D20=0,128"));
    QCOMPARE(controller.ask("get D30"), QStringLiteral("D30=32801"));
    QCOMPARE(controller.ask("get D40:2"), QStringLiteral("D40=16256,0"));
    const CommandResult json = writeTo(controller, arguments + QStringList{"--json"});
    QCOMPARE(json.output,
             (QStringList{
                 R"({"address":"D10","confirmed":1,"event":"write","format":"s16*0.1,max=50",)"
                 R"("name":"speed","raw":[125],"station":1,"unit":"m/s","values":[12.5]})",
                 R"({"address":"D20","confirmed":1,"event":"write","format":"float,low,swapped",)"
                 R"("name":"level","raw":[0,128],"station":1,"values":["-0"]})",
                 R"({"address":"D30.5","confirmed":1,"event":"write","raw":[32801],"station":1,)"
                 R"("values":[1]})",
                 R"({"address":"D40","confirmed":1,"event":"write","format":"float,high",)"
                 R"("raw":[16256,0],"station":1,"values":[1]})"}));
    QCOMPARE(json.exitCode, 0);
}

void WriteCommandTest::badInputSendsNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    QTest::newRow("nothing") << QStringList{}
                             << "kxhost: nothing to write; name assignments such as D100=1234";
    QTest::newRow("input") << QStringList{"D1=5", "X17=1"}
                           << "kxhost: X17=1: X17 is an input and cannot be written";
    QTest::newRow("value too large")
        << QStringList{"D1=5", "D2=65536"}
        << "kxhost: D2=65536: 65536 does not fit; D takes -32768 to 65535";
    QTest::newRow("no assignment")
        << QStringList{"D1=5", "D2"}
        << "kxhost: D2: not an assignment; write ADDRESS=VALUE[,VALUE...], such as D100=1234";
    QTest::newRow("a bit of a timer")
        << QStringList{"D1=5", "TV2.3=1"}
        << "kxhost: TV2.3=1: TV2.3 cannot be written; the bits of TV change by themselves between "
           "the read and the write of the word, so write all of it";
    QTest::newRow("a value longer than a request")
        << QStringList{"D1=5", "D2/u64=1", "--max-words", "3"}
        << "kxhost: D2/u64=1: a value takes 4 registers; raise --max-words, which is 3";
    QTest::newRow("a wrong order of words")
        << QStringList{"D1=5", "--word-order", "big"}
        << "kxhost: --word-order big: must be low, high, swapped, 'low swapped' or 'high swapped'";
    QTest::newRow("32CV in requests of one register")
        << QStringList{"D1=5", "32CV200=1", "--max-words", "1"}
        << "kxhost: 32CV200=1: a 32CV takes 2 registers; raise --max-words, which is 1";
}

void WriteCommandTest::badInputSendsNothing()
{
    QFETCH(QStringList, arguments);
    KxsimProcess controller({"--still", "--log"});
    const CommandResult result = writeTo(controller, arguments);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors.size(), 1);
    QTEST(result.errors.first(), "error");
    QCOMPARE(controller.ask("get D1"), QStringLiteral("D1=0"));
    QCOMPARE(controller.errorOutput(), QString());
}

void WriteCommandTest::aControllerInside()
{
    const CommandResult result = runCommand("write D100=1 D100@3=2 --simulate");
    QCOMPARE(result.output, (QStringList{"1 D100=1 confirmed", "3 D100=2 confirmed"}));
    QCOMPARE(result.exitCode, 0);
}

QTEST_GUILESS_MAIN(WriteCommandTest)
#include "tst_write_command.moc"
