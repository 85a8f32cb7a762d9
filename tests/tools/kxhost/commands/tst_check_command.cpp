// `kxhost check` as a process.

#include "command_process.h"

#include <QtTest/QTest>

using namespace kx;

class CheckCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void anAddressIsAnswered_data();
    void anAddressIsAnswered();
    void whatTheDriverAloneWouldTakeIsRefused_data();
    void whatTheDriverAloneWouldTakeIsRefused();
    void everyAddressGetsItsLine();
    void aFileIsNoAddress();
    void answersAsJson();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();
    void aMissingLibraryIsNamed();
    void theHelpTellsOfRadixAndNumbers();
};

void CheckCommandTest::anAddressIsAnswered_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("exitCode");
    const auto row = [](const char* name, const char* arguments, const char* line, int exitCode) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(line)
                            << exitCode;
    };
    row("the highest input", "X377", "X377: valid; number 255, coil 1455, read with function 1", 0);
    row("the first output", "Y0", "Y0: valid; number 0, coil 0, read with function 1", 0);
    row("a counter", "32CV200",
        "32CV200: valid; number 200, holding registers 9700 to 9701, read with function 3", 0);
    row("several words", "D100:4",
        "D100:4: valid; numbers 100 to 103, holding registers 100 to 103, read with function 3", 0);
    row("bits across the split", "M2040:16",
        "M2040:16: valid; numbers 2040 to 2055, coils 4040 to 4047 and 12000 to 12007, read with "
        "function 1",
        0);
    row("values of two registers", "D100:2/float",
        "D100:2/float: valid; numbers 100 to 103, holding registers 100 to 103, read with function "
        "3",
        0);
    row("a bit of a word", "D100.5@2",
        "D100.5@2: valid; number 100, holding register 100, read with function 3", 0);
    row("an unknown format", "D100/real",
        "D100/real: unknown format 'real'; the formats are u16, s16, hex, bin, bcd, u32, s32, "
        "float, u64, s64, double, ascii:N, bit",
        2);
    row("a value over a gap", "SD255/u32",
        "SD255/u32: the value from SD255 to SD256 lies on both sides of a gap in the controller's "
        "registers",
        2);
    row("half a value at the end", "D7999/u32",
        "D7999/u32: the value runs past the last address, 2 registers each; the addresses are D0 "
        "to D7999 (decimal)",
        2);
    row("past the last word", "D8000",
        "D8000: out of range; the addresses are D0 to D7999 (decimal)", 2);
    row("below the first counter", "32CV199",
        "32CV199: out of range; the addresses are 32CV200 to 32CV255 (decimal)", 2);
    row("a length past the end", "D7999:2",
        "D7999:2: 2 values run past the last address; the addresses are D0 to D7999 (decimal)", 2);
    row("the driver counts counters in registers", "32CV200:29",
        "32CV200:29: 29 values run past the last address; the addresses are 32CV200 to 32CV255 "
        "(decimal)",
        2);
    row("an octal digit 8", "X8",
        "X8: '8' is not an octal number; the addresses are X0 to X377 (octal)", 2);
    row("an unknown type", "Q5",
        "Q5: unknown register type 'Q'; the types are X, Y, M, SM, S, T, C, D, SD, CV, 32CV, TV, Z",
        2);
    row("no type", "100",
        "100: not an address; write TYPENUMBER[:COUNT][@STATION] without spaces, such as D100:4, "
        "X17 or 32CV200@2",
        2);
    row("with a station", "D100@2",
        "D100@2: valid; number 100, holding register 100, read with function 3", 0);
    row("with a count and the highest station", "D100:4@247",
        "D100:4@247: valid; numbers 100 to 103, holding registers 100 to 103, read with function 3",
        0);
    row("a station that is none", "D100@248", "D100@248: the station must be 1 to 247", 2);
    row("a lower-case type", "d5",
        "d5: unknown register type 'd'; the types are X, Y, M, SM, S, T, C, D, SD, CV, 32CV, TV, Z",
        2);
    row("larger than an int", "D99999999999",
        "D99999999999: out of range; the addresses are D0 to D7999 (decimal)", 2);
    row("a count larger than an int", "32CV200:99999999999",
        "32CV200:99999999999: 99999999999 values run past the last address; the addresses are "
        "32CV200 to 32CV255 (decimal)",
        2);
    row("a minus sign", "CV-1",
        "CV-1: '-1' is not a decimal number; the addresses are CV0 to CV199 (decimal)", 2);
    row("a count of 0", "D1:0", "D1:0: the count must be 1 or more", 2);
    row("a word as a bit tag", "D5 --as bit", "D5: D holds words and suits no bit tag", 2);
    row("a bit as a word tag", "X5 --as word", "X5: X holds bits and suits no word tag", 2);
    row("a bit as a bit tag", "X5 --as bit", "X5: valid; number 5, coil 1205, read with function 1",
        0);
    row("an input that is to be written", "X10 --access 1",
        "X10: access code 1 is refused; X addresses are inputs", 2);
    row("an output that is to be written", "Y10 --access 1",
        "Y10: valid; number 8, coil 8, read with function 1", 0);
    row("a data type that counters refuse", "32CV200 --data-type 2",
        "32CV200: data type 2 is not allowed on 32CV, only 1, 3, 5, 6 and 9", 2);
    row("a data type that counters take", "32CV200 --data-type 9",
        "32CV200: valid; number 200, holding registers 9700 to 9701, read with function 3", 0);
}

void CheckCommandTest::anAddressIsAnswered()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result =
        runCommand((QLatin1String("check ") + arguments).split(QLatin1Char(' ')));
    QTEST(result.exitCode, "exitCode");
    const bool isValid = result.exitCode == 0;
    QCOMPARE(result.output, isValid ? QStringList{line} : QStringList());
    QCOMPARE(result.errors,
             isValid ? QStringList() : QStringList{QLatin1String("kxhost: ") + line});
}

void CheckCommandTest::whatTheDriverAloneWouldTakeIsRefused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("line");
    const char* const isNoD = " is not a decimal number; the addresses are D0 to D7999 (decimal)";
    const auto row = [&](const char* name, const char* address, const char* line) {
        QTest::newRow(name) << QString::fromLatin1(address)
                            << QString::fromUtf8(line) + QString::fromLatin1(isNoD);
    };
    row("a blank before the number", "D 100", "D 100: ' 100'");
    row("a blank behind it", "D100 ", "D100 : '100 '");
    row("a tab", "D\t5", "D\uFFFD5: '\uFFFD5'"); // as it reaches the terminal
    row("a line end", "D5\n", "D5\\n: '5\\n'");
    row("a plus sign", "D+5", "D+5: '+5'");
    row("a minus sign before 0", "D-0", "D-0: '-0'");
    row("a hexadecimal number", "D0x10", "D0x10: '0x10'");
}

void CheckCommandTest::whatTheDriverAloneWouldTakeIsRefused()
{
    QFETCH(QString, address);
    QFETCH(QString, line);
    const CommandResult result = runCommand(QStringList{QLatin1String("check"), address});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.errors, QStringList{QLatin1String("kxhost: ") + line});
    QCOMPARE(result.output, QStringList());
}

void CheckCommandTest::everyAddressGetsItsLine()
{
    const CommandResult result = runCommand("check X8 D7");
    QCOMPARE(result.output,
             QStringList{"D7: valid; number 7, holding register 7, read with function 3"});
    QCOMPARE(result.errors, QStringList{"kxhost: X8: '8' is not an octal number; the addresses "
                                        "are X0 to X377 (octal)"});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(runCommand("check D7 X7").exitCode, 0);
}

void CheckCommandTest::aFileIsNoAddress()
{
    const CommandResult result = runCommand({"check", "D100", "line3.csv", "D100.77"});
    QCOMPARE(result.errors,
             (QStringList{"kxhost: line3.csv: not an address; what a tags file holds is checked by "
                          "kxhost tags check line3.csv",
                          "kxhost: D100.77: '77' is not a bit of a word; they are 0 to 15"}));
    QCOMPARE(result.exitCode, 2);
}

void CheckCommandTest::answersAsJson()
{
    const CommandResult result = runCommand("check --json SM255:2 D8000 5 D7@2 D+5");
    QCOMPARE(result.output,
             (QStringList{
                 "{\"address\":\"SM255:2\",\"code\":0,\"count\":2,\"function\":1,\"modbus\":["
                 "{\"first\":4655,\"last\":4655},{\"first\":30000,\"last\":30000}],"
                 "\"number\":255,\"type\":\"SM\",\"valid\":true}",
                 "{\"address\":\"D8000\",\"code\":2,\"fault\":\"out of range; the addresses are "
                 "D0 to D7999 (decimal)\",\"valid\":false}",
                 "{\"address\":\"5\",\"fault\":\"not an address; write TYPENUMBER[:COUNT]"
                 "[@STATION] without spaces, such as D100:4, X17 or 32CV200@2\",\"valid\":false}",
                 "{\"address\":\"D7@2\",\"code\":0,\"count\":1,\"function\":3,\"modbus\":["
                 "{\"first\":7,\"last\":7}],\"number\":7,\"station\":2,\"type\":\"D\","
                 "\"valid\":true}",
                 "{\"address\":\"D+5\",\"fault\":\"'+5' is not a decimal number; the addresses "
                 "are D0 to D7999 (decimal)\",\"valid\":false}"}));
    QCOMPARE(result.exitCode, 2);
}

void CheckCommandTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    QTest::newRow("no address") << "check"
                                << "kxhost: nothing to check; name addresses such as X377";
    QTest::newRow("an unknown option")
        << "check D1 --bad"
        << "kxhost: unknown option 'bad'; kxhost check --help shows the options";
    QTest::newRow("a wrong kind") << "check D1 --as byte"
                                  << "kxhost: --as byte: must be bit or word";
    QTest::newRow("a wrong code")
        << "check D1 --access x"
        << "kxhost: --access x: must be a whole number from 0 to 2147483647";
}

void CheckCommandTest::wrongUsageIsOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result = runCommand(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.errors, QStringList{line});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

void CheckCommandTest::aMissingLibraryIsNamed()
{
    const CommandResult result = runCommand("check D1 --library no/such.so");
    QCOMPARE(static_cast<int>(result.errors.size()), 1);
    QVERIFY2(result.errors.first().startsWith(QLatin1String("kxhost: no/such.so: ")),
             qPrintable(result.errors.first()));
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 3);
}

void CheckCommandTest::theHelpTellsOfRadixAndNumbers()
{
    const CommandResult result = runCommand("check --help");
    const QString help = result.output.join(QLatin1Char(' '));
    QVERIFY2(help.contains(QLatin1String("X and Y are octal, all other types decimal.")),
             qPrintable(help));
    QVERIFY2(help.contains(QLatin1String("Modbus numbers are zero-based, as on the wire.")),
             qPrintable(help));
    QVERIFY2(result.output.contains(QLatin1String("  kxhost check M2040:16 --json")),
             qPrintable(help));
    QCOMPARE(result.exitCode, 0);
}

QTEST_GUILESS_MAIN(CheckCommandTest)
#include "tst_check_command.moc"
