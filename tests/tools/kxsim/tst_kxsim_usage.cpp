// What kxsim says to wrong and to curious command lines.

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryFile>
#include <QtTest/QTest>

namespace
{

struct Outcome {
    int exitCode;
    QString output;
    QString error;
};

Outcome run(const QStringList& arguments)
{
    QProcess kxsim;
    kxsim.start(QStringLiteral(KXSIM_PROGRAM), arguments);
    const bool ended = kxsim.waitForFinished(10000);
    return {ended ? kxsim.exitCode() : -1, QString::fromUtf8(kxsim.readAllStandardOutput()),
            QString::fromUtf8(kxsim.readAllStandardError())};
}

} // namespace

class KxsimUsageTest : public QObject
{
    Q_OBJECT

private slots:
    void wrongUsageGetsOneLine_data();
    void wrongUsageGetsOneLine();
    void whatIsNoTerminalIsRefused();
    void aFileInTheLinksPlaceIsKept();
    void helpShowsExamplesAndTheOctalTypes();
    void theVersionIsShown();
};

void KxsimUsageTest::wrongUsageGetsOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("names");
    const struct {
        const char* situation;
        const char* arguments;
        int exitCode;
        const char* names;
    } rows[] = {
        {"unknown option", "--bogus", 2,
         "kxsim: unknown option 'bogus'; kxsim --help shows the options"},
        {"option without its value", "--station", 2, "station"},
        {"an argument that is no option", "COM1", 2,
         "unexpected argument 'COM1'; a port is named with --port"},
        {"an option with two values", "--baud 9600 --baud 19200", 2,
         "kxsim: --baud is given twice, as 9600 and as 19200"},
        {"a repeated option with a value that is wrong", "--station 1 -a 2 -a 248", 2,
         "--station 248: the station must be 1 to 247"},
        {"station 0", "--station 0", 2, "1 to 247"},
        {"station 248", "--station 248", 2, "1 to 247"},
        {"a station with a sign", "--station +5", 2, "--station +5: the station must be 1 to 247"},
        {"station not a number", "-a one", 2, "1 to 247"},
        {"a percent sign in the station", "--station %2", 2, "--station %2: the station"},
        {"unknown type", "--set Q1=1", 2, "unknown register type"},
        {"address out of range", "--set D8000=1", 2, "D0 to D7999"},
        {"octal digit 8", "--set X8=1", 2, "octal"},
        {"values past the range", "--set Z15=1,2", 2, "Z15"},
        {"value too large", "--set D1=65536", 2, "65536"},
        {"no value", "--set D1", 2, "not an assignment"},
        {"preset of a station not simulated", "--set D1@2=1", 2, "station 2 is not simulated"},
        {"second preset wrong", "--set D1=1 --set D1=x", 2, "'x'"},
        {"a rate no port has", "--baud 12345", 2, "9600, 19200"},
        {"7 data bits", "--data-bits 7", 2, "--data-bits 7: Modbus RTU needs 8 data bits"},
        {"9 data bits", "--data-bits 9", 2, "--data-bits 9: Modbus RTU needs 8 data bits"},
        {"3 stop bits", "--stop-bits 3", 2, "1, 2"},
        {"unknown parity", "--parity mark", 2, "none, even or odd"},
        {"a link without a name", "--symlink=", 2, "--symlink: the name of the link is missing"},
        {"a link to a port", "--port /dev/null --symlink x", 2, "--symlink"},
        {"unknown fault", "--fault noise:0.1", 2, "'noise' is none of deaf"},
        {"fault that would colour a terminal", "--fault \x1b[31m:0.1", 2,
         "'\uFFFD[31m' is none of deaf"},
        {"fault without a probability", "--fault silence", 2, "KIND:PROBABILITY"},
        {"faults beyond certainty", "--fault silence:0.7 --fault delay:0.7", 2, "more than 1"},
        {"closed line without a link", "--fault close:0.1", 2, "--symlink"},
        {"all faults without a link", "--fault all:0.1", 2, "--symlink"},
        {"seed not a number", "--fault-seed x", 2, "--fault-seed x"},
        {"no delay", "--fault-delay 0", 2, "from 1 to 60000"},
        {"a memory that is not there", "--load /nowhere/m.csv", 2,
         "kxsim: /nowhere/m.csv: No such file or directory"},
        {"a memory without a name", "--load=", 2, "--load: the name of the file is missing"},
        {"a memory in no folder", "--save /nowhere/m.csv", 2,
         "kxsim: --save /nowhere/m.csv: No such file or directory"},
        {"saving without a name", "--save=", 2, "--save: the name of the file is missing"},
        {"an outage without times", "--down 1", 2, "--down 1: write STATION@FROM..TO"},
        {"an outage of another station", "--down 2@1s..2s", 2,
         "--down 2@1s..2s: station 2 is not simulated; add --station 2"},
        {"a timer without a preset", "--timer T5", 2, "--timer T5: write CONTACT=PRESET[/BIT]"},
        {"a timer twice", "--timer T5=1 --timer T5=2", 2, "--timer T5: it has one already"},
        {"a counter of nothing", "--counter C3=5", 2,
         "--counter C3=5: write CONTACT=PRESET/BIT, such as C3=10/X3"},
        {"a wave without a period", "--wave D10=0..5", 2, "--wave D10=0..5: write ADDRESS=FIRST"},
        {"a wave of another station", "--wave D10@2=0..5/1s", 2, "station 2 is not simulated"},
        {"a wave of what is preset", "--set D10=1 --wave D10=0..5/1s", 2,
         "--wave D10: it is preset, or a timer's or counter's"},
        {"turnaround without a unit", "--turnaround 5", 2,
         "--turnaround 5: write a time such as 5ms"},
        {"turnaround backwards", "--turnaround 20..5ms", 2, "the range ends before it begins"},
        {"a pace that is none", "--pace fast", 2, "--pace fast: write bits per second"},
        {"a pace with 7 data bits", "--pace 9600,7E1", 2, "9600 or 19200,8E1"},
        {"a port that is not there", "--port /nowhere/tty", 3, "/nowhere/tty: No such file"},
        {"a link in no folder", "--symlink /nowhere/link", 3, "/nowhere/link"},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation)
            << QString::fromLatin1(row.arguments).split(' ') << row.exitCode << row.names;
}

void KxsimUsageTest::wrongUsageGetsOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, names);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.exitCode, exitCode);
    QCOMPARE(outcome.output, QString());
    QVERIFY2(outcome.error.startsWith(QStringLiteral("kxsim: ")), qPrintable(outcome.error));
    QCOMPARE(outcome.error.indexOf('\n'), outcome.error.size() - 1);
    QVERIFY2(outcome.error.contains(names), qPrintable(outcome.error));
}

void KxsimUsageTest::whatIsNoTerminalIsRefused()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const Outcome outcome = run({"--port", file.fileName()});
    QCOMPARE(outcome.exitCode, 3);
    QVERIFY2(outcome.error.contains(file.fileName()), qPrintable(outcome.error));
}

void KxsimUsageTest::aFileInTheLinksPlaceIsKept()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const Outcome outcome = run({"--symlink", file.fileName()});
    QCOMPARE(outcome.exitCode, 3);
    QVERIFY2(outcome.error.contains(file.fileName()), qPrintable(outcome.error));
    QVERIFY(QFile::exists(file.fileName()));
}

void KxsimUsageTest::helpShowsExamplesAndTheOctalTypes()
{
    for (const char* const option : {"--help", "-h"}) {
        const Outcome outcome = run({QString::fromLatin1(option)});
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.error, QString());
        QVERIFY(outcome.output.startsWith("Usage: kxsim [options]\nSimulated controllers: "));
        for (const char* const words : {"X and Y are octal",
                                        "kxsim --set D100=1234",
                                        "--station",
                                        "--load",
                                        "--save",
                                        "--still",
                                        "--wave",
                                        "--symlink",
                                        "--log",
                                        "--turnaround",
                                        "--pace",
                                        "--fault",
                                        "--fault-seed",
                                        "--fault-delay",
                                        "extra-before",
                                        "--port",
                                        "--baud",
                                        "--parity",
                                        "--data-bits",
                                        "--stop-bits"})
            QVERIFY2(outcome.output.contains(QString::fromLatin1(words)), words);
    }
}

void KxsimUsageTest::theVersionIsShown()
{
    for (const char* const option : {"--version", "-v"}) {
        const Outcome outcome = run({QString::fromLatin1(option)});
        QCOMPARE(outcome.exitCode, 0);
        // As Debian's libmodbus of the day is called.
        const QRegularExpression expected(
            QStringLiteral("^kxsim 1\\.0\\.0\nQt %1\nlibmodbus 3\\.\\d+\\.\\d+\n$")
                .arg(QRegularExpression::escape(qVersion())));
        QVERIFY2(expected.match(outcome.output).hasMatch(), qPrintable(outcome.output));
    }
}

QTEST_GUILESS_MAIN(KxsimUsageTest)

#include "tst_kxsim_usage.moc"
