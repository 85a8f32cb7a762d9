// Long replies that a slow line carries for longer than a time-out.

#include "panel/jobs/read_job.h"
#include "tools/faults/faulty_run.h"

#include <QtTest/QTest>

using namespace kx;

class SlowLineTest : public QObject
{
    Q_OBJECT

private slots:
    void repliesComeWithinTheirTimeOut_data();
    void repliesComeWithinTheirTimeOut();
    void repliesToOneReadComeWithinTheirTimeOut();
};

void SlowLineTest::repliesComeWithinTheirTimeOut_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("timeOut"); // milliseconds
    QTest::addColumn<QString>("watched");
    QTest::addColumn<QStringList>("asked");
    // Of a second 750 ms, less a frame gap of 29, are 86 characters: five and 40 registers.
    QTest::newRow("1200 baud") << 1200 << 1000 << "D0:120@1" << QStringList{"40", "40", "40"};
    // 81 bytes of coils.
    QTest::newRow("coils, 1200 baud")
        << 1200 << 1000 << "M0:1300@1" << QStringList{"648", "648", "4"};
    // 150 ms, less 5, are 139 characters.
    QTest::newRow("a short time-out") << 9600 << 200 << "D0:120@1" << QStringList{"67", "53"};
    QTest::newRow("a long one") << 1200 << 3000 << "D0:120@1" << QStringList{"120"};
}

void SlowLineTest::repliesComeWithinTheirTimeOut()
{
    QFETCH(int, baud);
    QFETCH(int, timeOut);
    QFETCH(QString, watched);
    FaultyRunSettings settings;
    settings.line.timing.baud = baud;
    settings.line.trickles = true;
    settings.watched << watched;
    settings.session.choosesLengths = true;
    settings.session.maxWords = MOST_REGISTERS_PER_READ;
    settings.session.exchange.replyTimeout = timeOut;
    FaultyRun run(settings);
    QStringList asked;
    bool isOver = false;
    connect(&run.session(), &Session::exchanged, this, [&](const ExchangeRecord& record) {
        if (record.result == REPLY_ACCEPTED)
            asked << QString::number(record.job.count);
    });
    connect(&run.session(), &Session::cycleFinished, this, [&] { isOver = true; });
    run.runUntil([&] { return isOver || run.session().statistics().requests > 20; });
    QTEST(asked, "asked");
    QCOMPARE(run.session().statistics().requests, qint64(asked.size()));
}

void SlowLineTest::repliesToOneReadComeWithinTheirTimeOut()
{
    FaultyRunSettings settings;
    settings.line.timing.baud = 1200;
    settings.line.trickles = true;
    settings.session.choosesLengths = true;
    settings.session.maxWords = MOST_REGISTERS_PER_READ;
    FaultyRun run(settings);
    Tag tag;
    tag.range = rangeOf("D0:120@1");
    ReadJob job(&run.session(), {tag});
    QStringList asked;
    connect(&run.session(), &Session::exchanged, this,
            [&](const ExchangeRecord& record) { asked << QString::number(record.job.count); });
    job.start();
    run.runUntil([&] { return job.hasEnded(); });
    QCOMPARE(asked, (QStringList{"40", "40", "40"}));
    QVERIFY(job.failure().isNone());
}

QTEST_GUILESS_MAIN(SlowLineTest)

#include "tst_slow_line.moc"
