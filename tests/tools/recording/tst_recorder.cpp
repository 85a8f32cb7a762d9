#include "recording/recorder.h"

#include "tools/recording/recording_folder.h"

#include <QtCore/QDir>
#include <QtTest/QTest>

using namespace kx;

namespace
{

RecorderSettings settingsFor(const QString& path, bool samples)
{
    RecorderSettings settings;
    settings.path = path;
    settings.every = samples ? 1000 : 0;
    return settings;
}

} // namespace

class RecorderTest : public QObject
{
    Q_OBJECT

private slots:
    void changesAreRecordedOnce();
    void samplesAreWhatWasReadSinceTheOneBefore();
    void aSampleThatIsMissingIsAGap_data() { kinds(); }
    void aSampleThatIsMissingIsAGap();
    void whatIsRecordedOutOfTurnIsASample();
    void nothingReadOutOfTurnIsNoSample();
    void aGapBetweenTwoSamplesIsNone();
    void aGapIsNeverAnOldValue();
    void samplesThatWereMissedAreAGap_data() { kinds(); }
    void samplesThatWereMissedAreAGap();
    void aRestIsAGapOfChanges();
    void aRestIsOfTheFileInWhichItBegan();
    void isWrittenWithinASecond();
    void filesFollowEachOther();
    void filesOfASecondAreToldApart();
    void aFileThatCannotBeMadeEndsIt();
    void aFullDiskEndsIt();

private:
    static void kinds();

    RecordingFolder m_folder;
};

void RecorderTest::changesAreRecordedOnce()
{
    const QString path = m_folder.path("changes.csv");
    Recorder recorder(settingsFor(path, false));
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    QVERIFY(recorder.isInGap(0));
    recorder.onRead(START + 10, 0, number("4.5"));
    QVERIFY(!recorder.isInGap(0));
    recorder.onRead(START + 20, 0, number("4.5")); // the same again
    recorder.onRead(START + 30, 0, number("4.6"));
    recorder.onGap(START + 40, 0, GapReason::NoAnswer);
    recorder.onGap(START + 50, 0, GapReason::NoAnswer); // the same again
    recorder.onGap(START + 60, 0, GapReason::LineLost);
    recorder.onRead(START + 70, 0, number("4.6")); // the value of before the gap
    recorder.finish(START + 80);
    QCOMPARE(recorder.failure(), QString());
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "10 0 4.5", "30 0 4.6",
                          "40 0 [no answer]", "60 0 [line lost]", "70 0 4.6",
                          "80 0 [recorder stopped]", "80 1 [recorder stopped]"}));
    QCOMPARE(recorder.samples(), 3);
    QCOMPARE(recorder.gaps(), 4); // but for the end
}

void RecorderTest::samplesAreWhatWasReadSinceTheOneBefore()
{
    const QString path = m_folder.path("samples.csv");
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    recorder.onRead(START + 10, 0, number("1"));
    recorder.onRead(START + 500, 0, number("2"));
    recorder.sample(START + 1000); // the second tag is still not read
    recorder.onRead(START + 1001, 0, number("2"));
    recorder.onRead(START + 1002, 1, number("7"));
    recorder.sample(START + 2000);
    recorder.onRead(START + 2500, 1, number("7"));
    recorder.sample(START + 3000); // the first one was not read in between
    recorder.finish(START + 3100);
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "1000 0 2", "2000 0 2",
                          "2000 1 7", "3000 1 7", "3000 0 [not read]", "3100 0 [recorder stopped]",
                          "3100 1 [recorder stopped]"}));
}

void RecorderTest::kinds()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("table") << "missing.csv";
    QTest::newRow("database") << "missing.sqlite";
}

// Before the retries are over nobody knows yet that the station is silent.
void RecorderTest::aSampleThatIsMissingIsAGap()
{
    QFETCH(QString, name);
    const QString path = m_folder.path(name.toLatin1());
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open({pumpTags().first()}, START, &error));
    recorder.onRead(START + 900, 0, number("7"));
    recorder.sample(START + 1000);
    recorder.sample(START + 2000);
    recorder.sample(START + 3000);
    recorder.onGap(START + 3100, 0, GapReason::NoAnswer);
    recorder.sample(START + 4000);
    recorder.sample(START + 5000);
    recorder.onRead(START + 5900, 0, number("7"));
    recorder.sample(START + 6000);
    recorder.sample(START + 7000); // missing again, and back without a failure
    recorder.onRead(START + 7900, 0, number("7"));
    recorder.sample(START + 8000);
    recorder.finish(START + 8100);
    QCOMPARE(eventsOf(path), QStringList({"0 0 [not yet read]", "1000 0 7", "2000 0 [not read]",
                                          "4000 0 [no answer]", "6000 0 7", "7000 0 [not read]",
                                          "8000 0 7", "8100 0 [recorder stopped]"}));
}

// When the line is lost or the recorder stops, between two samples.
void RecorderTest::whatIsRecordedOutOfTurnIsASample()
{
    const QString path = m_folder.path("out_of_turn.csv");
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    recorder.onRead(START + 10, 0, number("1"));
    recorder.onRead(START + 20, 1, number("7"));
    recorder.sample(START + 1000);
    recorder.onRead(START + 1100, 0, number("2"));
    recorder.recordNews(START + 1200);
    recorder.onGap(START + 1200, 0, GapReason::LineLost);
    recorder.sample(START + 2000);
    recorder.finish(START + 2100);
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "1000 0 1", "1000 1 7",
                          "1200 0 2", "1200 1 [not read]", "2000 0 [line lost]",
                          "2100 0 [recorder stopped]", "2100 1 [recorder stopped]"}));
}

void RecorderTest::nothingReadOutOfTurnIsNoSample()
{
    const QString path = m_folder.path("no_news.csv");
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    recorder.onRead(START + 10, 0, number("1"));
    recorder.onRead(START + 20, 1, number("7"));
    recorder.sample(START + 1000);
    recorder.onGap(START + 1100, 0, GapReason::NoAnswer);
    recorder.recordNews(START + 1200);
    recorder.finish(START + 1200);
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "1000 0 1", "1000 1 7",
                          "1200 0 [no answer]", "1200 0 [recorder stopped]",
                          "1200 1 [recorder stopped]"}));
}

void RecorderTest::aGapBetweenTwoSamplesIsNone()
{
    const QString path = m_folder.path("short_gap.csv");
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open({pumpTags().first()}, START, &error));
    recorder.onGap(START + 10, 0, GapReason::NoAnswer);
    recorder.onRead(START + 20, 0, number("1"));
    recorder.sample(START + 1000);
    recorder.finish(START + 1100);
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 [not yet read]", "1000 0 1", "1100 0 [recorder stopped]"}));
}

void RecorderTest::aGapIsNeverAnOldValue()
{
    const QString path = m_folder.path("gap.csv");
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open({pumpTags().first()}, START, &error));
    recorder.onRead(START + 10, 0, number("1"));
    recorder.onGap(START + 20, 0, GapReason::Refused); // read, but lost before the sample
    for (const int time : {1000, 2000, 3000})
        recorder.sample(START + time);
    recorder.onRead(START + 3500, 0, number("1"));
    recorder.sample(START + 4000);
    recorder.finish(START + 4100);
    QCOMPARE(eventsOf(path), QStringList({"0 0 [not yet read]", "1000 0 [refused]", "4000 0 1",
                                          "4100 0 [recorder stopped]"}));
}

// Nobody took them, as after a suspension. Twice the distance is a timer that came late.
void RecorderTest::samplesThatWereMissedAreAGap()
{
    QFETCH(QString, name);
    const QString path = m_folder.path(("rest_" + name).toLatin1());
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    recorder.onRead(START + 900, 0, number("1"));
    recorder.onRead(START + 950, 1, number("7"));
    recorder.sample(START + 1000);
    recorder.onRead(START + 9950, 0, number("1"));
    recorder.sample(START + 10000);
    recorder.onRead(START + 11900, 0, number("1"));
    recorder.onRead(START + 11950, 1, number("7"));
    recorder.sample(START + 12000);
    recorder.onGap(START + 12500, 0, GapReason::NoAnswer);
    recorder.onGap(START + 12600, 1, GapReason::NotRead);
    recorder.serve(START + 14000);
    recorder.sample(START + 14001);
    recorder.finish(START + 14100);
    QCOMPARE(
        eventsOf(path),
        QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "1000 0 1", "1000 1 7",
                     "2000 0 [not read]", "2000 1 [not read]", "10000 0 1", "12000 0 1",
                     "12000 1 7", "13000 0 [not read]", "13000 1 [not read]", "14001 0 [no answer]",
                     "14100 0 [recorder stopped]", "14100 1 [recorder stopped]"}));
    QCOMPARE(recorder.gaps(), 7); // but for the end
}

void RecorderTest::aRestIsAGapOfChanges()
{
    const QString path = m_folder.path("rest_of_changes.csv");
    Recorder recorder(settingsFor(path, false));
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    recorder.onRead(START + 10, 0, number("1"));
    recorder.rest(START + 100);
    recorder.onRead(START + 5000, 0, number("1"));
    recorder.finish(START + 5100);
    QCOMPARE(eventsOf(path),
             QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "10 0 1", "100 0 [not read]",
                          "5000 0 1", "5100 0 [recorder stopped]", "5100 1 [recorder stopped]"}));
}

// The next full minute is 40 s after START.
void RecorderTest::aRestIsOfTheFileInWhichItBegan()
{
    RecorderSettings settings = settingsFor(m_folder.path("rest.csv"), true);
    settings.rotation.milliseconds = 60000;
    Recorder recorder(settings);
    QString error;
    QVERIFY(recorder.open({pumpTags().first()}, START, &error));
    const QString first = recorder.file();
    recorder.onRead(START + 900, 0, number("1"));
    recorder.sample(START + 1000);
    QVERIFY(recorder.serve(START + 50000));
    recorder.onRead(START + 50900, 0, number("1"));
    recorder.sample(START + 51000);
    recorder.finish(START + 51100);
    QCOMPARE(eventsOf(first), QStringList({"0 0 [not yet read]", "1000 0 1", "2000 0 [not read]"}));
    QCOMPARE(eventsOf(recorder.file()),
             QStringList({"50000 0 [not read]", "51000 0 1", "51100 0 [recorder stopped]"}));
}

void RecorderTest::isWrittenWithinASecond()
{
    const QString path = m_folder.path("waits.csv");
    Recorder recorder(settingsFor(path, false));
    QString error;
    QVERIFY(recorder.open({pumpTags().first()}, START, &error));
    recorder.onRead(START + 10, 0, number("1"));
    QVERIFY(!recorder.serve(START + 499));
    QCOMPARE(eventsOf(path), QStringList());
    QVERIFY(!recorder.serve(START + 500));
    QCOMPARE(eventsOf(path), QStringList({"0 0 [not yet read]", "10 0 1"}));
    recorder.onRead(START + 600, 0, number("2"));
    recorder.serve(START + 1100);
    QCOMPARE(eventsOf(path).last(), QStringLiteral("600 0 2"));
}

// Each begins with what is known, and none ends as if the recorder had stopped.
void RecorderTest::filesFollowEachOther()
{
    RecorderSettings settings = settingsFor(m_folder.path("line.csv"), false);
    settings.rotation.milliseconds = 60000; // the next full minute is 40 s later
    Recorder recorder(settings);
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    const QString first = recorder.file();
    QCOMPARE(first, m_folder.path("line-20231114T221320Z.csv"));
    recorder.onRead(START + 10, 0, number("1"));
    QVERIFY(!recorder.serve(START + 39999));
    QVERIFY(recorder.serve(START + 40000));
    const QString second = recorder.file();
    QCOMPARE(second, m_folder.path("line-20231114T221400Z.csv"));
    recorder.onRead(START + 40500, 1, number("1"));
    recorder.finish(START + 41000);
    QCOMPARE(eventsOf(first), QStringList({"0 0 [not yet read]", "0 1 [not yet read]", "10 0 1"}));
    QCOMPARE(eventsOf(second),
             QStringList({"40000 0 1", "40000 1 [not yet read]", "40500 0 1", "40500 1 1",
                          "41000 0 [recorder stopped]", "41000 1 [recorder stopped]"}));
    QVERIFY(!QFile::exists(settings.path));
}

void RecorderTest::filesOfASecondAreToldApart()
{
    RecorderSettings settings = settingsFor(m_folder.path("big.csv"), true);
    settings.rotation.bytes = 10;
    Recorder recorder(settings);
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    QVERIFY(recorder.serve(START + 500));
    QCOMPARE(recorder.file(), m_folder.path("big-20231114T221320Z-2.csv"));
    QVERIFY(recorder.serve(START + 1000));
    QCOMPARE(recorder.file(), m_folder.path("big-20231114T221321Z.csv"));
    recorder.finish(START + 1001);
}

void RecorderTest::aFileThatCannotBeMadeEndsIt()
{
    QVERIFY(QDir().mkdir(m_folder.path("gone")));
    RecorderSettings settings = settingsFor(m_folder.path("gone/line.csv"), true);
    settings.rotation.milliseconds = 60000;
    Recorder recorder(settings);
    QString error;
    QVERIFY(recorder.open(pumpTags(), START, &error));
    QVERIFY(QDir(m_folder.path("gone")).removeRecursively());
    QVERIFY(!recorder.serve(START + 40000));
    const QString failure = m_folder.path("gone/line-20231114T221400Z.csv")
                            + QStringLiteral(": cannot be written: No such file or directory");
    QCOMPARE(recorder.failure(), failure);
    recorder.sample(START + 41000);
    recorder.finish(START + 42000);
    QCOMPARE(recorder.failure(), failure);
}

void RecorderTest::aFullDiskEndsIt()
{
    const QString path = m_folder.path("full.csv");
    Recorder recorder(settingsFor(path, true));
    QString error;
    QVERIFY(recorder.open({pumpTags().first()}, START, &error));
    recorder.serve(START + 500);
    recorder.onRead(START + 900, 0, number("1"));
    recorder.sample(START + 1000);
    {
        const FullDisk full(80);
        QVERIFY(!recorder.serve(START + 1500));
    }
    QCOMPARE(recorder.failure(), path + QStringLiteral(": cannot go on recording: File too large"));
    recorder.finish(START + 2000);
    QCOMPARE(eventsOf(path), QStringList("0 0 [not yet read]"));
}

QTEST_GUILESS_MAIN(RecorderTest)
#include "tst_recorder.moc"
