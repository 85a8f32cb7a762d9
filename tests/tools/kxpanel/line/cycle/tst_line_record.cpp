#include "kxpanel/line/cycle/line_record.h"

#include "../../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

const qint64 BEGIN = SAMPLE_TIME * 1000; // microseconds

// Each poll has the line from its begin on for 22709 us: 8334 for the request, 5000 for the
// station, 9375 for the reply. One begins every 50 ms.
LineRecord recordOf(const QVector<Exchange>& exchanges, int most = LineRecord::MOST)
{
    LineRecord record(most);
    for (const Exchange& exchange : exchanges)
        record.add(exchange, kx::LineTiming());
    return record;
}

} // namespace

class LineRecordTest : public QObject
{
    Q_OBJECT

private slots:
    void lateReplies_data();
    void lateReplies();
    void marksTheLateOnesOnceAUsualTimeIsKnown();
    void findsByTime();
    void keepsMarksOfWhatItKeeps();
    void shares();
    void measuresCycles();
    void stationsAreThoseOfWhatItKeeps();
    void knowsWhoIsSilent();
    void whatComesNextCutsIt();
    void beginsAnewWhenTheClockIsPutBack();
    void clears();
};

void LineRecordTest::lateReplies_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<qint64>("turnaround");
    QTest::addColumn<qint64>("usual");
    QTest::addColumn<bool>("isLate");
    // The frame gap at 9600 baud is 3.5 characters of 10 bits: 3646 us.
    QTest::newRow("as ever") << 9600 << qint64(5000) << qint64(5000) << false;
    QTest::newRow("twice") << 9600 << qint64(10000) << qint64(5000) << false;
    QTest::newRow("more than twice") << 9600 << qint64(10001) << qint64(5000) << true;
    QTest::newRow("more than twice, within a gap") << 9600 << qint64(4646) << qint64(1000) << false;
    QTest::newRow("by more than a gap") << 9600 << qint64(4647) << qint64(1000) << true;
    QTest::newRow("a network, within a millisecond") << 0 << qint64(1200) << qint64(200) << false;
    QTest::newRow("a network") << 0 << qint64(1201) << qint64(200) << true;
}

void LineRecordTest::lateReplies()
{
    QFETCH(int, baud);
    QFETCH(qint64, turnaround);
    QFETCH(qint64, usual);
    kx::LineTiming timing;
    timing.baud = baud;
    QTEST(isLateReply(turnaround, usual, timing), "isLate");
}

void LineRecordTest::marksTheLateOnesOnceAUsualTimeIsKnown()
{
    QVector<Exchange> polls = answeredPolls(18);
    polls[15].turnaround = 20000; // the 16th: of 15 before it no usual time is taken
    polls[17].turnaround = 20000;
    const LineRecord record = recordOf(polls);
    QVERIFY(!record.mark(15).isLate);
    QVERIFY(!record.mark(16).isLate);
    QVERIFY(record.mark(17).isLate);
    // What another station usually takes does not count.
    Exchange slow = refusedWrite();
    slow.turnaround = 20000;
    LineRecord other = record;
    other.add(slow, kx::LineTiming());
    QVERIFY(!other.mark(other.history().end() - 1).isLate);
}

void LineRecordTest::findsByTime()
{
    const LineRecord record = recordOf(answeredPolls(3));
    QCOMPARE(record.mark(1).times.sent, BEGIN + 50000);
    QCOMPARE(record.mark(1).times.replyEnded, BEGIN + 72709);
    QCOMPARE(record.firstAfter(BEGIN - 1), qint64(0));
    QCOMPARE(record.firstAfter(BEGIN + 22708), qint64(0));
    QCOMPARE(record.firstAfter(BEGIN + 22709), qint64(1));
    QCOMPARE(record.firstAfter(BEGIN + 999999), qint64(3));
    QCOMPARE(record.placeAt(BEGIN - 1), qint64(-1));
    QCOMPARE(record.placeAt(BEGIN), qint64(0));
    QCOMPARE(record.placeAt(BEGIN + 49999), qint64(0));
    QCOMPARE(record.placeAt(BEGIN + 50000), qint64(1));
    QCOMPARE(record.placeAt(BEGIN + 999999), qint64(2));
}

void LineRecordTest::keepsMarksOfWhatItKeeps()
{
    const LineRecord record = recordOf(answeredPolls(5), 2);
    QCOMPARE(record.history().begin(), qint64(3));
    QCOMPARE(record.mark(3).times.sent, BEGIN + 150000);
    QCOMPARE(record.firstAfter(BEGIN), qint64(3));
    QCOMPARE(record.placeAt(BEGIN), qint64(-1));
}

void LineRecordTest::shares()
{
    const LineRecord record = recordOf(answeredPolls(3));
    const LineShares whole = record.shares(BEGIN, BEGIN + 100000); // two polls
    QCOMPARE(whole.sending, qint64(16668));
    QCOMPARE(whole.waiting, qint64(10000));
    QCOMPARE(whole.receiving, qint64(18750));
    QCOMPARE(whole.silence, qint64(54582));
    const LineShares before = record.shares(BEGIN - 5000, BEGIN);
    QCOMPARE(before.silence, qint64(5000));
    QCOMPARE(before.all(), qint64(5000));
}

void LineRecordTest::measuresCycles()
{
    const auto cycles = [](int polls) { return recordOf(answeredPolls(polls)).latestCycles(2); };
    QCOMPARE(cycles(1).count, 0); // it is not over
    QCOMPARE(cycles(1).time, qint64(0));
    QCOMPARE(cycles(2).count, 1);
    QCOMPARE(cycles(2).time, qint64(50000));
    QCOMPARE(cycles(3).count, 2);
    QCOMPARE(cycles(3).time, qint64(100000));
    QCOMPARE(cycles(9).count, 2); // the latest two
    QCOMPARE(cycles(9).time, qint64(100000));
    QCOMPARE(LineRecord().latestCycles(1).count, 0);
}

void LineRecordTest::stationsAreThoseOfWhatItKeeps()
{
    LineRecord record(3);
    record.add(refusedWrite(), kx::LineTiming()); // at station 2, as in a scan
    for (const Exchange& exchange : answeredPolls(2))
        record.add(exchange, kx::LineTiming());
    QCOMPARE(record.stations(), QList<int>({1, 2}));
    QVERIFY(record.isFull());
    record.add(answeredPolls(3).last(), kx::LineTiming());
    QCOMPARE(record.stations(), QList<int>({1}));
    QCOMPARE(record.replyTimes().value(2).count(), qint64(1)); // these are known on
}

void LineRecordTest::knowsWhoIsSilent()
{
    LineRecord record;
    Exchange lastTry = unansweredPoll();
    lastTry.isFinal = true;
    record.add(unansweredPoll(), kx::LineTiming()); // it has another try
    QCOMPARE(record.silentStations(), QList<int>());
    record.add(lastTry, kx::LineTiming());
    Exchange excuse = refusedWrite();
    excuse.exceptionCode = 11; // a gateway's, for station 2
    excuse.sentAt += 300;
    excuse.finishedAt += 300;
    record.add(excuse, kx::LineTiming());
    QCOMPARE(record.silentStations(), QList<int>({1, 2}));
    QCOMPARE(record.replyTimes().value(2).count(), qint64(0));
    record.add(answeredPolls(9).last(), kx::LineTiming());
    QCOMPARE(record.silentStations(), QList<int>({2}));
    record.clear();
    QCOMPARE(record.silentStations(), QList<int>());
}

void LineRecordTest::whatComesNextCutsIt()
{
    QVector<Exchange> polls = answeredPolls(3);
    polls[1].sentAt = SAMPLE_TIME + 20; // before the first is over, by its characters
    polls[2].sentAt = SAMPLE_TIME + 20; // in the same millisecond
    const LineRecord record = recordOf(polls);
    QCOMPARE(record.history().size(), 3);
    QCOMPARE(record.mark(0).times.replyBegan, BEGIN + 13334);
    QCOMPARE(record.mark(0).times.replyEnded, BEGIN + 20000);
    QCOMPARE(record.mark(1).times.sent, BEGIN + 20000);
    QCOMPARE(record.mark(1).times.replyEnded, BEGIN + 20000);
    QCOMPARE(record.mark(2).times.replyEnded, BEGIN + 42709);
    QCOMPARE(record.shares(BEGIN, BEGIN + 42709).silence, qint64(0));
}

void LineRecordTest::beginsAnewWhenTheClockIsPutBack()
{
    LineRecord record = recordOf(answeredPolls(4));
    record.add(answeredPoll(), kx::LineTiming()); // at the time of the first
    QCOMPARE(record.history().begin(), qint64(4));
    QCOMPARE(record.history().size(), 1);
    QCOMPARE(record.mark(4).times.sent, BEGIN);
}

void LineRecordTest::clears()
{
    LineRecord record = recordOf(answeredPolls(4), 7);
    record.add(unansweredPoll(), kx::LineTiming());
    QCOMPARE(record.stations(), QList<int>({1}));
    QCOMPARE(record.replyTimes().value(1).count(), qint64(4));
    record.clear();
    QCOMPARE(record.history().size(), 0);
    QCOMPARE(record.history().most(), 7);
    QVERIFY(record.stations().isEmpty());
    record.add(refusedWrite(), kx::LineTiming());
    QCOMPARE(record.stations(), QList<int>({2}));
}

QTEST_GUILESS_MAIN(LineRecordTest)

#include "tst_line_record.moc"
