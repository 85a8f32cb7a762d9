// Asking and changing the memory of simulated controllers line by line.

#include "kxsim/service/commands.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using kxsim::runCommand;
using kxsim::Stations;

namespace
{

QString run(Stations* stations, const char* line)
{
    return runCommand(QString::fromLatin1(line), stations);
}

} // namespace

class CommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void aGetTellsWhatWasSet_data();
    void aGetTellsWhatWasSet();
    void aWrongLineIsAnsweredWithOneErrorLine_data();
    void aWrongLineIsAnsweredWithOneErrorLine();
    void stationsHaveTheirOwnMemory();
    void aSetWithoutStationReachesAll();
    void aSetValueStaysStill();
    void aWrongSetChangesNothing();
};

void CommandsTest::aGetTellsWhatWasSet_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("get");
    QTest::addColumn<QString>("answer");
    const struct {
        const char* situation;
        const char* set;
        const char* get;
        const char* answer;
    } rows[] = {
        {"nothing set", "", "get D5", "D5=0"},
        {"an empty line", "", "", ""},
        {"several words", "set D100=1,2,3,4", "get D100:4", "D100=1,2,3,4"},
        {"bits", "set M2047=1,1,0", "get M2046:4", "M2046=0,1,1,0"},
        {"octal inputs", "set X7=1,1", "get X10", "X10=1"},
        {"a negative word reads unsigned", "set D1=-2", "get D1", "D1=65534"},
        {"the largest 32-bit value", "set 32CV255=4294967295", "get 32CV255", "32CV255=4294967295"},
        {"a negative 32-bit value", "set 32CV200=-1", "get 32CV200", "32CV200=4294967295"},
        {"hexadecimal", "set Z15=0x10", "get Z15", "Z15=16"},
        {"a station named", "set D3@2=8", "get D3@2", "D3@2=8"},
        {"count and station", "set TV0:2@2=8,9", "get TV0:2@2", "TV0@2=8,9"},
        {"spaces around", " set  SD256=5 ", "  get \tSD256 ", "SD256=5"},
    };
    for (const auto& row : rows)
        QTest::newRow(row.situation) << row.set << row.get << row.answer;
}

void CommandsTest::aGetTellsWhatWasSet()
{
    QFETCH(QString, set);
    QFETCH(QString, get);
    QFETCH(QString, answer);
    Stations stations({1, 2});
    QCOMPARE(runCommand(set, &stations), QString());
    QCOMPARE(runCommand(get, &stations), answer);
}

void CommandsTest::aWrongLineIsAnsweredWithOneErrorLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("names");
    QTest::newRow("no command") << "D100"
                                << "'D100' is not a command";
    QTest::newRow("unknown command") << "put D100=1"
                                     << "'put' is not a command";
    QTest::newRow("commands are lower case") << "GET D100"
                                             << "'GET' is not a command";
    QTest::newRow("get without an address") << "get"
                                            << "not an address";
    QTest::newRow("set without a value") << "set D100"
                                         << "not an assignment";
    QTest::newRow("unknown type") << "get Q1"
                                  << "unknown register type";
    QTest::newRow("past the range") << "get D7999:2"
                                    << "D7999:2";
    QTest::newRow("octal digit 8") << "get X8"
                                   << "octal";
    QTest::newRow("value too large") << "set M0=2"
                                     << "does not fit";
    QTest::newRow("get from a station not simulated") << "get D1@3"
                                                      << "station 3 is not simulated";
    QTest::newRow("set in a station not simulated") << "set D1@3=1"
                                                    << "station 3 is not simulated";
}

void CommandsTest::aWrongLineIsAnsweredWithOneErrorLine()
{
    QFETCH(QString, line);
    QFETCH(QString, names);
    Stations stations({1, 2});
    const QString answer = runCommand(line, &stations);
    QVERIFY2(answer.startsWith(QLatin1String("error: ")), qPrintable(answer));
    QVERIFY2(answer.contains(names), qPrintable(answer));
    QVERIFY2(!answer.contains(QLatin1Char('\n')), qPrintable(answer));
}

void CommandsTest::stationsHaveTheirOwnMemory()
{
    Stations stations({5, 2});
    run(&stations, "set D100@2=20");
    run(&stations, "set D100@5=50");
    QCOMPARE(run(&stations, "get D100@2"), QString::fromLatin1("D100@2=20"));
    QCOMPARE(run(&stations, "get D100@5"), QString::fromLatin1("D100@5=50"));
    // Without a station the lowest answers.
    QCOMPARE(run(&stations, "get D100"), QString::fromLatin1("D100=20"));
}

void CommandsTest::aSetWithoutStationReachesAll()
{
    Stations stations({1, 2});
    run(&stations, "set M0=1");
    QCOMPARE(run(&stations, "get M0@1"), QString::fromLatin1("M0@1=1"));
    QCOMPARE(run(&stations, "get M0@2"), QString::fromLatin1("M0@2=1"));
}

void CommandsTest::aSetValueStaysStill()
{
    Stations stations({1});
    run(&stations, "set D0=5");
    stations.memory(1)->move(findRegisterType(QString::fromLatin1("D")), 0, 6);
    QCOMPARE(run(&stations, "get D0"), QString::fromLatin1("D0=5"));
}

void CommandsTest::aWrongSetChangesNothing()
{
    Stations stations({1});
    run(&stations, "set D0=1,2,70000");
    QCOMPARE(run(&stations, "get D0:3"), QString::fromLatin1("D0=0,0,0"));
}

QTEST_APPLESS_MAIN(CommandsTest)

#include "tst_commands.moc"
