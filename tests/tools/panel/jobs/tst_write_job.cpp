#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

/// "D100=7: 1 confirmed, no reply"
QString textOf(const WriteOutcome& outcome)
{
    const AddressRange& range = outcome.assignment.range;
    return QStringLiteral("%1@%2: %3 confirmed, %4")
        .arg(addressText(range.type, range.address))
        .arg(range.station)
        .arg(outcome.confirmed)
        .arg(outcome.failure.isNone() ? QStringLiteral("done") : outcome.failure.text);
}

} // namespace

class WriteJobTest : public QObject
{
    Q_OBJECT

private slots:
    void outcomes_data();
    void outcomes();
    void aStationThatDoesNotExistConfirmsNothing();
    void theFirstFailureIsTheJobs();
    void oneTargetTwice();
    void oneBitOfAWord();
    void aBitThatCannotBeWritten_data();
    void aBitThatCannotBeWritten();
    void aRecipesBlockConfirmsNoWrite();
    void anAbortedOneTellsWhatWasConfirmed();
    void abortFromInsideTheWriteItself_data();
    void abortFromInsideTheWriteItself();
    void nothingToWrite();
};

void WriteJobTest::outcomes_data()
{
    QTest::addColumn<QStringList>("assignments");
    QTest::addColumn<QStringList>("asked");    // without the CRC
    QTest::addColumn<QStringList>("outcomes"); // see textOf()
    QTest::newRow("a register: function 6, register 100, 7")
        << QStringList{"D100@1=7"} << QStringList{"01 06 00 64 00 07"}
        << QStringList{"D100@1: 1 confirmed, done"};
    // Function 15, coils 2000 and 2001, 7 coils of one byte: 2000 goes alone.
    QTest::newRow("eight coils in two pieces")
        << QStringList{"M0@1=1,1,0,0,0,0,0,1"}
        << QStringList{"01 05 07 D0 FF 00", "01 0F 07 D1 00 07 01 41"}
        << QStringList{"M0@1: 8 confirmed, done"};
    QTest::newRow("the next one is tried after a failure")
        << QStringList{"D100@9=7", "D101@2=8"}
        << QStringList{"09 06 00 64 00 07", "02 06 00 65 00 08"}
        << QStringList{"D100@9: 0 confirmed, no reply", "D101@2: 1 confirmed, done"};
    QTest::newRow("an input is refused, the next one is tried")
        << QStringList{"X0@1=1", "D101@2=8"} << QStringList{"02 06 00 65 00 08"}
        << QStringList{"X0@1: 0 confirmed, an input, which cannot be written",
                       "D101@2: 1 confirmed, done"};
    QTest::newRow("a station left out")
        << QStringList{"D100=7"} << QStringList()
        << QStringList{"D100@-1: 0 confirmed, the station must be 1 to 247"};
}

void WriteJobTest::outcomes()
{
    QFETCH(QStringList, assignments);
    PollingRun polling;
    QList<Assignment> wanted;
    for (const QString& text : assignments)
        wanted << assignmentOf(qPrintable(text));
    WriteJob job(&polling.session(), wanted);
    QStringList outcomes;
    connect(&job, &WriteJob::assignmentFinished, this,
            [&](const WriteOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    // Refusals come from the event loop, all else from the line.
    QTRY_VERIFY(polling.untilEnded(job));
    QTEST(outcomes, "outcomes");
    QTEST(polling.asked(), "asked");
    QVERIFY(polling.pollsGoOn());
}

// A polled read that was on its way is answered first.
void WriteJobTest::aStationThatDoesNotExistConfirmsNothing()
{
    PollingRun polling;
    QVERIFY(polling.untilOnTheWay(QString::fromLatin1(POLLED)));
    WriteJob job(&polling.session(), {assignmentOf("D100@9=7")});
    QStringList outcomes;
    connect(&job, &WriteJob::assignmentFinished, this,
            [&](const WriteOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    QVERIFY(polling.untilEnded(job));
    QCOMPARE(outcomes, QStringList{"D100@9: 0 confirmed, no reply"});
    QCOMPARE(job.failure().kind, FailureKind::NoReply);
    QCOMPARE(job.failure().station, 9);
}

void WriteJobTest::theFirstFailureIsTheJobs()
{
    PollingRun polling;
    WriteJob job(&polling.session(),
                 {assignmentOf("D100@9=7"), assignmentOf("X0@1=1"), assignmentOf("D100@1=7")});
    job.start();
    // Refusals come from the event loop, all else from the line.
    QTRY_VERIFY(polling.untilEnded(job));
    QCOMPARE(job.failure().kind, FailureKind::NoReply);
    QCOMPARE(job.failure().station, 9);
    QCOMPARE(polling.memory("D100@1"), QList<quint32>{7});
}

// The bits of one word one after the other: each is read with the one before.
void WriteJobTest::oneBitOfAWord()
{
    PollingRun polling;
    Assignment fifth = assignmentOf("D100@1=1");
    fifth.bit = 5;
    Assignment lowest = assignmentOf("D100@1=0");
    lowest.bit = 0;
    WriteJob job(&polling.session(), {assignmentOf("D100@1=0x8001"), fifth, lowest});
    QList<qint64> words;
    connect(&job, &WriteJob::assignmentFinished, this,
            [&](const WriteOutcome& outcome) { words << outcome.word; });
    job.start();
    QVERIFY(polling.untilEnded(job));
    QVERIFY(job.failure().isNone());
    QCOMPARE(polling.asked(),
             (QStringList{"01 06 00 64 80 01", // register 100, 0x8001
                          "01 03 00 64 00 01", // read register 100
                          "01 06 00 64 80 21", // bit 5 set
                          "01 03 00 64 00 01", "01 06 00 64 80 20"}));
    QCOMPARE(words, (QList<qint64>{-1, 0x8021, 0x8020}));
    QCOMPARE(polling.memory("D100@1"), QList<quint32>{0x8020});
}

void WriteJobTest::aBitThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("of a word that changes by itself")
        << "TV5@1=1" << QStringList()
        << "TV5@1: 0 confirmed, one bit of a word, which has to be read first";
    QTest::newRow("of two words")
        << "D5@1=1,1" << QStringList()
        << "D5@1: 0 confirmed, one bit of a word, which has to be read first";
    QTest::newRow("of a station that does not answer")
        << "D100@9=1" << QStringList{"09 03 00 64 00 01"} << "D100@9: 0 confirmed, no reply";
}

void WriteJobTest::aBitThatCannotBeWritten()
{
    QFETCH(QString, assignment);
    PollingRun polling;
    Assignment bit = assignmentOf(qPrintable(assignment));
    bit.bit = 3;
    WriteJob job(&polling.session(), {bit});
    QStringList outcomes;
    connect(&job, &WriteJob::assignmentFinished, this,
            [&](const WriteOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    QTRY_VERIFY(polling.untilEnded(job));
    QTEST(polling.asked(), "asked");
    QTEST(outcomes.value(0), "outcome");
}

void WriteJobTest::oneTargetTwice()
{
    PollingRun polling;
    WriteJob one(&polling.session(), {assignmentOf("D100@1=1"), assignmentOf("D100@1=2")});
    WriteJob other(&polling.session(), {assignmentOf("D100@1=3")});
    one.start();
    other.start();
    QVERIFY(polling.untilEnded(one));
    QVERIFY(polling.untilEnded(other));
    QVERIFY(one.failure().isNone() && other.failure().isNone());
    QCOMPARE(polling.asked(),
             (QStringList{"01 06 00 64 00 01", "01 06 00 64 00 03", "01 06 00 64 00 02"}));
    QCOMPARE(polling.memory("D100@1"), QList<quint32>{2});
}

// The driver leaves the kind of the write before in the recipe's block.
void WriteJobTest::aRecipesBlockConfirmsNoWrite()
{
    PollingRun polling;
    WriteJob write(&polling.session(), {assignmentOf("D50@1=1"), assignmentOf("D100@1=9")});
    RecipeJob recipe(&polling.session(), layoutOf("a,1,D,100,uint16,5\n"),
                     RecipeDirection::Download);
    connect(&write, &Job::progress, &recipe, &Job::start);
    write.start();
    QVERIFY(polling.untilEnded(write));
    QVERIFY(polling.untilEnded(recipe));
    QCOMPARE(polling.asked(),
             (QStringList{"01 06 00 32 00 01", "01 06 00 64 00 05", "01 06 00 64 00 09"}));
    QCOMPARE(polling.memory("D100@1"), QList<quint32>{9});
}

void WriteJobTest::anAbortedOneTellsWhatWasConfirmed()
{
    PollingRun polling;
    WriteJob job(&polling.session(),
                 {assignmentOf("M0@1=1,1,0,0,0,0,0,1"), assignmentOf("D100@1=7")});
    QStringList outcomes;
    connect(&job, &WriteJob::assignmentFinished, this,
            [&](const WriteOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    QVERIFY(polling.untilOnTheWay(QStringLiteral("01 0F 07 D1 00 07 01 41")));
    job.abort(QStringLiteral("interrupted"));
    QCOMPARE(outcomes,
             (QStringList{"M0@1: 1 confirmed, interrupted", "D100@1: 0 confirmed, interrupted"}));
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.memory("D100@1"), QList<quint32>{0});
}

void WriteJobTest::abortFromInsideTheWriteItself_data()
{
    QTest::addColumn<QStringList>("assignments");
    QTest::addColumn<QStringList>("outcomes");
    QTest::newRow("the only one") << QStringList{"D0@1=7"}
                                  << QStringList{"D0@1: 0 confirmed, interrupted"};
    QTest::newRow("the first of two")
        << QStringList{"D0@1=7", "D100@1=8"}
        << QStringList{"D0@1: 0 confirmed, interrupted", "D100@1: 0 confirmed, interrupted"};
}

// The value shown becomes the one written at once, and its slot ends the job.
void WriteJobTest::abortFromInsideTheWriteItself()
{
    QFETCH(QStringList, assignments);
    PollingRun polling;
    QVERIFY(polling.pollsGoOn(1));
    QList<Assignment> wanted;
    for (const QString& text : assignments)
        wanted << assignmentOf(qPrintable(text));
    WriteJob job(&polling.session(), wanted);
    QStringList outcomes;
    connect(&job, &WriteJob::assignmentFinished, this,
            [&](const WriteOutcome& outcome) { outcomes << textOf(outcome); });
    int ends = 0;
    connect(&job, &Job::finished, this, [&] { ++ends; });
    connect(&polling.session(), &Session::valueChanged, &job,
            [&job] { job.abort(QStringLiteral("interrupted")); });
    job.start();
    QVERIFY(job.hasEnded());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(ends, 1);
    QTEST(outcomes, "outcomes");
    QCOMPARE(polling.asked(), QStringList());
}

void WriteJobTest::nothingToWrite()
{
    PollingRun polling;
    WriteJob job(&polling.session(), {});
    job.start();
    QVERIFY(job.hasEnded());
    QVERIFY(job.failure().isNone());
}

QTEST_GUILESS_MAIN(WriteJobTest)
#include "tst_write_job.moc"
