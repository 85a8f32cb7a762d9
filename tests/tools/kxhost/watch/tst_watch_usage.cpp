#include "tools/kxhost/commands/command_process.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

bool holds(const QStringList& lines, const char* text)
{
    return lines.filter(QString::fromLatin1(text)).size() > 0;
}

} // namespace

class WatchUsageTest : public QObject
{
    Q_OBJECT

private slots:
    void help();
    void helpOfAllCommands();
    void wrongUsage_data();
    void wrongUsage();
    void cannotOpen_data();
    void cannotOpen();
    void aMissingLibraryCanBeNamed();
};

void WatchUsageTest::help()
{
    const CommandResult result = runCommand("watch --help");
    QCOMPARE(result.exitCode, 0);
    QVERIFY(holds(result.output, "Usage: kxhost watch [options] ADDRESS|FILE..."));
    QVERIFY(holds(result.output, "--cycles <COUNT>"));
    QVERIFY(holds(result.output, "  kxhost watch D100:4 M0:8 X10 32CV200 --port /dev/ttyUSB0"));
    QVERIFY(holds(result.output, "X and Y are octal, all other types decimal."));
    QVERIFY(holds(result.output, "a file of"));
    QVERIFY(holds(result.output, "Exit codes: 0 fine, 1 a station failed or the line was lost"));
}

void WatchUsageTest::helpOfAllCommands()
{
    const QStringList help = runCommand("--help").output;
    QVERIFY(holds(help, "  watch      show values as they change"));
    QVERIFY(holds(help, "An address is TYPENUMBER[:COUNT][@STATION]"));
    QVERIFY(holds(help, "X and Y are octal (X10 follows X7), all other types decimal."));
    QVERIFY(holds(help, "Exit codes: 0 fine, 1 a station failed or the line was lost"));
}

void WatchUsageTest::wrongUsage_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* arguments, const char* error) {
        QTest::newRow(name) << QByteArray(arguments)
                            << QString::fromLatin1("kxhost: ") + QString::fromLatin1(error);
    };
    row("unknown command", "wach D0", "unknown command 'wach'; kxhost --help lists the commands");
    row("no address", "watch --simulate",
        "nothing to watch; name addresses such as D100:4, or a tags file");
    row("no line", "watch D0", "no line; name one with --port or --tcp, or use --simulate");
    row("unknown option", "watch D0 --simulate --speed 5",
        "unknown option 'speed'; kxhost watch --help shows the options");
    row("option without its value", "watch D0 --port",
        "missing value after '--port'; kxhost watch --help shows the options");
    row("an option with two values", "watch D0 --simulate --interval 1s --interval 2s",
        "--interval is given twice, as 1s and as 2s");
    row("a short and a long name of an option", "watch D0 --simulate -a 1 --station=1",
        "-a is given twice, as 1 and as 1");
    row("of options that may be repeated, the values count",
        "watch D0 --simulate --fault silence:0.1 --fault delay:2",
        "--fault delay:2: write KIND:PROBABILITY with a probability from 0 to 1, such as "
        "silence:0.01");
    row("unknown type", "watch Q0 --simulate",
        "Q0: unknown register type 'Q'; the types are X, Y, M, SM, S, T, C, D, SD, CV, 32CV, TV, "
        "Z");
    row("octal digit 8", "watch X8 --simulate",
        "X8: '8' is not an octal number; the addresses are X0 to X377 (octal)");
    row("past the highest", "watch D8000 --simulate",
        "D8000: out of range; the addresses are D0 to D7999 (decimal)");
    row("below the lowest", "watch 32CV199 --simulate",
        "32CV199: out of range; the addresses are 32CV200 to 32CV255 (decimal)");
    row("count 0", "watch D0:0 --simulate", "D0:0: the count must be 1 or more");
    row("count past the range", "watch Z10:7 --simulate",
        "Z10:7: 7 values run past the last address; the addresses are Z0 to Z15 (decimal)");
    row("second address wrong", "watch D0 D1@248 --simulate",
        "D1@248: the station must be 1 to 247");
    row("cycles 0", "watch D0 --simulate --cycles 0",
        "--cycles 0: must be a whole number from 1 to 2147483647");
    row("counter in a request of one register", "watch 32CV200 --simulate --max-words 1",
        "32CV200: a 32CV takes 2 registers; raise --max-words, which is 1");
    row("float in a request of one register", "watch D100:2/float --simulate --max-words 1",
        "D100: a value takes 2 registers; raise --max-words, which is 1");
    row("tags file that is not there", "watch --simulate --tags /kx-no-such-file",
        "/kx-no-such-file: No such file or directory");
}

void WatchUsageTest::wrongUsage()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QString, error);
    const CommandResult result = runCommand(arguments.constData());
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.errors, QStringList(error));
    QCOMPARE(result.output, QStringList());
}

void WatchUsageTest::cannotOpen_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("start");
    const auto row = [](const char* name, const char* arguments, const char* start) {
        QTest::newRow(name) << QByteArray(arguments) << QString::fromLatin1(start);
    };
    row("port that is not there", "watch D0 --port /dev/kx-no-such-port",
        "kxhost: /dev/kx-no-such-port: cannot open the port: ");
    row("port that is no terminal", "watch D0 --port /dev/null", "kxhost: /dev/null: ");
    row("gateway that is not there", "watch D0 --tcp 127.0.0.1:1",
        "kxhost: 127.0.0.1:1: cannot connect: ");
    row("library that is not there", "watch D0 --simulate --library /kx-no-such-library.so.1",
        "kxhost: /kx-no-such-library.so.1: cannot load the driver library: ");
    row("library that is none", "watch D0 --simulate --library /dev/null",
        "kxhost: /dev/null: cannot load the driver library: ");
}

void WatchUsageTest::cannotOpen()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QString, start);
    const CommandResult result = runCommand(arguments.constData());
    QCOMPARE(result.exitCode, 3);
    QCOMPARE(result.errors.size(), 1);
    QVERIFY2(result.errors.first().startsWith(start), qPrintable(result.errors.first()));
    QCOMPARE(result.output, QStringList());
}

void WatchUsageTest::aMissingLibraryCanBeNamed()
{
    const CommandResult result = runCommand("registers --library /kx-no-such-library.so.1");
    QCOMPARE(result.exitCode, 3);
    QCOMPARE(result.errors.size(), 1);
    QVERIFY2(result.errors.first().endsWith(QLatin1String("; name its file with --library")),
             qPrintable(result.errors.first()));
}

QTEST_GUILESS_MAIN(WatchUsageTest)
#include "tst_watch_usage.moc"
