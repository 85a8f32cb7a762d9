// `kxhost registers` as a process.

#include "command_process.h"

#include <QtTest/QTest>

using namespace kx;

class RegistersCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void theWholeCatalogueIsShown();
    void namedTypesOnly();
    void rowsAsJson();
    void anUnknownTypeIsRefused();
    void whatNeedsNoLineTakesNone_data();
    void whatNeedsNoLineTakesNone();
};

void RegistersCommandTest::theWholeCatalogueIsShown()
{
    const CommandResult result = runCommand("registers");
    QCOMPARE(
        result.output,
        (QStringList{
            "TYPE  KIND    LOWEST   HIGHEST  DIGITS   FORMAT  FUNCTION  MODBUS",
            "X     bit     X0       X377     octal    OOO     1         coils 1200 to 1455",
            "Y     bit     Y0       Y377     octal    OOO     1         coils 0 to 255",
            "SM    bit     SM0      SM511    decimal  dddd    1         coils 4400 to 4655 and "
            "30000 to 30255",
            "M     bit     M0       M10239   decimal  ddddd   1         coils 2000 to 4047 and "
            "12000 to 20191",
            "S     bit     S0       S1023    decimal  dddd    1         coils 6000 to 7023",
            "T     bit     T0       T255     decimal  ddd     1         coils 8000 to 8255",
            "C     bit     C0       C255     decimal  ddd     1         coils 9200 to 9455",
            "D     word    D0       D7999    decimal  dddd    3         holding registers 0 to "
            "7999",
            "SD    word    SD0      SD511    decimal  ddd     3         holding registers 8000 to "
            "8255 and 12000 to 12255",
            "CV    word    CV0      CV199    decimal  ddd     3         holding registers 9500 to "
            "9699",
            "32CV  32-bit  32CV200  32CV255  decimal  ddd     3         holding registers 9700 to "
            "9811",
            "TV    word    TV0      TV255    decimal  ddd     3         holding registers 9000 to "
            "9255",
            "Z     word    Z0       Z15      decimal  ddd     3         holding registers 8500 to "
            "8515"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void RegistersCommandTest::namedTypesOnly()
{
    const CommandResult result = runCommand("registers Z X");
    QCOMPARE(result.output,
             (QStringList{"TYPE  KIND  LOWEST  HIGHEST  DIGITS   FORMAT  FUNCTION  MODBUS",
                          "X     bit   X0      X377     octal    OOO     1         coils 1200 to "
                          "1455",
                          "Z     word  Z0      Z15      decimal  ddd     3         holding "
                          "registers 8500 to 8515"}));
}

void RegistersCommandTest::rowsAsJson()
{
    const CommandResult result = runCommand("registers --json Y SD");
    QCOMPARE(result.output,
             (QStringList{"{\"format\":\"OOO\",\"function\":1,\"highest\":\"377\",\"kind\":\"bit\","
                          "\"lowest\":\"0\",\"modbus\":[{\"first\":0,\"last\":255}],\"radix\":8,"
                          "\"type\":\"Y\"}",
                          "{\"format\":\"ddd\",\"function\":3,\"highest\":\"511\",\"kind\":"
                          "\"word\",\"lowest\":\"0\",\"modbus\":[{\"first\":8000,\"last\":8255},"
                          "{\"first\":12000,\"last\":12255}],\"radix\":10,\"type\":\"SD\"}"}));
    QCOMPARE(static_cast<int>(runCommand("registers --json").output.size()), 13);
}

void RegistersCommandTest::anUnknownTypeIsRefused()
{
    const CommandResult result = runCommand("registers X x");
    QCOMPARE(result.errors, (QStringList{"kxhost: unknown register type 'x'; the types are X, Y, "
                                         "M, SM, S, T, C, D, SD, CV, 32CV, TV, Z"}));
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

void RegistersCommandTest::whatNeedsNoLineTakesNone_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("command");
    QTest::newRow("registers") << "registers --simulate"
                               << "registers";
    QTest::newRow("in front") << "--simulate registers"
                              << "registers";
    QTest::newRow("check") << "check D1 --simulate"
                           << "check";
    QTest::newRow("series") << "series D1 --simulate"
                            << "series";
    QTest::newRow("plan") << "--simulate plan D1"
                          << "plan";
}

void RegistersCommandTest::whatNeedsNoLineTakesNone()
{
    QFETCH(QString, arguments);
    QFETCH(QString, command);
    const CommandResult result = runCommand(arguments.split(' '));
    QCOMPARE(result.errors, QStringList(QString("kxhost: unknown option 'simulate'; kxhost %1 "
                                                "--help shows the options")
                                            .arg(command)));
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

QTEST_GUILESS_MAIN(RegistersCommandTest)
#include "tst_registers_command.moc"
