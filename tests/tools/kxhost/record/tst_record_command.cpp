// kxhost record and replay with a simulated controller, and what becomes of the file when the
// line, the disk or the program ends.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/watch_process.h"
#include "tools/recording/recording_folder.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QHash>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

#include <algorithm>

using namespace kx;

namespace
{

const int SECOND = 1000; // milliseconds

/// Arguments that record into the file.
QStringList recordOn(const KxsimProcess& simulator, const char* words, const QString& path)
{
    return on(simulator, (QByteArray("record ") + words).constData())
           << QStringLiteral("--to") << path;
}

/// Without their times.
QStringList eventsWithoutTimes(const QString& path)
{
    return withoutTimes(eventsOf(path));
}

/// Milliseconds since START.
qint64 timeOf(const QString& event)
{
    return event.section(QLatin1Char(' '), 0, 0).toLongLong();
}

qint64 lastTime(const QString& path)
{
    const QStringList events = eventsOf(path);
    return events.isEmpty() ? 0 : START + timeOf(events.last());
}

/// Without what says nothing new: a table's row holds the values that have not changed, too. And
/// without the gaps of a recorder that stood still, as one does whose disk takes long to write:
/// nothing else comes of it for two seconds.
QStringList changesIn(const QStringList& events)
{
    QStringList changes;
    QHash<QString, QString> latest; // by tag
    for (auto event = events.begin(); event != events.end(); ++event) {
        const QString tag = event->section(QLatin1Char(' '), 1, 1);
        const QString what = event->section(QLatin1Char(' '), 2);
        const qint64 begin = timeOf(*event);
        const auto next = std::find_if(
            event, events.end(), [begin](const QString& later) { return timeOf(later) != begin; });
        const bool isLong = next != events.end() && timeOf(*next) - begin > 2 * SECOND;
        if (latest.value(tag) == what || (isLong && what == QLatin1String("[not read]")))
            continue;
        changes << *event;
        latest[tag] = what;
    }
    return changes;
}

QStringList stoppedAfter(QStringList events)
{
    return events << QStringLiteral("0 [recorder stopped]");
}

bool holdsInOrder(const QStringList& events, const QStringList& wanted)
{
    int found = 0;
    for (const QString& event : events)
        found += static_cast<int>(found < wanted.size() && event == wanted.at(found));
    return found == wanted.size();
}

/// "TIME TAG" of each sample that has neither a value nor a gap that lasts. A sample is when any
/// tag has a value.
QStringList emptySamples(const QStringList& events, int tags)
{
    QStringList empty;
    QVector<QString> last(tags); // event of each tag
    for (int begin = 0, end = 0; begin < events.size(); begin = end) {
        const QString time = events.at(begin).section(QLatin1Char(' '), 0, 0);
        bool isSample = false;
        for (; end < events.size() && events.at(end).startsWith(time + QLatin1Char(' ')); ++end) {
            last[events.at(end).section(QLatin1Char(' '), 1, 1).toInt()] = events.at(end);
            isSample = isSample || !events.at(end).contains(QLatin1Char('['));
        }
        for (int tag = 0; tag < tags && isSample; ++tag) {
            const bool isGap = last.at(tag).contains(QLatin1Char('['));
            if (!isGap && !last.at(tag).startsWith(time + QLatin1Char(' ')))
                empty << QStringLiteral("%1 %2").arg(time).arg(tag);
        }
    }
    return empty;
}

} // namespace

class RecordCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void samplesOfATagsFile();
    void changesInADatabase();
    void replayPrintsWhatWatchPrinted();
    void aSilentStationIsAGap();
    void noSampleIsEmptyWithoutAGap_data() { kinds(); }
    void noSampleIsEmptyWithoutAGap();
    void goesOnInTheSameFile_data() { kinds(); }
    void goesOnInTheSameFile();
    void rotatedFilesHaveTheirTime();
    void aKilledProgramLosesNothingThatWasThere_data() { kinds(); }
    void aKilledProgramLosesNothingThatWasThere();
    void aStoppedProgramLeavesAGap_data();
    void aStoppedProgramLeavesAGap();
    void aLostLineIsAGap_data() { kinds(); }
    void aLostLineIsAGap();
    void aLineThatComesBackEndsTheGap_data() { kinds(); }
    void aLineThatComesBackEndsTheGap();
    void aFullDiskEndsItInOneLine_data();
    void aFullDiskEndsItInOneLine();
    void aDamagedDatabaseIsToldInOneLine();
    void jsonTellsFilesAndCounts();
    void framesAreShown();
    void wrongUsage_data();
    void wrongUsage();

private:
    static void kinds();

    RecordingFolder m_folder;
};

void RecordCommandTest::kinds()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("table") << "csv";
    QTest::newRow("database") << "sqlite";
}

void RecordCommandTest::samplesOfATagsFile()
{
    const QString tags = m_folder.path("tags.csv");
    const QString path = m_folder.path("samples.csv");
    RecordingFolder::write(tags, "name,address\nLevel,D100\nPump,Y10\n");
    const KxsimProcess simulator(presets("D100=1234 Y10=1") << QStringLiteral("--still"));
    const QStringList arguments = recordOn(simulator, "--every 500ms --for 1200ms", path) << tags;
    const CommandResult recorded = runCommand(arguments);
    QCOMPARE(recorded.errors, QStringList());
    QCOMPARE(recorded.exitCode, 0);
    QCOMPARE(recorded.output.first(),
             QStringLiteral("recording 2 values in %1; Ctrl-C ends").arg(path));
    const QList<QByteArray> rows = RecordingFolder::contentOf(path).split('\n');
    QCOMPARE(rows.first(), QByteArray("time,Level D100@1,Pump Y10@1,gaps"));
    QVERIFY(rows.at(1).endsWith("Z,,,not yet read"));
    QVERIFY(rows.at(rows.size() - 3).endsWith("Z,1234,1,"));
    QVERIFY(rows.at(rows.size() - 2).endsWith("Z,,,recorder stopped"));
    QVERIFY(holds(recorded.output, " values and 2 gaps recorded"));
}

void RecordCommandTest::changesInADatabase()
{
    const QString path = m_folder.path("changes.sqlite");
    const KxsimProcess simulator(presets("D100=1234 D101=5") << QStringLiteral("--still"));
    const CommandResult result =
        runCommand(recordOn(simulator, "D100:2 --changes --cycles 3", path));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(eventsWithoutTimes(path),
             QStringList({"0 [not yet read]", "1 [not yet read]", "0 1234", "1 5",
                          "0 [recorder stopped]", "1 [recorder stopped]"}));
}

void RecordCommandTest::replayPrintsWhatWatchPrinted()
{
    const QString path = m_folder.path("replay.csv");
    const KxsimProcess simulator(presets("D100=1234") << QStringLiteral("--still"));
    QCOMPARE(runCommand(recordOn(simulator, "D100 --changes --cycles 2", path)).exitCode, 0);
    const CommandResult lines = runCommand({QStringLiteral("replay"), path});
    QCOMPARE(lines.errors, QStringList());
    QCOMPARE(lines.exitCode, 0);
    QCOMPARE(withoutTimes(lines.output),
             QStringList({"1 D100 not yet read", "1 D100 1234", "1 D100 recorder stopped"}));
    const CommandResult json =
        runCommand({QStringLiteral("replay"), path, QStringLiteral("--json")});
    QCOMPARE(json.exitCode, 0);
    const QJsonObject change = QJsonDocument::fromJson(json.output.at(1).toUtf8()).object();
    QCOMPARE(change[QLatin1String("event")].toString(), QStringLiteral("change"));
    QCOMPARE(change[QLatin1String("value")].toInt(), 1234);
}

void RecordCommandTest::aSilentStationIsAGap()
{
    const QString path = m_folder.path("silent.csv");
    const KxsimProcess simulator(presets("D100=5") << QStringLiteral("--still"));
    const CommandResult result = runCommand(
        recordOn(simulator, "D100 D100@9 --changes --timeout 1000 --retries 1 --cycles 1", path));
    QCOMPARE(result.exitCode, 1);
    QVERIFY(holds(result.output, " station 9 does not answer"));
    QStringList events = withoutTimes(changesIn(eventsOf(path)));
    events.sort(); // which station is asked first is the session's own matter
    QCOMPARE(events.join(QLatin1Char('\n')), QStringLiteral("0 5\n"
                                                            "0 [not yet read]\n"
                                                            "0 [recorder stopped]\n"
                                                            "1 [no answer]\n"
                                                            "1 [not yet read]\n"
                                                            "1 [recorder stopped]"));
}

// While station 9 is asked in vain nobody knows yet that it is silent, and station 1 waits for its
// turn. It is without power for 1.5 s of each 3.5 s.
void RecordCommandTest::noSampleIsEmptyWithoutAGap()
{
    QFETCH(QString, kind);
    const QString path = m_folder.path("empty.") + kind;
    const KxsimProcess simulator(
        presets("D100=5 D101@9=7")
        << QStringLiteral("--still --station 1 --station 9 --down 9@1s..2500ms/3500ms")
               .split(QLatin1Char(' ')));
    RunningWatch recording(
        recordOn(simulator, "D100 D101@9 --every 100ms --timeout 300 --retries 1", path));
    const QStringList backAgain = {"1 7", "1 [no answer]", "1 7"};
    QTRY_VERIFY_WITH_TIMEOUT(holdsInOrder(eventsWithoutTimes(path), backAgain), 20000);
    recording.sendSignal(SIGINT);
    QVERIFY(recording.exitCode() >= 0); // 1 when it is silent again just now
    const QStringList events = eventsOf(path);
    QCOMPARE(emptySamples(events, 2), QStringList());
    QVERIFY(withoutTimes(events).contains(QStringLiteral("0 [not read]")));
    QVERIFY(!withoutTimes(events).contains(QStringLiteral("0 [no answer]")));
    const CommandResult replay = runCommand({QStringLiteral("replay"), path});
    QCOMPARE(replay.exitCode, 0);
    const QStringList lines = withoutTimes(replay.output);
    QVERIFY(lines.contains(QStringLiteral("9 D101 not read")));
    QVERIFY(lines.contains(QStringLiteral("9 D101 no answer")));
}

void RecordCommandTest::goesOnInTheSameFile()
{
    QFETCH(QString, kind);
    const QString path = m_folder.path("again.") + kind;
    const KxsimProcess simulator(presets("D100=5") << QStringLiteral("--still"));
    const QStringList arguments = recordOn(simulator, "D100 --changes --cycles 1", path);
    QCOMPARE(runCommand(arguments).exitCode, 0);
    QCOMPARE(runCommand(arguments).exitCode, 0);
    const QStringList once = stoppedAfter({"0 [not yet read]", "0 5"});
    QCOMPARE(eventsWithoutTimes(path), once + once);
}

void RecordCommandTest::rotatedFilesHaveTheirTime()
{
    const QString path = m_folder.path("rotated.csv");
    const KxsimProcess simulator(QStringList{QStringLiteral("--still")});
    const CommandResult result =
        runCommand(recordOn(simulator, "D100 --changes --cycles 1 --rotate 366d", path));
    QCOMPARE(result.exitCode, 0);
    const QStringList files =
        QFileInfo(path).dir().entryList({QStringLiteral("rotated*")}, QDir::Files);
    QCOMPARE(files.size(), 1);
    const QRegularExpression name(QStringLiteral("\\Arotated-[0-9]{8}T[0-9]{6}Z\\.csv\\z"));
    QVERIFY2(name.match(files.first()).hasMatch(), qPrintable(files.first()));
    QVERIFY(result.output.first().contains(files.first()));
}

// The simulated D0 counts on, so that there is always something to record.
void RecordCommandTest::aKilledProgramLosesNothingThatWasThere()
{
    QFETCH(QString, kind);
    const QString path = m_folder.path("killed.") + kind;
    const KxsimProcess simulator;
    RunningWatch recording(recordOn(simulator, "D0 --changes", path));
    QVERIFY(recording.waitForOutput("; Ctrl-C ends\n"));
    const qint64 begin = QDateTime::currentMSecsSinceEpoch();
    // So it was written while it went on, and the last second is not missing.
    QTRY_VERIFY_WITH_TIMEOUT(lastTime(path) > begin + 2 * SECOND
                                 && QDateTime::currentMSecsSinceEpoch() - lastTime(path) < SECOND,
                             20000);
    const QStringList seen = eventsOf(path);
    recording.sendSignal(SIGKILL);
    QCOMPARE(recording.exitCode(), -1);
    const QStringList left = eventsOf(path);
    QCOMPARE(left.mid(0, seen.size()), seen);
    QVERIFY(left.size() > 5);
    QVERIFY(!left.last().contains(QLatin1Char('[')));
    QCOMPARE(runCommand({QStringLiteral("replay"), path}).errors, QStringList());
}

void RecordCommandTest::aStoppedProgramLeavesAGap_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("moments");
    QTest::newRow("samples in a table") << "stopped.csv"
                                        << "--every 200ms";
    QTest::newRow("changes in a database") << "stopped.sqlite"
                                           << "--changes";
}

// As a machine that was suspended does. The value is the same before and behind.
void RecordCommandTest::aStoppedProgramLeavesAGap()
{
    QFETCH(QString, file);
    QFETCH(QString, moments);
    const QString path = m_folder.path(file.toLatin1());
    const KxsimProcess simulator(presets("D100=5") << QStringLiteral("--still"));
    RunningWatch recording(recordOn(simulator, ("D100 " + moments.toLatin1()).constData(), path));
    QTRY_VERIFY_WITH_TIMEOUT(eventsWithoutTimes(path).contains(QStringLiteral("0 5")), 20000);
    recording.sendSignal(SIGSTOP);
    QTest::qWait(2 * SECOND + SECOND / 2);
    const qint64 woken = QDateTime::currentMSecsSinceEpoch();
    recording.sendSignal(SIGCONT);
    QTRY_VERIFY_WITH_TIMEOUT(
        lastTime(path) >= woken && eventsOf(path).last().endsWith(QStringLiteral(" 0 5")), 20000);
    recording.sendSignal(SIGINT);
    QCOMPARE(recording.exitCode(), 0);
    QString before;
    for (const QString& event : eventsOf(path)) {
        if (START + timeOf(event) < woken)
            before = event;
    }
    QVERIFY2(before.endsWith(QStringLiteral(" 0 [not read]")), qPrintable(before));
}

void RecordCommandTest::aLostLineIsAGap()
{
    QFETCH(QString, kind);
    const QString path = m_folder.path("lost.") + kind;
    auto simulator = std::make_unique<KxsimProcess>(presets("D100=5") << QStringLiteral("--still"));
    const QString port = simulator->portName();
    RunningWatch recording(recordOn(*simulator, "D100 --every 100ms", path));
    QTRY_VERIFY_WITH_TIMEOUT(eventsWithoutTimes(path).contains(QStringLiteral("0 5")), 20000);
    simulator.reset();
    QCOMPARE(recording.exitCode(), 1);
    QCOMPARE(recording.errors(),
             "kxhost: " + port.toUtf8() + ": the port was closed or unplugged\n");
    QStringList events = eventsWithoutTimes(path);
    events.removeAll(QStringLiteral("0 [not read]")); // on a busy machine
    const QString end = events.join(QLatin1Char('\n'));
    QVERIFY2(end.endsWith(QStringLiteral("\n0 5\n0 [line lost]\n0 [recorder stopped]")),
             qPrintable(end));
}

// The value is the same as before, so that nothing but the read itself tells that it is back.
void RecordCommandTest::aLineThatComesBackEndsTheGap()
{
    QFETCH(QString, kind);
    const QString path = m_folder.path("back.") + kind;
    RunningWatch recording(
        QStringLiteral("record M5 --simulate --fault close:0.1 --fault-seed 3 --reopen 9 "
                       "--baud 115200 --changes --to %1")
            .arg(path)
            .split(QLatin1Char(' ')));
    QVERIFY(recording.waitForOutput(" line open again\n"));
    const QString lost = QStringLiteral("0 [line lost]");
    QTRY_VERIFY_WITH_TIMEOUT(
        eventsWithoutTimes(path)
            .mid(qMax(0, static_cast<int>(eventsWithoutTimes(path).indexOf(lost))))
            .contains(QStringLiteral("0 0")),
        20000);
    recording.sendSignal(SIGINT);
    QCOMPARE(recording.exitCode() >= 0, true);
    const QStringList events = eventsWithoutTimes(path);
    const int gap = static_cast<int>(events.indexOf(lost));
    QVERIFY(gap > 0);
    QCOMPARE(events.at(gap - 1), QStringLiteral("0 0"));
    QCOMPARE(events.at(gap + 1), QStringLiteral("0 0"));
}

void RecordCommandTest::aFullDiskEndsItInOneLine_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isLimit");
    QTest::addColumn<int>("kilobytes");
    QTest::newRow("table on a small disk") << "csv" << false << 16;
    QTest::newRow("database on a small disk") << "sqlite" << false << 112;
    QTest::newRow("table that must not grow") << "csv" << true << 16;
    QTest::newRow("database that must not grow") << "sqlite" << true << 64;
}

// Where no disk of that size can be mounted, the size of files is limited there as well.
void RecordCommandTest::aFullDiskEndsItInOneLine()
{
    QFETCH(QString, kind);
    QFETCH(bool, isLimit);
    QFETCH(int, kilobytes);
    const QString disk = m_folder.path("disk");
    const QString left = m_folder.path("left.") + kind;
    QVERIFY(QDir().mkpath(disk) && QDir().mkpath(left));
    const QString mount =
        QStringLiteral("mount -t tmpfs -o size=%1k none \"$1\" 2>/dev/null || ").arg(kilobytes);
    const QString script =
        (isLimit ? QString() : mount)
        + QStringLiteral("ulimit -f %1; \"$2\" record D0:40 Y0:40 --changes --simulate "
                         "--baud 115200 --for 60s --to \"$1/full.$3\"; code=$?; "
                         "cp \"$1\"/full.* \"$4\"; rm \"$1\"/full.*; exit $code")
              .arg(2 * kilobytes); // blocks of 512 bytes
    QStringList words = {"unshare", "-Urm", "sh", "-c",
                         script,    "sh",   disk, QStringLiteral(KX_HOST_PROGRAM),
                         kind,      left};
    if (isLimit || QProcess::execute(QStringLiteral("unshare"), {"-Urm", "true"}) != 0)
        words = words.mid(2);
    QProcess process;
    process.start(words.first(), words.mid(1));
    QVERIFY(process.waitForFinished(60000));
    const QByteArray errors = process.readAllStandardError();
    QVERIFY2(errors.contains(": cannot go on recording: "), errors.constData());
    QCOMPARE(errors.count('\n'), 1);
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 1);
    const QStringList events = eventsOf(left + QStringLiteral("/full.") + kind);
    QVERIFY2(events.size() > 160, qPrintable(events.join(QLatin1Char('\n')))); // all were read
    QVERIFY(!events.last().contains(QLatin1Char(':'))); // neither fault nor remark
}

void RecordCommandTest::aDamagedDatabaseIsToldInOneLine()
{
    const QString path = m_folder.path("damaged.sqlite");
    const KxsimProcess simulator(QStringList{QStringLiteral("--still")});
    const QStringList recording = recordOn(simulator, "D0 --changes --cycles 1", path);
    QCOMPARE(runCommand(recording).exitCode, 0);
    RecordingFolder::write(path, RecordingFolder::contentOf(path).left(8192)); // two pages
    const CommandResult replay = runCommand({QStringLiteral("replay"), path});
    QCOMPARE(replay.exitCode, 2);
    QCOMPARE(replay.output, QStringList());
    QCOMPARE(replay.errors, QStringList(QStringLiteral("kxhost: %1: cannot be read: database disk "
                                                       "image is malformed")
                                            .arg(path)));
    const CommandResult goingOn = runCommand(recording);
    QCOMPARE(goingOn.exitCode, 2);
    QCOMPARE(goingOn.errors, QStringList(QStringLiteral("kxhost: %1: cannot be recorded into: "
                                                        "database disk image is malformed; name "
                                                        "another file")
                                             .arg(path)));
}

void RecordCommandTest::jsonTellsFilesAndCounts()
{
    const QString path = m_folder.path("json.csv");
    const KxsimProcess simulator(QStringList{QStringLiteral("--still")});
    const CommandResult result =
        runCommand(recordOn(simulator, "D100:2 --changes --cycles 2 --json", path));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.size(), 2);
    QCOMPARE(result.output.first(),
             QStringLiteral("{\"event\":\"recording\",\"file\":\"%1\",\"values\":2}").arg(path));
    const QJsonObject summary = QJsonDocument::fromJson(result.output.last().toUtf8()).object();
    QCOMPARE(summary[QLatin1String("event")].toString(), QStringLiteral("summary"));
    QCOMPARE(summary[QLatin1String("samples")].toInt(), 2);
    QCOMPARE(summary[QLatin1String("gaps")].toInt(), 2);
}

void RecordCommandTest::framesAreShown()
{
    const KxsimProcess simulator(presets("D100=5") << QStringLiteral("--still"));
    const CommandResult result = runCommand(
        recordOn(simulator, "D100 --changes --cycles 1 --frames", m_folder.path("frames.csv")));
    QCOMPARE(result.exitCode, 0);
    QVERIFY(holds(result.output, "station 01, function 03, address 00 64, quantity 00 01"));
}

void RecordCommandTest::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("error");
    QTest::newRow("no file") << "record D0 --every 1s --simulate" << 2
                             << "kxhost: no file; name one with --to, such as --to line3.csv";
    QTest::newRow("a file that cannot be made")
        << "record D0 --every 1s --to /none/a.csv --simulate" << 2
        << "kxhost: /none/a.csv: cannot be written: No such file or directory";
    QTest::newRow("a database that cannot be made")
        << "record D0 --every 1s --to /none/a.sqlite --simulate" << 2
        << "kxhost: /none/a.sqlite: cannot be recorded into: unable to open database file";
    QTest::newRow("no such port")
        << "record D0 --every 1s --to /none/a.csv --port /dev/none" << 3
        << "kxhost: /dev/none: cannot open the port: No such file or directory";
    QTest::newRow("an unknown option of record")
        << "record D0 --speed 2" << 2
        << "kxhost: unknown option 'speed'; kxhost record --help shows the options";
    QTest::newRow("nothing to replay")
        << "replay" << 2 << "kxhost: name one recording, such as line3.csv";
    QTest::newRow("two to replay")
        << "replay a.csv b.csv" << 2 << "kxhost: name one recording, such as line3.csv";
    QTest::newRow("no such recording")
        << "replay /none/a.csv" << 2 << "kxhost: /none/a.csv: No such file or directory";
    QTest::newRow("no recording")
        << "replay /etc/passwd" << 2
        << "kxhost: /etc/passwd: is no recording; kxhost record makes them";
    QTest::newRow("a folder to replay")
        << "replay /etc" << 2 << "kxhost: /etc: file to open is a directory";
}

void RecordCommandTest::wrongUsage()
{
    QFETCH(QString, arguments);
    const CommandResult result = runCommand(arguments.split(QLatin1Char(' ')));
    QTEST(result.exitCode, "exitCode");
    QCOMPARE(result.errors.size(), 1);
    QTEST(result.errors.first(), "error");
    QCOMPARE(result.output, QStringList());
}

QTEST_GUILESS_MAIN(RecordCommandTest)
#include "tst_record_command.moc"
