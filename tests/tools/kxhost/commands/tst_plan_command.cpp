// `kxhost plan` as a process.

#include "command_process.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

using namespace kx;

class PlanCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void aPlanIsShown();
    void bothSidesOfASplit();
    void theLineCounts();
    void aPlanAsJson();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();
};

// At 9600 baud a character takes 1.0417 ms and the gap 3.6458 ms. Request 1 has 8 + 6
// characters (14.6 ms), request 2 has 8 + 29 (38.5 ms); each waits 5 + 3.6 ms.
void PlanCommandTest::aPlanIsShown()
{
    const CommandResult result = runCommand("plan D110:2 X10 D100:4");
    QCOMPARE(
        result.output,
        (QStringList{
            "Request limit auto, 9600 baud, 10 bits per character, turnaround 5.0 ms, frame gap "
            "3.6 "
            "ms",
            "",
            "#  STATION  ADDRESSES     MODBUS                        ASKED  BRIDGED  BYTES OUT  "
            "BYTES IN "
            "    TIME",
            "1        1  X10           coil 1208                         1        0          8     "
            "    6  "
            "23.2 ms",
            "2        1  D100 to D111  holding registers 100 to 111      6        6          8     "
            "   29  "
            "47.2 ms",
            "",
            "Asked for (#), bridged (.), both (+):",
            "1   X10  # X10",
            "2  D100  ####......## D111",
            "",
            "Cycle: 2 requests, 16 bytes out, 35 in, 70.4 ms (14.2 cycles/s), line load 75 %",
            "",
            "Lengths chosen for this list and line (auto), and limits of 1 to 125 registers up to "
            "which the driver joins them:",
            "LIMIT  REQUESTS  BYTES OUT  BYTES IN     CYCLE  LOAD  UNREAD",
            " auto         2         16        35   70.4 ms  75 %       0  <- in use",
            "    1         7         56        48  168.9 ms  64 %       0",
            "    2         4         32        33  102.3 ms  66 %       0",
            "    4         3         24        28   80.1 ms  68 %       0",
            "   12         2         16        35   70.4 ms  75 %       0  <- best limit",
            "  125         2         16        35   70.4 ms  75 %       0"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void PlanCommandTest::bothSidesOfASplit()
{
    const CommandResult result = runCommand("plan SM250:2 SM256:2");
    const QString shown = result.output.join(QLatin1Char('\n'));
    for (const char* const line :
         {"1        1  SM250 to SM251  coils 4650 to 4651        2        0          8         6",
          "2        1  SM256 to SM257  coils 30000 to 30001      2        0          8         6"})
        QVERIFY2(shown.contains(QLatin1String(line)), qPrintable(shown));
    QVERIFY2(!shown.contains(QLatin1String("Warning")), qPrintable(shown));
    QVERIFY2(shown.contains(QLatin1String(
                 " auto         2         16        12  46.5 ms  63 %       0  <- in use")),
             qPrintable(shown));
    QCOMPARE(result.exitCode, 0);
}

void PlanCommandTest::theLineCounts()
{
    // 14 characters of 11 bits at 19200 baud are 8.02 ms, the gap 2.01 ms.
    const CommandResult result = runCommand("plan X0 -b 19200 --parity Even --turnaround 10ms");
    QCOMPARE(
        result.output.value(0),
        QString::fromLatin1("Request limit auto, 19200 baud, 11 bits per character, turnaround "
                            "10.0 ms, frame gap 2.0 ms"));
    QVERIFY2(result.output.contains(QLatin1String(
                 "Cycle: 1 request, 8 bytes out, 6 in, 20.0 ms (49.9 cycles/s), line load 40 %")),
             qPrintable(result.output.join(QLatin1Char('\n'))));
}

void PlanCommandTest::aPlanAsJson()
{
    const CommandResult result = runCommand("plan D100:4@2 D110:2@2 --json --max-words 12");
    QCOMPARE(static_cast<int>(result.output.size()), 1);
    const QJsonObject json = QJsonDocument::fromJson(result.output.first().toUtf8()).object();
    QCOMPARE(json.value(QLatin1String("maxWords")).toInt(), 12);
    QCOMPARE(json.value(QLatin1String("best")).toInt(), 12);
    QCOMPARE(json.value(QLatin1String("auto")).toObject().value("durationUs").toInt(), 47188);
    QCOMPARE(
        QJsonDocument(json.value(QLatin1String("line")).toObject()).toJson(QJsonDocument::Compact),
        QByteArray("{\"baud\":9600,\"bitsPerCharacter\":10,\"frameGapUs\":3646,"
                   "\"turnaroundUs\":5000}"));
    QCOMPARE(json.value(QLatin1String("cycle")).toObject().value("durationUs").toInt(), 47188);
    QCOMPARE(static_cast<int>(json.value(QLatin1String("limits")).toArray().size()), 125);
    const QJsonObject request = json.value(QLatin1String("requests")).toArray().at(0).toObject();
    QCOMPARE(QJsonDocument(request).toJson(QJsonDocument::Compact),
             QByteArray("{\"asked\":6,\"bridged\":6,\"bytesExpected\":29,\"bytesSent\":8,"
                        "\"count\":12,\"durationUs\":47188,\"first\":\"D100\",\"function\":3,"
                        "\"last\":\"D111\",\"misread\":0,\"modbus\":100,\"station\":2,"
                        "\"tooLong\":false}"));
}

void PlanCommandTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    const auto row = [](const char* name, const char* arguments, const char* line) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(line);
    };
    row("nothing", "plan",
        "kxhost: nothing to plan; name addresses such as D100:4, or a tags file");
    row("a wrong address", "plan D1 X8",
        "kxhost: X8: '8' is not an octal number; the addresses are X0 to X377 (octal)");
    row("a file without an end", "plan --tags /dev/zero",
        "kxhost: /dev/zero: larger than 16 MiB, the most that such a file may have");
    row("a folder", "plan --tags /", "kxhost: /: is a folder, not a file");
    row("a missing file", "plan no/such.csv", "kxhost: no/such.csv: No such file or directory");
    row("a missing tags file", "plan D1 --tags no.csv",
        "kxhost: no.csv: No such file or directory");
    row("a wrong time", "plan D1 --turnaround 5m",
        "kxhost: --turnaround 5m: must be a time from 0 to 60s, such as 5ms or 800us");
    row("a wrong limit", "plan D1 --max-words 126",
        "kxhost: --max-words 126: must be a whole number from 1 to 125, or auto");
    row("a wrong baud rate", "plan D1 --baud 0",
        "kxhost: --baud 0: must be a whole number from 1 to 4000000");
    row("a wrong parity", "plan D1 --parity mark",
        "kxhost: --parity mark: must be none, even or odd");
    row("a wrong station", "plan D1 --station 0",
        "kxhost: --station 0: must be a whole number from 1 to 247");
    row("wrong data bits", "plan D1 --data-bits 7",
        "kxhost: --data-bits 7: Modbus RTU needs 8 data bits");
    row("wrong stop bits", "plan D1 --stop-bits 3",
        "kxhost: --stop-bits 3: must be a whole number from 1 to 2");
}

void PlanCommandTest::wrongUsageIsOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result = runCommand(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.errors, QStringList{line});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

QTEST_GUILESS_MAIN(PlanCommandTest)
#include "tst_plan_command.moc"
