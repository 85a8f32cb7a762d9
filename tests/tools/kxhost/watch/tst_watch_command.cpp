#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/watch_process.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class WatchCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void presetValuesOfEveryClassAreShown();
    void rangesBeyondOneRequest();
    void changeIsShown();
    void valuesInTheirFormats();
    void valuesAreNotTorn();
    void linesOfJson();
    void framesAreNamed();
    void gatewayOnTheNetwork();
    void simulatedControllerInside();
    void tagsFile();
};

void WatchCommandTest::presetValuesOfEveryClassAreShown()
{
    const KxsimProcess simulator(presets(
        "X17=1 Y10=1 M2047=1 M2048=1 SM255=1 SM256=0 S5=1 T255=1 C0=1 D100=1234 D7999=65535 "
        "SD255=7 SD256=8 CV199=9 32CV200=100000 TV3=10 Z15=11"));
    const CommandResult result = runCommand(
        on(simulator, "watch X17 Y10 M2047:2 SM255 S5 T255 C0 D100 D7999 SD255:2 CV199 32CV200 "
                      "TV3 Z15 --cycles 2"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.errors, QStringList());
    QStringList shown = withoutTimes(result.output.mid(0, result.output.size() - 2));
    shown.sort();
    QStringList expected = QString::fromLatin1("1 X17 1|1 Y10 1|1 M2047 1|1 M2048 1|1 SM255 1|"
                                               "1 S5 1|1 T255 1|1 C0 1|1 D100 1234|1 D7999 65535|"
                                               "1 SD255 7|1 SD256 8|1 CV199 9|1 32CV200 100000|"
                                               "1 TV3 10|1 Z15 11")
                               .split(QLatin1Char('|'));
    expected.sort();
    QCOMPARE(shown, expected);
    // M and SD keep both of their ranges apart; all others are one request each.
    QVERIFY2(result.output.at(result.output.size() - 2)
                 == QLatin1String("32 requests in 2 cycles: 32 accepted, 0 repeated, 0 failed"),
             qPrintable(result.output.at(result.output.size() - 2)));
}

void WatchCommandTest::rangesBeyondOneRequest()
{
    const KxsimProcess simulator(presets("D99=7 M69=1"));
    const CommandResult result = runCommand(on(simulator, "watch D0:100 M0:70 --cycles 1"));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(holds(result.output, "2 requests in 1 cycle: 2 accepted"));
    QVERIFY(holds(result.output, " 1 D99 7"));
    QVERIFY(holds(result.output, " 1 M69 1"));
    // 32 + 32 + 32 + 4 registers, 40 + 30 coils.
    const CommandResult limited =
        runCommand(on(simulator, "watch D0:100 M0:70 --max-words 32 --max-bits 40 --cycles 1"));
    QVERIFY(holds(limited.output, "6 requests in 1 cycle: 6 accepted"));
    QVERIFY(holds(limited.output, " 1 D99 7"));
    QVERIFY(holds(limited.output, " 1 M69 1"));
}

void WatchCommandTest::changeIsShown()
{
    KxsimProcess simulator(presets("D100=1 32CV200=5"));
    RunningWatch watch(on(simulator, "watch D100 32CV200"));
    QVERIFY(watch.waitForOutput(" 1 32CV200 5\n"));
    simulator.tell(QString::fromLatin1("set D100=65535"));
    QVERIFY(watch.waitForOutput(" 1 D100 65535\n"));
    simulator.tell(QString::fromLatin1("set 32CV200=4294967295"));
    QVERIFY(watch.waitForOutput(" 1 32CV200 4294967295\n"));
}

// 12.5 is 0x41480000, the low word first.
void WatchCommandTest::valuesInTheirFormats()
{
    const KxsimProcess simulator(presets("D100=0 D101=0x4148 D200=32 D300=75 D400=0x4142"));
    const CommandResult result = runCommand(
        on(simulator, "watch D100/float D200.5 D300/s16*0.1+5,unit=bar D400/ascii:1 --cycles 1"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(withoutTimes(result.output.mid(0, 4)),
             (QStringList{"1 D100 12.5", "1 D200.5 1", "1 D300 12.5 bar", "1 D400 AB"}));
}

// The controller changes both words of each value at once. The limit would cut each second one.
void WatchCommandTest::valuesAreNotTorn()
{
    KxsimProcess simulator(presets("D100=0,0,0,0,0,0"));
    RunningWatch watch(on(simulator, "watch D100:3/u32 --max-words 3"));
    for (int number = 1; number <= 150; ++number) {
        const QString words = QStringList(QVector<QString>(6, QString::number(number)).toList())
                                  .join(QLatin1Char(','));
        simulator.tell(QLatin1String("set D100=") + words);
        if (number % 25 == 0) {
            const QByteArray last = QByteArray::number(number * 65537);
            QVERIFY(watch.waitForOutput(" 1 D100 " + last + "\n"));
        }
    }
    QVERIFY(watch.waitForOutput(" 1 D104 9830550\n")); // 150 * 65537
    const QList<QByteArray> lines = watch.output().split('\n');
    int seen = 0;
    for (const QByteArray& line : lines) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() != 4)
            continue;
        QVERIFY2(words.at(3).toLongLong() % 65537 == 0, line.constData());
        ++seen;
    }
    QVERIFY(seen > 6);
}

void WatchCommandTest::linesOfJson()
{
    const KxsimProcess simulator(presets("D100=1234"));
    const CommandResult result = runCommand(on(simulator, "watch D100 --json --frames --cycles 1"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.size(), 3);
    QList<QJsonObject> objects;
    for (const QString& line : result.output)
        objects << QJsonDocument::fromJson(line.toUtf8()).object();
    QCOMPARE(objects.at(0)[QLatin1String("event")].toString(), QString::fromLatin1("exchange"));
    // Station 1, function 3, address 100, quantity 1.
    QCOMPARE(objects.at(0)[QLatin1String("request")].toString(),
             QString::fromLatin1("01 03 00 64 00 01 C5 D5"));
    QCOMPARE(objects.at(1)[QLatin1String("event")].toString(), QString::fromLatin1("change"));
    QCOMPARE(objects.at(1)[QLatin1String("address")].toString(), QString::fromLatin1("D100"));
    QCOMPARE(objects.at(1)[QLatin1String("value")].toInt(), 1234);
    QCOMPARE(objects.at(2)[QLatin1String("event")].toString(), QString::fromLatin1("summary"));
    QCOMPARE(objects.at(2)[QLatin1String("accepted")].toInt(), 1);
}

void WatchCommandTest::framesAreNamed()
{
    const KxsimProcess simulator(presets("D100=5"));
    const CommandResult result = runCommand(on(simulator, "watch D100 --frames --cycles 1"));
    QCOMPARE(withoutTimes(result.output.mid(0, 3)),
             QStringList({QString::fromLatin1("request station 01, function 03, address 00 64, "
                                              "quantity 00 01, CRC C5 D5"),
                          QString::fromLatin1("reply   station 01, function 03, byte count 02, "
                                              "data 00 05, CRC 78 47: good, accepted"),
                          QString::fromLatin1("1 D100 5")}));
}

void WatchCommandTest::gatewayOnTheNetwork()
{
    const KxsimProcess simulator(presets("D100=1234"));
    const Gateway gateway(simulator);
    RunningWatch watch(QString::fromLatin1("watch D100 --cycles 3 --tcp %1")
                           .arg(gateway.address())
                           .split(QLatin1Char(' ')));
    QCOMPARE(watch.exitCode(), 0);
    QVERIFY(watch.output().contains(" 1 D100 1234\n"));
    QVERIFY(watch.output().contains("3 requests in 3 cycles: 3 accepted"));
    QVERIFY(!watch.output().contains("line load"));
}

void WatchCommandTest::simulatedControllerInside()
{
    const CommandResult result = runCommand("watch D0:4 D0@7 M0 --simulate --cycles 2");
    QCOMPARE(result.exitCode, 0);
    QVERIFY(holds(result.output, " 7 D0 "));
    QVERIFY(holds(result.output, "6 requests in 2 cycles: 6 accepted, 0 repeated, 0 failed"));
}

void WatchCommandTest::tagsFile()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QString::fromLatin1("tags.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("name,station,address,count,comment\nPump,,D100,2,\nValve,2,Y10,,\n");
    file.close();
    const KxsimProcess simulator(presets("D100=5 D101=6 Y10=1 D7=8")
                                 << QString::fromLatin1("--station") << QString::fromLatin1("1")
                                 << QString::fromLatin1("--station") << QString::fromLatin1("2"));
    QStringList arguments = on(simulator, "watch D7 --cycles 1");
    arguments << QString::fromLatin1("--tags") << path;
    const CommandResult watched = runCommand(arguments);
    QCOMPARE(watched.exitCode, 0);
    for (const char* line : {" 1 D7 8", " 1 D100 (Pump) 5", " 1 D101 (Pump) 6", " 2 Y10 (Valve) 1"})
        QVERIFY2(holds(watched.output, line), line);
}

QTEST_GUILESS_MAIN(WatchCommandTest)
#include "tst_watch_command.moc"
