// What a table of samples has in its last rows, which are of no sample's time.

#include "tools/kxhost/commands/watch_process.h"
#include "tools/recording/recording_folder.h"

#include <QtTest/QTest>

#include <csignal>

using namespace kx;

class RecordRunTest : public QObject
{
    Q_OBJECT

private slots:
    void whatWasNotReadBeforeTheEndIsAGap_data();
    void whatWasNotReadBeforeTheEndIsAGap();

private:
    RecordingFolder m_folder;
};

void RecordRunTest::whatWasNotReadBeforeTheEndIsAGap_data()
{
    QTest::addColumn<bool>("isLineLost");
    QTest::newRow("line lost") << true;
    QTest::newRow("ended by Ctrl-C") << false;
}

// D100 is read in each cycle, D101 once an hour: behind the sample that has both, D100 alone is
// new.
void RecordRunTest::whatWasNotReadBeforeTheEndIsAGap()
{
    QFETCH(bool, isLineLost);
    const QString path = m_folder.path(isLineLost ? "lost.csv" : "ended.csv");
    const QString tags = m_folder.path("tags.csv");
    RecordingFolder::write(tags, "name,address,every\nLevel,D100,\nHours,D101,1h\n");
    auto simulator =
        std::make_unique<KxsimProcess>(presets("D100=5 D101=7") << QStringLiteral("--still"));
    RunningWatch recording(on(*simulator, "record --every 2s")
                           << QStringLiteral("--to") << path << tags);
    QTRY_VERIFY_WITH_TIMEOUT(RecordingFolder::contentOf(path).contains("Z,5,7,\n"), 20000);
    QTest::qWait(200); // for D100 to be read again
    if (isLineLost)
        simulator.reset();
    else
        recording.sendSignal(SIGINT);
    QCOMPARE(recording.exitCode(), isLineLost ? 1 : 0);
    const QList<QByteArray> rows = RecordingFolder::contentOf(path).trimmed().split('\n');
    for (int row = 1; row < rows.size(); ++row) {
        const QList<QByteArray> fields = rows.at(row).split(',');
        QVERIFY2(!fields.at(2).isEmpty() || !fields.at(3).isEmpty(), rows.join('\n').constData());
    }
}

QTEST_GUILESS_MAIN(RecordRunTest)
#include "tst_record_run.moc"
