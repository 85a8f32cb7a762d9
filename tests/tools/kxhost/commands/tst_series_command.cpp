// `kxhost series` as a process.

#include "command_process.h"

#include <QtTest/QTest>

using namespace kx;

class SeriesCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void aSeriesIsShown_data();
    void aSeriesIsShown();
    void rowsAsJson();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();
};

void SeriesCommandTest::aSeriesIsShown_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QStringList>("output");
    QTest::addColumn<QStringList>("errors");
    QTest::newRow("words by a step") << "D100 --count 3 --step 2"
                                     << QStringList{"D100  number 100  holding register 100",
                                                    "D102  number 102  holding register 102",
                                                    "D104  number 104  holding register 104"}
                                     << QStringList();
    QTest::newRow("inputs in octal, clamped")
        << "X370 --count 4 --step 4"
        << QStringList{"X370  number 248  coil 1448", "X374  number 252  coil 1452",
                       "X377  number 255  coil 1455  clamped",
                       "X377  number 255  coil 1455  clamped"}
        << QStringList{"kxhost: past X377 and replaced by it: 2 of 4 addresses"};
    QTest::newRow("just up to the highest address")
        << "D7998 --count 2"
        << QStringList{"D7998  number 7998  holding register 7998",
                       "D7999  number 7999  holding register 7999"}
        << QStringList();
    QTest::newRow("a step of 0") << "M5 --count 2 --step 0"
                                 << QStringList{"M5  number 5  coil 2005",
                                                "M5  number 5  coil 2005"}
                                 << QStringList();
    QTest::newRow("counters, two registers each")
        << "32CV200 --count 2"
        << QStringList{"32CV200  number 200  holding registers 9700 to 9701",
                       "32CV201  number 201  holding registers 9702 to 9703"}
        << QStringList();
    QTest::newRow("below the lowest counter")
        << "32CV200 --count 2 --step -1"
        << QStringList{"32CV200  number 200  holding registers 9700 to 9701",
                       "32CV199  number 199                                  below the lowest"}
        << QStringList{"kxhost: below 32CV200, the lowest: 1 of 2 addresses"};
    QTest::newRow("a negative address prints unsigned")
        << "D0 --count 2 --step -1"
        << QStringList{"D0           number 0   holding register 0",
                       "D4294967295  number -1                      below the lowest"}
        << QStringList{"kxhost: below D0, the lowest: 1 of 2 addresses"};
}

void SeriesCommandTest::aSeriesIsShown()
{
    QFETCH(QString, arguments);
    const CommandResult result =
        runCommand((QLatin1String("series ") + arguments).split(QLatin1Char(' ')));
    QTEST(result.output, "output");
    QTEST(result.errors, "errors");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(static_cast<int>(runCommand("series D0").output.size()), 8);
}

void SeriesCommandTest::rowsAsJson()
{
    const CommandResult result = runCommand("series Y376 --count 3 --json");
    QCOMPARE(result.output,
             (QStringList{"{\"address\":\"Y376\",\"belowLowest\":false,\"clamped\":false,"
                          "\"modbus\":[{\"first\":254,\"last\":254}],\"number\":254}",
                          "{\"address\":\"Y377\",\"belowLowest\":false,\"clamped\":false,"
                          "\"modbus\":[{\"first\":255,\"last\":255}],\"number\":255}",
                          "{\"address\":\"Y377\",\"belowLowest\":false,\"clamped\":true,"
                          "\"modbus\":[{\"first\":255,\"last\":255}],\"number\":255}"}));
}

void SeriesCommandTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    QTest::newRow("no address") << "series"
                                << "kxhost: name one address to start from, such as D100";
    QTest::newRow("two addresses") << "series D1 D2"
                                   << "kxhost: name one address to start from, such as D100";
    QTest::newRow("a wrong address")
        << "series D8000"
        << "kxhost: D8000: out of range; the addresses are D0 to D7999 (decimal)";
    QTest::newRow("a count in the address")
        << "series D1:4"
        << "kxhost: D1:4: a series starts from one address, without count or station";
    QTest::newRow("a station in the address")
        << "series D1@4"
        << "kxhost: D1@4: a series starts from one address, without count or station";
    QTest::newRow("a count of 0") << "series D1 --count 0"
                                  << "kxhost: --count 0: must be a whole number from 1 to 65536";
    QTest::newRow("a step in letters")
        << "series D1 --step a"
        << "kxhost: --step a: must be a whole number from -65535 to 65535";
}

void SeriesCommandTest::wrongUsageIsOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result = runCommand(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.errors, QStringList{line});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

QTEST_GUILESS_MAIN(SeriesCommandTest)
#include "tst_series_command.moc"
