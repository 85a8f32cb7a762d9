#include "exchange/replies/reply_collector.h"
#include "tools/exchange/replies/request_frames.h"

#include <QtTest/QTest>

#include <memory>

using namespace kx;

namespace
{

// Station 1 (2), function 3, D100 (D200), two registers.
const FRAME_PRO READ = requestOf(withCrc("01 03 00 64 00 02"), 9);
const FRAME_PRO READ_200 = requestOf(withCrc("01 03 00 C8 00 02"), 9);
const FRAME_PRO OF_STATION_2 = requestOf(withCrc("02 03 00 64 00 02"), 9);
const QByteArray ECHO = withCrc("01 03 00 64 00 02");
// Four bytes of values: 1234 and 5678.
const QByteArray REPLY = withCrc("01 03 04 04 D2 16 2E");
const QByteArray REPLY_OF_2 = withCrc("02 03 04 04 D2 16 2E");
const QByteArray MISCOUNTED = withCrc("01 03 05 04 D2 16 2E");
const QByteArray REFUSAL = withCrc("01 83 02");
const QByteArray DAMAGED = bytes("01 03 04 04 D2 16 2E 00 00");

const LineTiming NO_TIME = {0, 8, 0, 1};
// Ten bits per character: the nine of a reply take 75 ms.
const LineTiming BAUD_1200 = {1200, 8, 0, 1};
const qint64 SOON = 74999;    // microseconds
const qint64 IN_TIME = 75000; // microseconds

} // namespace

class ReplyCollectorTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void whatIsTheReply_data();
    void whatIsTheReply();
    void theReplyMayComeInPieces();
    void whatThereIsWithoutAReply_data();
    void whatThereIsWithoutAReply();
    void nothingIsLeftOfTheRequestBefore();
    void whoIsOwedAReply_data();
    void whoIsOwedAReply();
    void whatStandsBehindTheReplyIsStray();
    void aReplyThatWasTakenIsADoubleWhenItComesAgain();
    void soonerThanItsCharacters_data();
    void soonerThanItsCharacters();
    void repliesWhileAnotherIsOwedDoNotMeasureTheLine();
    void repliesFoundWholeDoNotMeasureTheLine();
    void theLateReplyToTheSameRequestIsItsReply();

private:
    void takeReplies(const QList<qint64>& sinceRequests);

    OwedReplies m_owed;
    ThrownAway m_counts;
    std::unique_ptr<StrayBytes> m_stray;
    std::unique_ptr<ReplyCollector> m_collector;
};

void ReplyCollectorTest::init()
{
    m_owed = OwedReplies();
    m_counts = ThrownAway();
    m_stray = std::make_unique<StrayBytes>(&m_counts);
    m_collector = std::make_unique<ReplyCollector>(&m_owed, m_stray.get(), &m_counts);
    m_collector->begin(READ);
    m_owed.add(READ, 500);
}

// Each so many microseconds after its request, the first byte a bit before the others.
void ReplyCollectorTest::takeReplies(const QList<qint64>& sinceRequests)
{
    for (const qint64 sinceRequest : sinceRequests) {
        m_collector->add(REPLY.left(1), sinceRequest - 1, BAUD_1200);
        m_collector->settle(*m_collector->add(REPLY.mid(1), sinceRequest, BAUD_1200));
        m_collector->begin(READ);
        m_owed.add(READ, 500);
    }
    m_owed.forget(READ);
}

void ReplyCollectorTest::whatIsTheReply_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QList<int>>("thrownAway"); // foreign, echoes
    QTest::newRow("the values") << REPLY << ReplyKind::Good << REPLY << QList<int>({0, 0});
    QTest::newRow("a refusal") << REFUSAL << ReplyKind::Exception << REFUSAL << QList<int>({0, 0});
    QTest::newRow("no frame") << DAMAGED << ReplyKind::Bad << DAMAGED << QList<int>({0, 0});
    QTest::newRow("behind an echo")
        << ECHO + REPLY << ReplyKind::Good << REPLY << QList<int>({0, 1});
    QTest::newRow("behind another station's")
        << REPLY_OF_2 + REPLY << ReplyKind::Good << REPLY << QList<int>({1, 0});
    QTest::newRow("behind both and two") << REPLY_OF_2 + ECHO + REPLY_OF_2 + REFUSAL
                                         << ReplyKind::Exception << REFUSAL << QList<int>({2, 1});
    QTest::newRow("before another")
        << REPLY + REFUSAL << ReplyKind::Good << REPLY << QList<int>({0, 0});
    QTest::newRow("a wrong byte count, for which the driver gets nothing")
        << MISCOUNTED << ReplyKind::WrongByteCount << QByteArray() << QList<int>({0, 0});
}

void ReplyCollectorTest::whatIsTheReply()
{
    QFETCH(QByteArray, received);
    const auto reply = m_collector->add(received, 0, NO_TIME);
    QVERIFY(reply.has_value());
    QTEST(reply->kind, "kind");
    QTEST(reply->bytes, "reply");
    QTEST(QList<int>({int(m_counts.foreign), int(m_counts.echoes)}), "thrownAway");
    QCOMPARE(m_collector->foreignReplies(), int(m_counts.foreign));
}

void ReplyCollectorTest::theReplyMayComeInPieces()
{
    QVERIFY(!m_collector->add(REPLY_OF_2.left(5), 0, NO_TIME));
    QVERIFY(!m_collector->add(REPLY_OF_2.mid(5), 0, NO_TIME));
    QVERIFY(!m_collector->add(REPLY.left(8), 0, NO_TIME));
    const auto reply = m_collector->add(REPLY.mid(8), 0, NO_TIME);
    QVERIFY(reply.has_value());
    QCOMPARE(reply->bytes, REPLY);
}

void ReplyCollectorTest::whatThereIsWithoutAReply_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<QByteArray>("reply");
    QTest::newRow("nothing came") << QByteArray() << ReplyKind::None << QByteArray();
    QTest::newRow("its beginning") << REPLY.left(8) << ReplyKind::Short << REPLY.left(8);
    QTest::newRow("another's") << REPLY_OF_2 << ReplyKind::Foreign << QByteArray();
    QTest::newRow("another's and its beginning")
        << REPLY_OF_2 + REPLY.left(3) << ReplyKind::Short << REPLY.left(3);
    QTest::newRow("an echo") << ECHO << ReplyKind::None << QByteArray();
}

void ReplyCollectorTest::whatThereIsWithoutAReply()
{
    QFETCH(QByteArray, received);
    QVERIFY(!m_collector->add(received, 0, NO_TIME));
    QTEST(m_collector->incomplete().kind, "kind");
    QTEST(m_collector->incomplete().bytes, "reply");
}

void ReplyCollectorTest::nothingIsLeftOfTheRequestBefore()
{
    QVERIFY(!m_collector->add(REPLY_OF_2 + REPLY.left(8), 0, NO_TIME));
    m_collector->begin(READ_200);
    QCOMPARE(m_collector->incomplete().kind, ReplyKind::None);
    QCOMPARE(m_collector->foreignReplies(), 0);
}

void ReplyCollectorTest::whoIsOwedAReply_data()
{
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<bool>("owesAnother");
    QTest::addColumn<bool>("isStillOwed");
    QTest::newRow("taken") << ReplyKind::Good << false << false;
    QTest::newRow("taken, another owed") << ReplyKind::Good << true << false;
    QTest::newRow("refused") << ReplyKind::Exception << false << false;
    QTest::newRow("refused, perhaps another") << ReplyKind::Exception << true << true;
    QTest::newRow("damaged") << ReplyKind::Bad << false << false;
    QTest::newRow("damaged, perhaps another") << ReplyKind::Bad << true << true;
    QTest::newRow("cut short") << ReplyKind::Short << false << false;
    QTest::newRow("miscounted") << ReplyKind::WrongByteCount << false << false;
    QTest::newRow("miscounted, perhaps another") << ReplyKind::WrongByteCount << true << true;
    QTest::newRow("cut short, perhaps another") << ReplyKind::Short << true << true;
    QTest::newRow("nothing came") << ReplyKind::None << false << true;
    QTest::newRow("only others came") << ReplyKind::Foreign << false << true;
    QTest::newRow("the line was lost") << ReplyKind::Lost << false << true;
}

void ReplyCollectorTest::whoIsOwedAReply()
{
    QFETCH(ReplyKind, kind);
    QFETCH(bool, owesAnother);
    QFETCH(bool, isStillOwed);
    if (owesAnother)
        m_owed.add(OF_STATION_2, 500);
    m_collector->settle({kind, QByteArray()});
    QCOMPARE(m_owed.isOwed(REPLY), isStillOwed);
    QCOMPARE(m_owed.isOwed(REPLY_OF_2), owesAnother);
}

void ReplyCollectorTest::whatStandsBehindTheReplyIsStray()
{
    const auto reply = m_collector->add(REPLY + REPLY_OF_2 + "\x55", 0, NO_TIME);
    m_collector->settle(*reply);
    QCOMPARE(m_counts.foreign, qint64(0));
    m_stray->sort(&m_owed, nullptr);
    QCOMPARE(m_counts.foreign, qint64(1));
    QCOMPARE(m_counts.bytes, qint64(1));
}

void ReplyCollectorTest::aReplyThatWasTakenIsADoubleWhenItComesAgain()
{
    m_collector->settle(*m_collector->add(REPLY, 0, NO_TIME));
    m_collector->begin(OF_STATION_2);
    QVERIFY(!m_collector->add(REPLY, 0, NO_TIME));
    QCOMPARE(m_counts.duplicates, qint64(1));
    // What did not come leaves the frame that doubles are told by.
    m_collector->settle(m_collector->incomplete());
    m_collector->begin(OF_STATION_2);
    QVERIFY(!m_collector->add(REPLY, 0, NO_TIME));
    QCOMPARE(m_counts.duplicates, qint64(2));
}

void ReplyCollectorTest::soonerThanItsCharacters_data()
{
    QTest::addColumn<QList<qint64>>("repliesBefore"); // microseconds after their requests
    QTest::addColumn<bool>("owesAnother");
    QTest::addColumn<qint64>("reply"); // microseconds after its request
    QTest::addColumn<bool>("isTaken");
    const QList<qint64> keepsTime = {IN_TIME, IN_TIME, IN_TIME};
    QTest::newRow("sooner, another owed") << keepsTime << true << SOON << false;
    QTest::newRow("before the request's end") << keepsTime << true << qint64(-1) << false;
    QTest::newRow("in time, another owed") << keepsTime << true << IN_TIME << true;
    QTest::newRow("sooner, nothing else owed") << keepsTime << false << SOON << true;
    QTest::newRow("sooner than any was measured") << QList<qint64>() << true << SOON << true;
    QTest::newRow("sooner, one before in time") << QList<qint64>({IN_TIME}) << true << SOON << true;
    QTest::newRow("sooner, two before in time")
        << QList<qint64>({IN_TIME, IN_TIME}) << true << SOON << true;
    QTest::newRow("sooner, on a line that does not keep time")
        << QList<qint64>({SOON}) << true << SOON << true;
    QTest::newRow("sooner, many in time after one that was not")
        << QList<qint64>({SOON, IN_TIME, IN_TIME, IN_TIME, IN_TIME}) << true << SOON << true;
    QTest::newRow("sooner, one not in time after many")
        << QList<qint64>({IN_TIME, IN_TIME, IN_TIME, IN_TIME, SOON}) << true << SOON << true;
}

void ReplyCollectorTest::soonerThanItsCharacters()
{
    QFETCH(QList<qint64>, repliesBefore);
    QFETCH(bool, owesAnother);
    QFETCH(qint64, reply);
    QFETCH(bool, isTaken);
    takeReplies(repliesBefore);
    if (owesAnother)
        m_owed.add(READ_200, 500);
    m_collector->begin(OF_STATION_2);
    m_owed.add(OF_STATION_2, 500);
    QCOMPARE(m_collector->add(REPLY_OF_2, reply, BAUD_1200).has_value(), isTaken);
    QCOMPARE(m_collector->foreignReplies(), isTaken ? 0 : 1);
    QCOMPARE(m_counts.late, qint64(isTaken ? 0 : 1));
}

// A reply while another is owed may be that one's: it shows nothing of the line.
void ReplyCollectorTest::repliesWhileAnotherIsOwedDoNotMeasureTheLine()
{
    takeReplies({IN_TIME, IN_TIME});
    m_owed.add(READ_200, 500);
    takeReplies({IN_TIME});
    m_collector->begin(OF_STATION_2);
    m_owed.add(OF_STATION_2, 500);
    QVERIFY(m_collector->add(REPLY_OF_2, SOON, BAUD_1200).has_value());
}

// A busy program finds the whole replies of a pseudo-terminal late.
void ReplyCollectorTest::repliesFoundWholeDoNotMeasureTheLine()
{
    for (int i = 0; i < 5; ++i) {
        QVERIFY(!m_collector->add(QByteArray(), 30000, BAUD_1200).has_value());
        m_collector->settle(*m_collector->add(REPLY, IN_TIME, BAUD_1200));
        m_collector->begin(READ);
        m_owed.add(READ, 500);
    }
    m_owed.forget(READ);
    m_owed.add(READ_200, 500);
    m_collector->begin(OF_STATION_2);
    m_owed.add(OF_STATION_2, 500);
    QVERIFY(m_collector->add(REPLY_OF_2, SOON, BAUD_1200).has_value());
}

void ReplyCollectorTest::theLateReplyToTheSameRequestIsItsReply()
{
    takeReplies({IN_TIME, IN_TIME, IN_TIME});
    for (int i = 0; i < 2; ++i) { // given up and repeated
        m_collector->begin(READ);
        m_owed.add(READ, 500);
    }
    QVERIFY(m_collector->add(REPLY, SOON, BAUD_1200).has_value());
}

QTEST_APPLESS_MAIN(ReplyCollectorTest)
#include "tst_reply_collector.moc"
