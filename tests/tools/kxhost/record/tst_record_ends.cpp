// kxhost record with a simulated controller: what becomes of the file when the line, the disk or
// the program ends.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/record/record_process.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtTest/QTest>

using namespace kx;

class RecordEndsTest : public QObject
{
    Q_OBJECT

private slots:
    void aKilledProgramLosesNothingThatWasThere_data() { kindsOfFiles(); }
    void aKilledProgramLosesNothingThatWasThere();
    void aLostLineIsAGap_data() { kindsOfFiles(); }
    void aLostLineIsAGap();
    void aFullDiskEndsItInOneLine_data();
    void aFullDiskEndsItInOneLine();
    void aDamagedDatabaseIsToldInOneLine();

private:
    RecordingFolder m_folder;
};

// The simulated D0 counts on, so that there is always something to record.
void RecordEndsTest::aKilledProgramLosesNothingThatWasThere()
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

void RecordEndsTest::aLostLineIsAGap()
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

void RecordEndsTest::aFullDiskEndsItInOneLine_data()
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
void RecordEndsTest::aFullDiskEndsItInOneLine()
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

void RecordEndsTest::aDamagedDatabaseIsToldInOneLine()
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

QTEST_GUILESS_MAIN(RecordEndsTest)
#include "tst_record_ends.moc"
