#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

/// "D100@1: 7 8", or "D100@9: no reply"
QString textOf(const ReadOutcome& outcome)
{
    const AddressRange& range = outcome.tag.range;
    QStringList values;
    for (const qint64 value : outcome.values)
        values << QString::number(value);
    return QStringLiteral("%1@%2: %3")
        .arg(addressText(range.type, range.address))
        .arg(range.station)
        .arg(outcome.failure.isNone() ? values.join(QLatin1Char(' ')) : outcome.failure.text);
}

} // namespace

class ReadJobTest : public QObject
{
    Q_OBJECT

private slots:
    void outcomes_data();
    void outcomes();
    void aPolledFailureIsNotItsOwn();
    void anAbortedOneTellsWhatWasNotRead();
    void nothingToRead();
};

void ReadJobTest::outcomes_data()
{
    QTest::addColumn<QStringList>("ranges");
    QTest::addColumn<QStringList>("asked");    // without the CRC
    QTest::addColumn<QStringList>("outcomes"); // see textOf()
    QTest::newRow("two registers: function 3, register 100")
        << QStringList{"D100:2@1"} << QStringList{"01 03 00 64 00 02"}
        << QStringList{"D100@1: 7 8"};
    // Function 1, coil 4047; the second M range starts at coil 12000.
    QTest::newRow("coils on both sides of M2048, in two pieces")
        << QStringList{"M2047:2@1"} << QStringList{"01 01 0F CF 00 01", "01 01 2E E0 00 01"}
        << QStringList{"M2047@1: 1 0"};
    QTest::newRow("a piece that fails is all that the range says")
        << QStringList{"D100:2@9", "D101@1"}
        << QStringList{"01 03 00 65 00 01", "09 03 00 64 00 02"}
        << QStringList{"D100@9: no reply", "D101@1: 8"};
    QTest::newRow("near ranges in one request, types and stations in their order")
        << QStringList{"M2047@1", "D101@1", "D100@1"}
        << QStringList{"01 01 0F CF 00 01", "01 03 00 64 00 02"}
        << QStringList{"M2047@1: 1", "D101@1: 8", "D100@1: 7"};
    QTest::newRow("a silent station is asked once")
        << QStringList{"D100@9", "M0@9", "D101@1", "D7000@9"}
        << QStringList{"01 03 00 65 00 01", "09 01 07 D0 00 01"}
        << QStringList{"D100@9: no reply", "M0@9: no reply", "D101@1: 8", "D7000@9: no reply"};
    QTest::newRow("the same range twice, read once")
        << QStringList{"D100@1", "D100@1"} << QStringList{"01 03 00 64 00 01"}
        << QStringList{"D100@1: 7", "D100@1: 7"};
    QTest::newRow("a station left out") << QStringList{"D100"} << QStringList()
                                        << QStringList{"D100@-1: the station must be 1 to 247"};
}

void ReadJobTest::outcomes()
{
    QFETCH(QStringList, ranges);
    PollingRun polling;
    QString error;
    for (const char* const preset : {"D100@1=7,8", "M2047@1=1,0"})
        QVERIFY(polling.run().line().stations().preset(assignmentOf(preset), &error));
    QList<Tag> tags;
    for (const QString& range : ranges)
        tags << tagOf(qPrintable(range));
    ReadJob job(&polling.session(), tags);
    QStringList outcomes;
    connect(&job, &ReadJob::rangeFinished, this,
            [&](const ReadOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    // Refusals come from the event loop, all else from the line.
    QTRY_VERIFY(polling.untilEnded(job));
    QTEST(outcomes, "outcomes");
    QTEST(polling.asked(), "asked");
    QVERIFY(polling.pollsGoOn());
}

// Neither its end nor its reason.
void ReadJobTest::aPolledFailureIsNotItsOwn()
{
    PollingRun polling;
    QList<AddressRange> watched = polling.run().watched();
    watched << tagOf("D0@9").range;
    polling.session().watch(watched);
    const QString polledInVain = QStringLiteral("09 03 00 00 00 01");
    QVERIFY(polling.until([&] { return polling.asked().contains(polledInVain); }));
    QString error;
    QVERIFY(polling.run().line().stations().preset(assignmentOf("D100@1=7"), &error));
    ReadJob job(&polling.session(), {tagOf("D100@1"), tagOf("D100@2")});
    QStringList outcomes;
    connect(&job, &ReadJob::rangeFinished, this,
            [&](const ReadOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    QVERIFY(polling.untilEnded(job));
    QCOMPARE(outcomes, (QStringList{"D100@1: 7", "D100@2: 0"}));
}

void ReadJobTest::anAbortedOneTellsWhatWasNotRead()
{
    PollingRun polling;
    ReadJob job(&polling.session(), {tagOf("D100@1"), tagOf("D300@1"), tagOf("D500@1")});
    QStringList outcomes;
    connect(&job, &ReadJob::rangeFinished, this,
            [&](const ReadOutcome& outcome) { outcomes << textOf(outcome); });
    job.start();
    QVERIFY(polling.untilOnTheWay(QStringLiteral("01 03 01 2C 00 01")));
    job.abort(QStringLiteral("interrupted"));
    QCOMPARE(outcomes, (QStringList{"D100@1: 0", "D300@1: interrupted", "D500@1: interrupted"}));
}

void ReadJobTest::nothingToRead()
{
    PollingRun polling;
    ReadJob job(&polling.session(), {});
    job.start();
    QVERIFY(job.hasEnded());
    QVERIFY(job.failure().isNone());
}

QTEST_GUILESS_MAIN(ReadJobTest)
#include "tst_read_job.moc"
