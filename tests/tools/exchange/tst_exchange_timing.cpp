#include "tools/exchange/exchange_loop_fixture.h"

using namespace kx;

// As long as READ, at address 200.
const char* const READ_OTHER = "01 03 00 C8 00 02";

class ExchangeTimingTest : public ExchangeLoopFixture
{
    Q_OBJECT

private slots:
    void timeOutCountsFromTheEndOfTheTransmission();
    void bytesAreLeftInThePortUntilTheReplyCanBeWhole();
    void silenceIsKeptAfterAReply();
    void silenceStartsAgainWithStrayBytes();
    void silenceStartsAgainWithBytesInThePort();
    void broadcastWaitsTheTurnaroundOnly();
    void nothingToSendIsAskedAgainAfterTheIdleInterval();
    void wakeAsksAtOnce();
    void lateReplyIsThrownAwayBeforeTheNextRequest();
    void aRequestWaitsForALateReplyItCouldBeMistakenFor();
    void theLateReplyEndsTheWait();
    void theLateReplyLiesInThePortWhenTheWaitEnds();
    void aRequestOfAnotherLengthDoesNotWait();
    void aRepeatDoesNotWait();
    void damagedBytesMayBelongToAnotherReplyThatIsOwed();
    void damagedReplyIsTheOnlyOneToCome();
    void aLongerSilenceIsKeptWhenAskedFor();
    void aReplySoonerThanItsCharacters_data();
    void aReplySoonerThanItsCharacters();
};

void ExchangeTimingTest::timeOutCountsFromTheEndOfTheTransmission()
{
    m_line->characters.baud = 1200; // 8 characters of 10 bits take 67 ms
    m_settings.replyTimeout = 40;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_line->now() - m_line->writtenAt.first(), qint64(106));
}

void ExchangeTimingTest::bytesAreLeftInThePortUntilTheReplyCanBeWhole()
{
    m_line->characters.baud = 1200; // 67 ms request, 75 ms reply
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(m_line->isReporting);
    QVERIFY(waitForRequests(1));
    QVERIFY(!m_line->isReporting);
    m_line->waiting = withCrc(GOOD); // found at the first look
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_driver->replies, QList<QByteArray>({withCrc(GOOD)}));
    QCOMPARE(m_line->now() - m_line->writtenAt.first(), qint64(67 + 37));
    QVERIFY(m_line->isReporting);
}

void ExchangeTimingTest::silenceIsKeptAfterAReply()
{
    m_line->characters.baud = 1200; // 3.5 characters of 10 bits: 29.2 ms
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{160, withCrc(GOOD)}}); // 67 ms request, 75 ms reply
    start();
    QVERIFY(waitForRequests(2));
    QCOMPARE(betweenRequests(0), qint64(160 + 29));
}

void ExchangeTimingTest::silenceStartsAgainWithStrayBytes()
{
    m_line->characters.baud = 1200;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{160, withCrc(GOOD)}, {180, QByteArray("\x55")}});
    start();
    QVERIFY(waitForRequests(2));
    QCOMPARE(betweenRequests(0), qint64(180 + 29));
}

void ExchangeTimingTest::silenceStartsAgainWithBytesInThePort()
{
    m_line->characters.baud = 1200; // 3.5 characters of 10 bits: 29.2 ms
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->waiting = QByteArray("\x55");
    start();
    QVERIFY(waitForRequests(1));
    // The silence before the bytes were seen, and the one after.
    QCOMPARE(m_line->writtenAt.first(), qint64(29 + 29));
    QCOMPARE(m_loop->statistics().thrownAway.bytes, qint64(1));
}

void ExchangeTimingTest::broadcastWaitsTheTurnaroundOnly()
{
    m_settings.turnaround = 40;
    m_driver->results = {2};
    // Station 0, function 6, address 100, value 5.
    m_driver->request(withCrc("00 06 00 64 00 05"), 8);
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_records.first().replyKind, ReplyKind::Broadcast);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray()}));
    QCOMPARE(m_loop->elapsed(), qint64(40));
}

void ExchangeTimingTest::nothingToSendIsAskedAgainAfterTheIdleInterval()
{
    m_settings.idleInterval = 10;
    start();
    QVERIFY(passUntil([&] { return m_driver->polls >= 4; }));
    QCOMPARE(m_loop->elapsed(), qint64(3 * 10));
}

void ExchangeTimingTest::wakeAsksAtOnce()
{
    m_settings.idleInterval = 5000;
    start();
    QVERIFY(passUntil([&] { return m_driver->polls >= 1; }));
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    pass(200);
    m_loop->wake();
    QVERIFY(waitForRequests(1));
    QCOMPARE(m_line->writtenAt.first(), qint64(200));
}

void ExchangeTimingTest::lateReplyIsThrownAwayBeforeTheNextRequest()
{
    m_line->characters.baud = 1200; // a gap of 30 ms
    m_settings.replyTimeout = 20;
    m_driver->results = {2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    // The time-out ends after 67 + 20 ms, the next request follows at once.
    m_line->answer({});
    m_line->answer({{1, withCrc(GOOD)}});
    start();
    connect(m_loop.get(), &ExchangeLoop::exchanged, this, [this] {
        if (m_records.size() == 1)
            emit m_line->bytesArrived(withCrc("01 03 04 FF FF FF FF"));
    });
    QVERIFY(waitForRecords(2));
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray(), withCrc(GOOD)}));
    QCOMPARE(m_records.at(1).reply, withCrc(GOOD));
    QCOMPARE(m_loop->statistics().bytesReceived, qint64(18));
    QCOMPARE(m_loop->statistics().thrownAway.late, qint64(1));
}

void ExchangeTimingTest::aRequestWaitsForALateReplyItCouldBeMistakenFor()
{
    m_settings.replyTimeout = 60;
    m_settings.settle = 200;
    m_driver->results = {2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ_OTHER), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(2));
    QCOMPARE(betweenRequests(0), qint64(260));
    QCOMPARE(m_loop->statistics().heldBack, qint64(1));
}

void ExchangeTimingTest::theLateReplyEndsTheWait()
{
    m_settings.replyTimeout = 60;
    m_settings.settle = 4000;
    m_driver->results = {2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ_OTHER), GOOD_LENGTH);
    m_line->answer({{150, withCrc(GOOD)}});
    m_line->answer({{1, withCrc("01 03 04 00 01 00 02")}});
    start();
    QVERIFY(waitForRecords(2));
    QCOMPARE(betweenRequests(0), qint64(150));
    QCOMPARE(m_driver->replies.at(1), withCrc("01 03 04 00 01 00 02"));
    QCOMPARE(m_loop->statistics().thrownAway.late, qint64(1));
    QCOMPARE(m_loop->statistics().heldBack, qint64(1));
}

void ExchangeTimingTest::theLateReplyLiesInThePortWhenTheWaitEnds()
{
    m_settings.replyTimeout = 60;
    m_settings.settle = 200;
    m_driver->results = {2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ_OTHER), GOOD_LENGTH);
    start();
    QVERIFY(waitForRecords(1));
    m_line->waiting = withCrc(GOOD);
    QVERIFY(waitForRequests(2));
    QCOMPARE(m_loop->statistics().thrownAway.late, qint64(1));
    QCOMPARE(m_loop->statistics().thrownAway.foreign, qint64(0));
}

void ExchangeTimingTest::aRequestOfAnotherLengthDoesNotWait()
{
    m_settings.replyTimeout = 60;
    m_settings.settle = 4000;
    m_driver->results = {2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc("01 03 00 64 00 01"), 7);
    start();
    QVERIFY(waitForRequests(2));
    QCOMPARE(betweenRequests(0), qint64(60));
    QCOMPARE(m_loop->statistics().heldBack, qint64(0));
}

void ExchangeTimingTest::aRepeatDoesNotWait()
{
    m_settings.replyTimeout = 60;
    m_settings.settle = 4000;
    m_driver->results = {8, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(2));
    QCOMPARE(betweenRequests(0), qint64(60));
}

void ExchangeTimingTest::damagedBytesMayBelongToAnotherReplyThatIsOwed()
{
    m_settings.replyTimeout = 60;
    m_settings.settle = 200;
    m_driver->results = {2, 2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc("01 03 00 64 00 01"), 7);
    m_driver->request(withCrc("01 03 00 C8 00 01"), 7);
    m_line->answer({});
    // Noise, or the late reply to the first request, damaged: the second is owed its own.
    m_line->answer({{1, bytes("01 03 04 00 00 00 00")}});
    start();
    QVERIFY(waitForRequests(3));
    QCOMPARE(betweenRequests(1), qint64(260));
}

void ExchangeTimingTest::damagedReplyIsTheOnlyOneToCome()
{
    m_settings.settle = 4000;
    m_driver->results = {2, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ_OTHER), GOOD_LENGTH);
    m_line->answer({{1, bytes("01 03 04 00 00 00 00 00 00")}});
    start();
    QVERIFY(waitForRequests(2));
    QCOMPARE(betweenRequests(0), qint64(1 + 20)); // behind noise 20 ms of silence
}

void ExchangeTimingTest::aLongerSilenceIsKeptWhenAskedFor()
{
    m_settings.quiet = 120;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ_OTHER), GOOD_LENGTH);
    // The double comes as a frame of its own.
    m_line->answer({{1, withCrc(GOOD)}, {60, withCrc(GOOD)}});
    m_line->answer({{1, withCrc("01 03 04 00 01 00 02")}});
    start();
    QVERIFY(waitForRecords(2));
    QCOMPARE(betweenRequests(0), qint64(60 + 120));
    QCOMPARE(m_driver->replies.at(1), withCrc("01 03 04 00 01 00 02"));
    QCOMPARE(m_loop->statistics().thrownAway.duplicates, qint64(1));
}

void ExchangeTimingTest::aReplySoonerThanItsCharacters_data()
{
    QTest::addColumn<QList<int>>("repliesBefore"); // milliseconds
    QTest::addColumn<bool>("owesAnother");
    QTest::addColumn<bool>("isTaken");
    const QList<int> keepsTime = {170, 170, 170};
    QTest::newRow("is another's while one is owed") << keepsTime << true << false;
    QTest::newRow("is taken when nothing else is owed") << keepsTime << false << true;
    QTest::newRow("is taken on a line that does not keep time") << QList<int>({20}) << true << true;
    QTest::newRow("is taken after one reply in time") << QList<int>({170}) << true << true;
    QTest::newRow("is taken after two replies in time") << QList<int>({170, 170}) << true << true;
}

// At 1200 baud a request takes 67 ms and its reply 75 ms.
void ExchangeTimingTest::aReplySoonerThanItsCharacters()
{
    QFETCH(QList<int>, repliesBefore);
    QFETCH(bool, owesAnother);
    QFETCH(bool, isTaken);
    m_line->characters.baud = 1200;
    m_settings.replyTimeout = 200;
    m_driver->results = {};
    for (const int after : repliesBefore) {
        m_driver->request(withCrc(READ), GOOD_LENGTH);
        m_line->answer({{after - 10, withCrc(GOOD).left(8)}, {after, withCrc(GOOD).mid(8)}});
        m_driver->results << 1;
    }
    if (owesAnother) {
        m_driver->request(withCrc("02 03 00 64 00 02"), GOOD_LENGTH);
        m_line->answer({});
        m_driver->results << 2;
    }
    m_driver->request(withCrc("03 03 00 64 00 02"), GOOD_LENGTH);
    const QByteArray soon = withCrc("03 03 04 FF FF FF FF");
    const QByteArray inTime = withCrc("03 03 04 00 01 00 02");
    m_line->answer({{20, soon}, {170, inTime}});
    start();
    QVERIFY(waitForRecords(static_cast<int>(repliesBefore.size()) + (owesAnother ? 2 : 1)));
    QCOMPARE(m_driver->replies.last(), isTaken ? soon : inTime);
    QCOMPARE(m_loop->statistics().thrownAway.late, qint64(isTaken ? 0 : 1));
}

QTEST_GUILESS_MAIN(ExchangeTimingTest)
#include "tst_exchange_timing.moc"
