#include "tools/exchange/exchange_loop_fixture.h"

#include <QtTest/QSignalSpy>

#include <limits>

using namespace kx;

class ExchangeLoopTest : public ExchangeLoopFixture
{
    Q_OBJECT

private slots:
    void replyInPiecesIsHandedOverWhole();
    void replyKinds_data();
    void replyKinds();
    void noReplyEndsAtTheTimeOut();
    void replyOfAnotherStationIsThrownAwayAndTheRightOneTaken();
    void lateReplyAfterTheNextRequestIsNotTakenForIts();
    void badReplyIsAskedForAgain();
    void finalFailureTellsTheErrorText();
    void requestThatIsNotWholeIsNotSent_data();
    void requestThatIsNotWholeIsNotSent();
    void shortestAndLongestRequestAreSent_data();
    void shortestAndLongestRequestAreSent();
    void lostLineStopsTheLoop();
    void lineFoundLostBeforeTheRequestIsNotWrittenTo();
    void interruptedLineIsWaitedFor();
    void startOnAnInterruptedLineWaitsForIt();
    void echoIsSkippedAndTheReplyTaken();
    void whatWaitedOnTheLineIsCounted_data();
    void whatWaitedOnTheLineIsCounted();
    void whatLiesInThePortAtTheTimeOut_data();
    void whatLiesInThePortAtTheTimeOut();
    void lineFoundLostAtTheTimeOut();
    void lineFoundInterruptedAtTheTimeOut();
    void stoppedRequestGoesOutAgain();
    void theJobInFlightIsKnown();
};

void ExchangeLoopTest::replyInPiecesIsHandedOverWhole()
{
    const QByteArray good = withCrc(GOOD);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{1, good.left(1)}, {5, good.mid(1, 4)}, {10, good.mid(5)}});
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_line->written, QList<QByteArray>({withCrc(READ)}));
    QCOMPARE(m_line->discards, 1);
    QCOMPARE(m_driver->replies, QList<QByteArray>({good}));
    QCOMPARE(m_records.first().request, withCrc(READ));
    QCOMPARE(m_records.first().reply, good);
    QCOMPARE(m_records.first().result, 1);
    QCOMPARE(m_records.first().repeated, false);
    QCOMPARE(m_loop->statistics().accepted, qint64(1));
}

void ExchangeLoopTest::replyKinds_data()
{
    QTest::addColumn<QByteArray>("arriving");
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<QByteArray>("handedOver");
    const QByteArray good = withCrc(GOOD);
    const QByteArray bad = bytes("01 03 04 04 D2 16 2E 00 00");
    // Byte count 6: the reply to a request for three registers, cut off.
    const QByteArray tooLong = bytes("01 03 06 04 D2 16 2E 00 01 02");
    QTest::newRow("good") << good << ReplyKind::Good << good;
    QTest::newRow("good with noise behind it") << good + "\x55" << ReplyKind::Good << good;
    QTest::newRow("wrong CRC") << bad << ReplyKind::Bad << bad;
    QTest::newRow("longer than expected") << tooLong << ReplyKind::Bad << tooLong.left(9);
    QTest::newRow("exception 2") << withCrc("01 83 02") << ReplyKind::Exception
                                 << withCrc("01 83 02");
}

void ExchangeLoopTest::replyKinds()
{
    QFETCH(QByteArray, arriving);
    QFETCH(ReplyKind, kind);
    QFETCH(QByteArray, handedOver);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{1, arriving}});
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_records.first().replyKind, kind);
    QCOMPARE(m_records.first().reply, arriving);
    QCOMPARE(m_records.first().exceptionCode, kind == ReplyKind::Exception ? 2 : 0);
    QCOMPARE(m_driver->replies, QList<QByteArray>({handedOver}));
    // None of them waits for the time-out.
    QCOMPARE(m_loop->elapsed(), qint64(1));
}

void ExchangeLoopTest::noReplyEndsAtTheTimeOut()
{
    m_settings.replyTimeout = 60;
    m_driver->results = {2, 2};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({});
    m_line->answer({{1, bytes("01 03 04 04")}});
    start();
    QVERIFY(waitForRecords(2));
    QCOMPARE(m_records.at(0).replyKind, ReplyKind::None);
    QCOMPARE(m_records.at(1).replyKind, ReplyKind::Short);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray(), bytes("01 03 04 04")}));
    QCOMPARE(betweenRequests(0), qint64(60));
}

void ExchangeLoopTest::replyOfAnotherStationIsThrownAwayAndTheRightOneTaken()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{1, withCrc("02 03 04 04 D2 16 2E")}, {20, withCrc(GOOD)}});
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_driver->replies, QList<QByteArray>({withCrc(GOOD)}));
    QCOMPARE(m_records.first().foreignReplies, 1);
    QCOMPARE(m_records.first().reply, withCrc("02 03 04 04 D2 16 2E") + withCrc(GOOD));
    QCOMPARE(m_loop->statistics().thrownAway.foreign, qint64(1));
}

void ExchangeLoopTest::lateReplyAfterTheNextRequestIsNotTakenForIts()
{
    m_settings.replyTimeout = 60;
    m_driver->results = {2, 2};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    // One register: its reply has 7 bytes.
    m_driver->request(withCrc("01 03 00 64 00 01"), 7);
    m_line->answer({});
    m_line->answer({{1, withCrc(GOOD)}});
    start();
    QVERIFY(waitForRecords(2));
    QCOMPARE(m_records.at(1).replyKind, ReplyKind::Foreign);
    QCOMPARE(m_driver->replies.at(1), QByteArray());
}

void ExchangeLoopTest::badReplyIsAskedForAgain()
{
    m_driver->results = {8, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{1, withCrc("01 83 06")}});
    m_line->answer({{1, withCrc(GOOD)}});
    m_line->answer({{1, withCrc(GOOD)}});
    start();
    QVERIFY(waitForRecords(3));
    QCOMPARE(m_records.at(0).repeated, false);
    QCOMPARE(m_records.at(1).repeated, true);
    QCOMPARE(m_records.at(2).repeated, false);
    QCOMPARE(m_loop->statistics().repeated, qint64(1));
    QCOMPARE(m_loop->statistics().accepted, qint64(2));
    QCOMPARE(m_loop->statistics().bad.exceptions, qint64(1));
}

void ExchangeLoopTest::finalFailureTellsTheErrorText()
{
    m_settings.replyTimeout = 10;
    m_driver->results = {2};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_records.first().errorText, QString::fromLatin1("0,1,100,D"));
    QCOMPARE(m_loop->statistics().failed, qint64(1));
}

void ExchangeLoopTest::requestThatIsNotWholeIsNotSent_data()
{
    QTest::addColumn<int>("sendLen");
    QTest::newRow("one byte longer than a frame") << 1025;
    QTest::newRow("a write of 512 registers") << 1033; // 2 * 512 + 9
    QTest::newRow("no byte") << 0;
    QTest::newRow("one byte less than none") << -1;
    QTest::newRow("a write of -100 registers") << -191; // 2 * -100 + 9
    QTest::newRow("the most negative") << std::numeric_limits<int>::min();
}

void ExchangeLoopTest::requestThatIsNotWholeIsNotSent()
{
    QFETCH(int, sendLen);
    m_driver->results = {2};
    m_driver->request(withCrc("01 10 00 00 02 00"), 8);
    m_driver->setSendLenOfLast(sendLen);
    start();
    QVERIFY(waitForRecords(1));
    QVERIFY(m_line->written.isEmpty());
    QCOMPARE(m_records.first().replyKind, ReplyKind::NotSent);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray()}));
    QCOMPARE(m_loop->statistics().notSent, qint64(1));
    QCOMPARE(m_loop->statistics().requests, qint64(0));
}

void ExchangeLoopTest::shortestAndLongestRequestAreSent_data()
{
    QTest::addColumn<int>("sendLen");
    QTest::newRow("one byte") << 1;
    QTest::newRow("a whole frame") << 1024;
}

void ExchangeLoopTest::shortestAndLongestRequestAreSent()
{
    QFETCH(int, sendLen);
    m_driver->request(QByteArray(sendLen, '\x01'), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(1));
    QCOMPARE(m_line->written, QList<QByteArray>({QByteArray(sendLen, '\x01')}));
}

void ExchangeLoopTest::lostLineStopsTheLoop()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QSignalSpy lost(m_loop.get(), &ExchangeLoop::lineFailed);
    QVERIFY(waitForRequests(1));
    m_line->lose();
    QCOMPARE(lost.size(), 1);
    QCOMPARE(lost.first().first().toString(),
             QString::fromLatin1("script: the port is lost: unplugged"));
    QVERIFY(!m_loop->isRunning());
    emit m_line->bytesArrived(withCrc(GOOD));
    pass(20);
    QVERIFY(m_driver->replies.isEmpty());
    QCOMPARE(m_line->written.size(), 1);
}

void ExchangeLoopTest::lineFoundLostBeforeTheRequestIsNotWrittenTo()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->isLostWhenDiscarding = true;
    start();
    QVERIFY(passUntil([&] { return !m_loop->isRunning(); }));
    pass(20);
    QVERIFY(m_line->written.isEmpty());
    QVERIFY(m_driver->replies.isEmpty());
}

void ExchangeLoopTest::interruptedLineIsWaitedFor()
{
    m_driver->results = {8, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(1));
    m_line->interrupt();
    QCOMPARE(m_records.size(), 1);
    QCOMPARE(m_records.first().replyKind, ReplyKind::Lost);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray()}));
    pass(50);
    QCOMPARE(m_line->written.size(), 1);
    m_line->answer({{1, withCrc(GOOD)}});
    m_line->reopen();
    QVERIFY(waitForRecords(2));
    QCOMPARE(m_records.at(1).result, 1);
    QCOMPARE(m_records.at(1).repeated, true);
    QCOMPARE(m_loop->statistics().reopened, qint64(1));
    QCOMPARE(m_loop->statistics().bad.lost, qint64(1));
    QCOMPARE(m_loop->statistics().requests, qint64(2));
}

void ExchangeLoopTest::startOnAnInterruptedLineWaitsForIt()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->interrupt();
    start();
    pass(50);
    QVERIFY(m_line->written.isEmpty());
    m_line->reopen();
    QVERIFY(waitForRequests(1));
}

void ExchangeLoopTest::echoIsSkippedAndTheReplyTaken()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{1, withCrc(READ)}, {20, withCrc(GOOD)}});
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_driver->replies, QList<QByteArray>({withCrc(GOOD)}));
    QCOMPARE(m_records.first().foreignReplies, 0);
    QCOMPARE(m_loop->statistics().thrownAway.echoes, qint64(1));
}

void ExchangeLoopTest::whatWaitedOnTheLineIsCounted_data()
{
    QTest::addColumn<bool>("isSeen");
    QTest::newRow("seen before the request was asked for") << true;
    QTest::newRow("come since") << false;
}

void ExchangeLoopTest::whatWaitedOnTheLineIsCounted()
{
    QFETCH(bool, isSeen);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    (isSeen ? m_line->waiting : m_line->unseen) = bytes("55 AA") + withCrc("02 03 02 00 01");
    m_line->answer({{1, withCrc(GOOD)}});
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_driver->replies, QList<QByteArray>({withCrc(GOOD)}));
    QCOMPARE(m_loop->statistics().thrownAway.bytes, qint64(2));
    QCOMPARE(m_loop->statistics().thrownAway.foreign, qint64(1));
    QCOMPARE(m_loop->statistics().bytesReceived, qint64(9 + 9));
}

void ExchangeLoopTest::whatLiesInThePortAtTheTimeOut_data()
{
    QTest::addColumn<QByteArray>("lying");
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<QByteArray>("handedOver");
    const QByteArray good = withCrc(GOOD);
    QTest::newRow("the reply") << good << ReplyKind::Good << good;
    QTest::newRow("the reply and noise") << good + "\x55" << ReplyKind::Good << good;
    QTest::newRow("a refusal") << withCrc("01 83 06") << ReplyKind::Exception
                               << withCrc("01 83 06");
    QTest::newRow("half of it") << good.left(4) << ReplyKind::Short << good.left(4);
    QTest::newRow("another station's")
        << withCrc("02 03 04 04 D2 16 2E") << ReplyKind::Foreign << QByteArray();
    QTest::newRow("nothing") << QByteArray() << ReplyKind::None << QByteArray();
}

// A busy program finds the time-out before the bytes.
void ExchangeLoopTest::whatLiesInThePortAtTheTimeOut()
{
    QFETCH(QByteArray, lying);
    QFETCH(ReplyKind, kind);
    QFETCH(QByteArray, handedOver);
    m_settings.replyTimeout = 30;
    m_driver->results = {1, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->unreported = lying;
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_driver->replies, QList<QByteArray>({handedOver}));
    QVERIFY(m_records.first().replyKind == kind);
    QCOMPARE(m_records.first().reply, lying);
    QCOMPARE(m_loop->elapsed(), qint64(30));
    QCOMPARE(m_loop->statistics().bytesReceived, qint64(lying.size()));
    pass(20);
    QCOMPARE(static_cast<int>(m_records.size()), 1);
}

void ExchangeLoopTest::lineFoundLostAtTheTimeOut()
{
    m_settings.replyTimeout = 30;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(1));
    m_line->whenLookedInto = [this] { m_line->lose(); };
    QVERIFY(passUntil([&] { return !m_loop->isRunning(); }));
    QVERIFY(m_driver->replies.isEmpty());
    QVERIFY(m_records.isEmpty());
}

void ExchangeLoopTest::lineFoundInterruptedAtTheTimeOut()
{
    m_settings.replyTimeout = 30;
    m_driver->results = {8, 1};
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(1));
    m_line->whenLookedInto = [this] { m_line->interrupt(); };
    QVERIFY(waitForRecords(1));
    pass(50);
    QCOMPARE(static_cast<int>(m_records.size()), 1);
    QVERIFY(m_records.first().replyKind == ReplyKind::Lost);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray()}));
    QCOMPARE(m_line->written.size(), 1);
}

void ExchangeLoopTest::theJobInFlightIsKnown()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(!m_loop->jobInFlight()); // silence comes first
    QVERIFY(waitForRequests(1));
    QVERIFY(m_loop->jobInFlight());
    m_loop->stop();
    QVERIFY(m_loop->jobInFlight()); // nobody has answered it
    m_line->answer({{1, withCrc(GOOD)}});
    m_loop->start();
    QVERIFY(!m_loop->jobInFlight());
    QVERIFY(waitForRecords(1));
    QVERIFY(!m_loop->jobInFlight());
}

void ExchangeLoopTest::stoppedRequestGoesOutAgain()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRequests(1));
    m_loop->stop();
    QVERIFY(m_driver->replies.isEmpty());
    m_line->answer({{1, withCrc(GOOD)}});
    m_loop->start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_line->written, QList<QByteArray>({withCrc(READ), withCrc(READ)}));
    QCOMPARE(m_records.first().repeated, true);
}

QTEST_GUILESS_MAIN(ExchangeLoopTest)
#include "tst_exchange_loop.moc"
