#include "exchange/exchange_loop.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_driver.h"
#include "tools/exchange/scripted_line.h"

#include <QtTest/QtTest>

Q_DECLARE_METATYPE(ReplyKind)

namespace
{

// Station 1, function 3, address 100, quantity 2.
const char* const READ = "01 03 00 64 00 02";
// Station 1, function 3, byte count 4, registers 1234 and 5678.
const char* const GOOD = "01 03 04 04 D2 16 2E";
const int GOOD_LENGTH = 9;

} // namespace

class ExchangeLoopTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void replyInPiecesIsHandedOverWhole();
    void replyKinds_data();
    void replyKinds();
    void noReplyEndsAtTheTimeOut();
    void timeOutCountsFromTheEndOfTheTransmission();
    void replyOfAnotherStationIsThrownAwayAndTheRightOneTaken();
    void lateReplyIsThrownAwayBeforeTheNextRequest();
    void lateReplyAfterTheNextRequestIsNotTakenForIts();
    void badReplyIsAskedForAgain();
    void finalFailureTellsTheErrorText();
    void silenceIsKeptAfterAReply();
    void silenceStartsAgainWithStrayBytes();
    void lineThatNeverFallsSilentIsUsedAtLast();
    void broadcastWaitsTheTurnaroundOnly();
    void requestThatIsNotWholeIsNotSent();
    void nothingToSendIsAskedAgainAfterTheIdleInterval();
    void wakeAsksAtOnce();
    void lostLineStopsTheLoop();
    void stoppedRequestGoesOutAgain();

private:
    void start();
    bool waitForRecords(int count);

    std::unique_ptr<ScriptedDriver> m_driver;
    std::unique_ptr<ScriptedLine> m_line;
    std::unique_ptr<ExchangeLoop> m_loop;
    ExchangeSettings m_settings;
    QList<ExchangeRecord> m_records;
};

void ExchangeLoopTest::init()
{
    m_loop.reset();
    m_driver.reset();
    m_driver = std::make_unique<ScriptedDriver>();
    m_line = std::make_unique<ScriptedLine>();
    m_settings = {3000, 100, 5};
    m_records.clear();
}

void ExchangeLoopTest::start()
{
    m_loop = std::make_unique<ExchangeLoop>(m_driver->entryPoints(), m_line.get(), m_settings);
    connect(m_loop.get(), &ExchangeLoop::exchanged, this,
            [this](const ExchangeRecord& record) { m_records << record; });
    m_loop->start();
}

bool ExchangeLoopTest::waitForRecords(int count)
{
    return QTest::qWaitFor([&] { return m_records.size() >= count; }, 5000);
}

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
    QVERIFY(m_loop->elapsed() < 1500);
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
    QVERIFY(m_line->writtenAt.at(1) - m_line->writtenAt.at(0) >= 60);
}

void ExchangeLoopTest::timeOutCountsFromTheEndOfTheTransmission()
{
    m_line->characters.baud = 1200; // 8 characters of 10 bits take 67 ms
    m_settings.replyTimeout = 40;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QVERIFY(waitForRecords(1));
    QVERIFY(m_line->now() - m_line->writtenAt.first() >= 106);
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
    QCOMPARE(m_loop->statistics().foreign, qint64(1));
}

void ExchangeLoopTest::lateReplyIsThrownAwayBeforeTheNextRequest()
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
    QCOMPARE(m_loop->statistics().exceptions, qint64(1));
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

void ExchangeLoopTest::silenceIsKeptAfterAReply()
{
    m_line->characters.baud = 1200; // 3.5 characters of 10 bits: 29.2 ms
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{160, withCrc(GOOD)}}); // 67 ms request, 75 ms reply
    start();
    QVERIFY(QTest::qWaitFor([&] { return m_line->written.size() == 2; }, 5000));
    QVERIFY(m_line->writtenAt.at(1) - m_line->writtenAt.at(0) >= 160 + 29);
}

void ExchangeLoopTest::silenceStartsAgainWithStrayBytes()
{
    m_line->characters.baud = 1200;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_line->answer({{160, withCrc(GOOD)}, {180, QByteArray("\x55")}});
    start();
    QVERIFY(QTest::qWaitFor([&] { return m_line->written.size() == 2; }, 5000));
    QVERIFY(m_line->writtenAt.at(1) - m_line->writtenAt.at(0) >= 180 + 29);
}

void ExchangeLoopTest::lineThatNeverFallsSilentIsUsedAtLast()
{
    m_line->characters.baud = 1200;
    m_settings.replyTimeout = 100;
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    QTimer noise;
    connect(&noise, &QTimer::timeout, m_line.get(),
            [this] { emit m_line->bytesArrived(QByteArray("\x55")); });
    noise.start(5);
    start();
    QVERIFY(QTest::qWaitFor([&] { return m_line->written.size() == 1; }, 5000));
    QVERIFY(m_line->writtenAt.first() >= 100);
}

void ExchangeLoopTest::broadcastWaitsTheTurnaroundOnly()
{
    m_settings.turnaround = 40;
    m_driver->results = {2};
    // Station 0, function 6, address 100, value 5.
    m_driver->request(withCrc("00 06 00 64 00 05"), 8);
    start();
    QVERIFY(waitForRecords(1));
    QCOMPARE(m_records.first().replyKind, ReplyKind::Broadcast);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray()}));
    QVERIFY(m_loop->elapsed() >= 40);
    QVERIFY(m_loop->elapsed() < 1500);
}

void ExchangeLoopTest::requestThatIsNotWholeIsNotSent()
{
    m_driver->results = {2};
    m_driver->request(withCrc("01 10 00 00 02 00"), 8, 1033);
    start();
    QVERIFY(waitForRecords(1));
    QVERIFY(m_line->written.isEmpty());
    QCOMPARE(m_records.first().replyKind, ReplyKind::NotSent);
    QCOMPARE(m_driver->replies, QList<QByteArray>({QByteArray()}));
    QCOMPARE(m_loop->statistics().notSent, qint64(1));
    QCOMPARE(m_loop->statistics().requests, qint64(0));
}

void ExchangeLoopTest::nothingToSendIsAskedAgainAfterTheIdleInterval()
{
    m_settings.idleInterval = 10;
    start();
    QVERIFY(QTest::qWaitFor([&] { return m_driver->polls >= 4; }, 5000));
    // Three intervals, less what timers may be early.
    QVERIFY(m_loop->elapsed() >= 27);
}

void ExchangeLoopTest::wakeAsksAtOnce()
{
    m_settings.idleInterval = 5000;
    start();
    QTRY_COMPARE(m_driver->polls, 1);
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    m_loop->wake();
    QTRY_COMPARE_WITH_TIMEOUT(m_line->written.size(), 1, 1000);
}

void ExchangeLoopTest::lostLineStopsTheLoop()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QSignalSpy lost(m_loop.get(), &ExchangeLoop::lineFailed);
    QTRY_COMPARE(m_line->written.size(), 1);
    m_line->lose();
    QCOMPARE(lost.size(), 1);
    QCOMPARE(lost.first().first().toString(),
             QString::fromLatin1("script: the port is lost: unplugged"));
    QVERIFY(!m_loop->isRunning());
    emit m_line->bytesArrived(withCrc(GOOD));
    QTest::qWait(20);
    QVERIFY(m_driver->replies.isEmpty());
    QCOMPARE(m_line->written.size(), 1);
}

void ExchangeLoopTest::stoppedRequestGoesOutAgain()
{
    m_driver->request(withCrc(READ), GOOD_LENGTH);
    start();
    QTRY_COMPARE(m_line->written.size(), 1);
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
