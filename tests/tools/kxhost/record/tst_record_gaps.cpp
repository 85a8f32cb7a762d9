// kxhost record with a simulated controller: what a recording says of the time without values.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/record/record_process.h"

#include <QtCore/QDateTime>
#include <QtCore/QHash>
#include <QtTest/QTest>

#include <algorithm>

using namespace kx;

namespace
{

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

class RecordGapsTest : public QObject
{
    Q_OBJECT

private slots:
    void aSilentStationIsAGap();
    void noSampleIsEmptyWithoutAGap_data() { kindsOfFiles(); }
    void noSampleIsEmptyWithoutAGap();
    void aStoppedProgramLeavesAGap_data();
    void aStoppedProgramLeavesAGap();
    void aLineThatComesBackEndsTheGap_data() { kindsOfFiles(); }
    void aLineThatComesBackEndsTheGap();

private:
    RecordingFolder m_folder;
};

void RecordGapsTest::aSilentStationIsAGap()
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
void RecordGapsTest::noSampleIsEmptyWithoutAGap()
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
    // Unless station 1 was silent, too: the simulator of a busy machine is.
    QVERIFY(!withoutTimes(events).contains(QStringLiteral("0 [no answer]"))
            || recording.output().contains(" station 1 does not answer"));
    const CommandResult replay = runCommand({QStringLiteral("replay"), path});
    QCOMPARE(replay.exitCode, 0);
    const QStringList lines = withoutTimes(replay.output);
    QVERIFY(lines.contains(QStringLiteral("9 D101 not read")));
    QVERIFY(lines.contains(QStringLiteral("9 D101 no answer")));
}

void RecordGapsTest::aStoppedProgramLeavesAGap_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("moments");
    QTest::newRow("samples in a table") << "stopped.csv"
                                        << "--every 200ms";
    QTest::newRow("changes in a database") << "stopped.sqlite"
                                           << "--changes";
}

// As a machine that was suspended does. The value is the same before and behind.
void RecordGapsTest::aStoppedProgramLeavesAGap()
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

// The value is the same as before, so that nothing but the read itself tells that it is back.
void RecordGapsTest::aLineThatComesBackEndsTheGap()
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
    const QStringList events = withoutTimes(changesIn(eventsOf(path)));
    const int gap = static_cast<int>(events.indexOf(lost));
    QVERIFY(gap > 0);
    QCOMPARE(events.at(gap - 1), QStringLiteral("0 0"));
    QCOMPARE(events.at(gap + 1), QStringLiteral("0 0"));
}

QTEST_GUILESS_MAIN(RecordGapsTest)
#include "tst_record_gaps.moc"
