// What a station refuses is asked for in halves.

#include "panel/jobs/read_job.h"
#include "registers/register_types.h"
#include "support/driver_fixture.h"
#include "tools/panel/watch/numbering_line.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

using namespace kx;

class ReadJobRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void halves_data();
    void halves();
    void aStationThatAGatewayDoesNotReachIsAskedOnce();
};

void ReadJobRefusalsTest::halves_data()
{
    QTest::addColumn<QStringList>("ranges");
    QTest::addColumn<int>("mostRegisters");
    QTest::addColumn<int>("missing"); // register or coil
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("failed");
    const QStringList none;
    QTest::newRow("too long for the station")
        << QStringList{"D0:125"} << 40 << -1 << "D0:125 D0:62 D0:31 D31:31 D62:63 D62:31 D93:32"
        << none;
    // 16 registers any controller answers.
    QTest::newRow("one range is cut no shorter than 16")
        << QStringList{"D0:33"} << 125 << 7 << "D0:33 D0:16 D16:17" << QStringList{"D0"};
    QTest::newRow("only what is missing fails") << QStringList{"D0", "D1", "D2", "D3"} << 125 << 2
                                                << "D0:4 D0:2 D2:2 D2:1 D3:1" << QStringList{"D2"};
    QTest::newRow("what is missing lies between")
        << QStringList{"D0", "D9"} << 125 << 5 << "D0:10 D0:1 D9:1" << none;
    QTest::newRow("counters, one from 200 on register 9700")
        << QStringList{"32CV200", "32CV202"} << 125 << 9703 << "32CV200:6 32CV200:2 32CV202:2"
        << none;
    QTest::newRow("coils, M0 being 2000") << QStringList{"M0", "M9", "M18"} << 125 << 2009
                                          << "M0:19 M0:10 M0:1 M9:1 M18:1" << QStringList{"M9"};
    QTest::newRow("ranges that overlap")
        << QStringList{"D0:4", "D2:4"} << 125 << 5 << "D0:6 D0:4 D4:2" << QStringList{"D2"};
}

void ReadJobRefusalsTest::halves()
{
    QFETCH(QStringList, ranges);
    QFETCH(int, mostRegisters);
    QFETCH(int, missing);
    VirtualClock clock;
    NumberingLine line(&clock);
    line.controller.mostRegisters = mostRegisters;
    line.controller.missing = missing;
    SessionSettings settings;
    settings.retries = 1;
    settings.maxWords = 125;
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error));
    const std::unique_ptr<Session> session =
        Session::create(entryPoints, &line, settings, &error, &clock);
    QList<Tag> tags;
    for (const QString& range : ranges)
        tags << tagOf(qPrintable(range));
    ReadJob job(session.get(), tags);
    QStringList asked;
    QStringList failed;
    connect(session.get(), &Session::exchanged, this, [&](const ExchangeRecord& record) {
        asked << QStringLiteral("%1%2:%3")
                     .arg(record.job.regType)
                     .arg(record.job.address)
                     .arg(record.job.count);
    });
    connect(&job, &ReadJob::rangeFinished, this, [&](const ReadOutcome& outcome) {
        const AddressRange& range = outcome.tag.range;
        if (!outcome.failure.isNone())
            failed << addressText(range.type, range.address);
        else if (range.type->registerClass == WORD_CLASS)
            QCOMPARE(outcome.values.last(), qint64(range.address + range.values - 1));
    });
    session->start();
    job.start();
    while (!job.hasEnded())
        QVERIFY(clock.step());
    QTEST(asked.join(QLatin1Char(' ')), "asked");
    QTEST(failed, "failed");
}

// Each request takes the gateway's time-out.
void ReadJobRefusalsTest::aStationThatAGatewayDoesNotReachIsAskedOnce()
{
    VirtualClock clock;
    NumberingLine line(&clock);
    line.silentStations = {1};
    line.noise = withCrc("01 83 0B"); // station 1, function 3 refused, target does not respond
    SessionSettings settings;
    settings.retries = 1;
    DriverEntryPoints entryPoints;
    QString error;
    QVERIFY(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error));
    const std::unique_ptr<Session> session =
        Session::create(entryPoints, &line, settings, &error, &clock);
    ReadJob job(session.get(), {tagOf("D0"), tagOf("D500"), tagOf("D900")});
    int failed = 0;
    connect(&job, &ReadJob::rangeFinished, this, [&](const ReadOutcome& outcome) {
        QCOMPARE(outcome.failure.exceptionCode, 11);
        ++failed;
    });
    session->start();
    job.start();
    while (!job.hasEnded())
        QVERIFY(clock.step());
    QCOMPARE(failed, 3);
    QCOMPARE(line.requests, 1);
}

QTEST_GUILESS_MAIN(ReadJobRefusalsTest)
#include "tst_read_job_refusals.moc"
