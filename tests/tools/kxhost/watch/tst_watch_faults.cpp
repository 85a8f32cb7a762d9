// kxhost on a simulated line with faults: it keeps working, and its counts are those of
// the simulator.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/faulty_kxsim.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace kx;

class WatchFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyKindIsSurvivedAndCounted_data();
    void everyKindIsSurvivedAndCounted();
    void noiseIsCountedByTheByte_data();
    void noiseIsCountedByTheByte();
    void lateRepliesAreThrownAway();
    void theSimulatorInsideHasFaultsToo();
    void aLostAndReopenedLineIsTold_data();
    void aLostAndReopenedLineIsTold();
    void withoutReopeningALostLineIsTheEnd();
};

namespace
{

const int DELAY = 800;    // milliseconds
const int MOST_NOISE = 8; // bytes, of one fault
const int MOST_OWED = 2;  // late replies at the end: 800 ms late, requests 500 ms apart

QStringList words(const QString& arguments)
{
    return arguments.split(QLatin1Char(' '));
}

QJsonObject summaryOf(const CommandResult& result)
{
    const QString last = result.output.isEmpty() ? QString() : result.output.last();
    return QJsonDocument::fromJson(last.toUtf8()).object();
}

} // namespace

void WatchFaultsTest::everyKindIsSurvivedAndCounted_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("cycles");  // of two requests
    QTest::addColumn<int>("timeout"); // milliseconds; long where none is to expire
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("count");
    const auto row = [](const char* fault, int cycles, int timeout, const char* group,
                        const char* count) {
        QTest::newRow(fault) << QString::fromLatin1(fault) << cycles << timeout
                             << QString::fromLatin1(group) << QString::fromLatin1(count);
    };
    row("deaf", 3, 1500, "badReplies", "none");
    row("silence", 3, 1500, "badReplies", "none");
    row("corrupt", 20, 9000, "badReplies", "damaged");
    row("truncate", 3, 1500, "badReplies", "short");
    row("extra-before", 20, 9000, "badReplies", "damaged");
    row("duplicate", 20, 9000, "thrownAway", "duplicates");
    row("other-station", 3, 1500, "badReplies", "foreign");
    row("exception", 20, 9000, "badReplies", "refused");
    row("echo", 20, 9000, "thrownAway", "echoes");
    row("close", 10, 400, "badReplies", "lineLost");
}

void WatchFaultsTest::everyKindIsSurvivedAndCounted()
{
    QFETCH(QString, fault);
    QFETCH(int, cycles);
    QFETCH(int, timeout);
    QFETCH(QString, group);
    QFETCH(QString, count);
    FaultyKxsim kxsim(fault + QString::fromLatin1(":0.15"), DELAY);
    const QString arguments =
        QString::fromLatin1(
            "watch D0:9 D200:4 --baud 115200 --json --reopen 9 --settle 0 --retries 9 "
            "--cycles %1 --timeout %2 --port %3")
            .arg(QString::number(cycles), QString::number(timeout), kxsim.line());
    const CommandResult result = runCommand(words(arguments));
    QVERIFY2(result.exitCode == 0, qPrintable((result.output + result.errors).join("\n")));
    const QJsonObject summary = summaryOf(result);
    QVERIFY(kxsim.count(fault) > 0);
    QCOMPARE(summary[group].toObject()[count].toInt(-1), kxsim.count(fault));
    QCOMPARE(summary[QLatin1String("requests")].toInt(),
             kxsim.count(QString::fromLatin1("requests")));
    QCOMPARE(summary[QLatin1String("accepted")].toInt(), 2 * cycles);
    QCOMPARE(summary[QLatin1String("repeated")].toInt(),
             summary[QLatin1String("requests")].toInt() - 2 * cycles);
    QCOMPARE(summary[QLatin1String("failed")].toInt(-1), 0);
    QCOMPARE(summary[QLatin1String("reopened")].toInt(), kxsim.count(QString::fromLatin1("close")));
}

void WatchFaultsTest::noiseIsCountedByTheByte_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("isRepeated");
    QTest::newRow("before a reply") << QStringLiteral("extra-before") << true;
    QTest::newRow("behind a reply") << QStringLiteral("extra-after") << false;
}

void WatchFaultsTest::noiseIsCountedByTheByte()
{
    QFETCH(QString, fault);
    QFETCH(bool, isRepeated);
    FaultyKxsim kxsim(fault + QStringLiteral(":0.4"), DELAY);
    const CommandResult result =
        runCommand(words(QStringLiteral("watch D0:9 --baud 115200 --json --retries 20 --cycles 20 "
                                        "--timeout 9000 --port %1")
                             .arg(kxsim.line())));
    QCOMPARE(result.exitCode, 0);
    const QJsonObject summary = summaryOf(result);
    const int requests = summary[QLatin1String("requests")].toInt();
    QCOMPARE(requests, kxsim.count(QStringLiteral("requests")));
    QCOMPARE(summary[QLatin1String("repeated")].toInt(-1), isRepeated ? kxsim.count(fault) : 0);
    // Station, function, byte count, 18 bytes of values and the CRC are 23 bytes each.
    const int noise = summary[QLatin1String("bytesReceived")].toInt() - 23 * requests;
    const int bytes =
        summary[QLatin1String("thrownAway")].toObject()[QLatin1String("bytes")].toInt();
    QVERIFY(kxsim.count(fault) >= 5);
    QVERIFY(noise >= kxsim.count(fault));
    QVERIFY(bytes > 0);
    // What came behind the last reply is received, but no longer sorted.
    QVERIFY2(bytes <= noise && bytes >= noise - MOST_NOISE,
             qPrintable(QStringLiteral("%1 bytes of %2 are noise").arg(bytes).arg(noise)));
}

void WatchFaultsTest::lateRepliesAreThrownAway()
{
    FaultyKxsim kxsim(QString::fromLatin1("delay:0.3"), DELAY);
    const CommandResult result = runCommand(
        words(QString::fromLatin1("watch D0:9 D200:4 --baud 115200 --json --cycles 5 --retries 9 "
                                  "--timeout 500 --port %1")
                  .arg(kxsim.line())));
    QCOMPARE(result.exitCode, 0);
    const QJsonObject summary = summaryOf(result);
    const QJsonObject thrown = summary[QLatin1String("thrownAway")].toObject();
    const int late = thrown[QLatin1String("late")].toInt();
    QVERIFY(late > 0);
    QVERIFY(late <= kxsim.count(QString::fromLatin1("delay")));
    QCOMPARE(summary[QLatin1String("accepted")].toInt(), 10);
    // Every request was answered, and all but the last of the late replies came in time to
    // be seen; the values stand still, so one may look like the double of another.
    const int requests = kxsim.count(QStringLiteral("requests"));
    const int found = 10 + late + thrown[QLatin1String("duplicates")].toInt();
    QCOMPARE(summary[QLatin1String("requests")].toInt(), requests);
    QVERIFY2(found <= requests && found >= requests - MOST_OWED,
             qPrintable(QStringLiteral("%1 of %2 replies").arg(found).arg(requests)));
}

void WatchFaultsTest::theSimulatorInsideHasFaultsToo()
{
    const CommandResult result = runCommand(
        words(QString::fromLatin1("watch D0:9 D200:4 --baud 115200 --json --simulate --cycles 20 "
                                  "--timeout 400 --settle 0 --reopen 9 --fault close:0.1 "
                                  "--fault corrupt:0.1 --fault-seed 5")));
    QCOMPARE(result.exitCode, 0);
    const QJsonObject summary = summaryOf(result);
    QCOMPARE(summary[QLatin1String("accepted")].toInt(), 40);
    QVERIFY(summary[QLatin1String("reopened")].toInt() > 0);
    QVERIFY(summary[QLatin1String("badReplies")].toObject()[QLatin1String("damaged")].toInt() > 0);
}

void WatchFaultsTest::aLostAndReopenedLineIsTold_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("lost");
    QTest::addColumn<QString>("open");
    QTest::newRow("lines") << QString() << " line lost$"
                           << " line open again$";
    QTest::newRow("JSON") << " --json"
                          << "\"line\".*\"lost\""
                          << "\"line\".*\"open\"";
}

void WatchFaultsTest::aLostAndReopenedLineIsTold()
{
    QFETCH(QString, view);
    QFETCH(QString, lost);
    QFETCH(QString, open);
    FaultyKxsim kxsim(QString::fromLatin1("close:0.3"), DELAY);
    const CommandResult result = runCommand(words(
        QString::fromLatin1("watch D0 --baud 115200 --reopen 9 --retries 9 --cycles 10 --port %1%2")
            .arg(kxsim.line(), view)));
    QCOMPARE(result.exitCode, 0);
    const int closed = kxsim.count(QString::fromLatin1("close"));
    QVERIFY(closed > 0);
    QCOMPARE(static_cast<int>(result.output.filter(QRegularExpression(lost)).size()), closed);
    QCOMPARE(static_cast<int>(result.output.filter(QRegularExpression(open)).size()), closed);
}

void WatchFaultsTest::withoutReopeningALostLineIsTheEnd()
{
    FaultyKxsim kxsim(QString::fromLatin1("close:1"), DELAY);
    const CommandResult result =
        runCommand(words(QString::fromLatin1("watch D0 --cycles 5 --port %1").arg(kxsim.line())));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(kxsim.count(QString::fromLatin1("requests")), 1);
}

QTEST_GUILESS_MAIN(WatchFaultsTest)
#include "tst_watch_faults.moc"
