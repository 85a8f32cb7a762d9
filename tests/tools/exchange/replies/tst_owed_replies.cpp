#include "exchange/replies/owed_replies.h"
#include "tools/exchange/replies/request_frames.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(FRAME_PRO)

namespace
{

// Two registers each: the replies differ in nothing but their values.
const FRAME_PRO READ_100 = requestOf(withCrc("01 03 00 64 00 02"), 9);
const FRAME_PRO READ_200 = requestOf(withCrc("01 03 00 C8 00 02"), 9);
const FRAME_PRO READ_ONE = requestOf(withCrc("01 03 00 64 00 01"), 7);
const FRAME_PRO OTHER_STATION = requestOf(withCrc("02 03 00 C8 00 02"), 9);
const FRAME_PRO WRITE_5 = requestOf(withCrc("01 06 00 64 00 05"), 8);
const FRAME_PRO WRITE_6 = requestOf(withCrc("01 06 00 64 00 06"), 8);
// Two registers at 100, with other values.
const FRAME_PRO WRITE_TWO = requestOf(withCrc("01 10 00 64 00 02 04 00 01 00 02"), 8);
const FRAME_PRO WRITE_OTHER_TWO = requestOf(withCrc("01 10 00 64 00 02 04 00 03 00 04"), 8);

const QByteArray REPLY = withCrc("01 03 04 04 D2 16 2E");

} // namespace

class OwedRepliesTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsOwedAtFirst();
    void whatWaits_data();
    void whatWaits();
    void theLastOfSeveralCounts();
    void theSameRequestNeedNotWait();
    void theSameRequestWaitsOnceTheStationAnsweredAnother();
    void theSameRequestWaitsOnceAnotherWasWritten();
    void aRepeatedRequestThatWasAnsweredIsStillOwedOne();
    void whatExpiredIsForgotten();
    void aLateReplyIsTakenOnce();
    void refusalsAreNotTaken();
    void owedOnlyToOne();
    void owedToAnother();
};

void OwedRepliesTest::nothingIsOwedAtFirst()
{
    const OwedReplies owed;
    QCOMPARE(owed.blockedUntil(READ_100), qint64(0));
    QVERIFY(!owed.isOwed(REPLY));
    QVERIFY(!owed.isOwedOnly(READ_100));
}

void OwedRepliesTest::whatWaits_data()
{
    QTest::addColumn<FRAME_PRO>("owedRequest");
    QTest::addColumn<FRAME_PRO>("request");
    QTest::addColumn<bool>("waits");
    QTest::newRow("same length, other address") << READ_100 << READ_200 << true;
    QTest::newRow("other length") << READ_100 << READ_ONE << false;
    QTest::newRow("other station") << READ_100 << OTHER_STATION << false;
    QTest::newRow("a write after a read") << READ_100 << WRITE_5 << false;
    QTest::newRow("a read after a write") << WRITE_5 << READ_100 << false;
    QTest::newRow("another value to one register") << WRITE_5 << WRITE_6 << false;
    QTest::newRow("other values to the same registers") << WRITE_TWO << WRITE_OTHER_TWO << true;
}

void OwedRepliesTest::whatWaits()
{
    QFETCH(FRAME_PRO, owedRequest);
    QFETCH(FRAME_PRO, request);
    QFETCH(bool, waits);
    OwedReplies owed;
    owed.add(owedRequest, 500);
    QCOMPARE(owed.blockedUntil(request), waits ? qint64(500) : qint64(0));
}

void OwedRepliesTest::theLastOfSeveralCounts()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    owed.add(READ_100, 900);
    owed.add(READ_ONE, 1000);
    QCOMPARE(owed.blockedUntil(READ_200), qint64(900));
}

void OwedRepliesTest::theSameRequestNeedNotWait()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    QCOMPARE(owed.blockedUntil(READ_100), qint64(0));
    owed.add(OTHER_STATION, 600);
    owed.forget(OTHER_STATION);
    QCOMPARE(owed.blockedUntil(READ_100), qint64(0));
}

void OwedRepliesTest::theSameRequestWaitsOnceTheStationAnsweredAnother()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    owed.add(READ_ONE, 600);
    owed.forget(READ_ONE);
    QCOMPARE(owed.blockedUntil(READ_100), qint64(500));
}

void OwedRepliesTest::theSameRequestWaitsOnceAnotherWasWritten()
{
    // 5, then 6, then 5 again: the late reply to the first 5 does not confirm the last.
    OwedReplies owed;
    owed.add(WRITE_5, 500);
    QCOMPARE(owed.blockedUntil(WRITE_5), qint64(0));
    owed.add(WRITE_6, 600);
    QCOMPARE(owed.blockedUntil(WRITE_5), qint64(500));
}

void OwedRepliesTest::aRepeatedRequestThatWasAnsweredIsStillOwedOne()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    owed.add(READ_100, 900);
    owed.forget(READ_100);
    QCOMPARE(owed.blockedUntil(READ_100), qint64(900));
    QCOMPARE(owed.blockedUntil(READ_200), qint64(900));
    owed.forget(READ_100);
    QCOMPARE(owed.blockedUntil(READ_200), qint64(0));
}

void OwedRepliesTest::whatExpiredIsForgotten()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    owed.forgetBefore(499);
    QVERIFY(owed.isOwed(REPLY));
    owed.forgetBefore(500);
    QVERIFY(!owed.isOwed(REPLY));
}

void OwedRepliesTest::aLateReplyIsTakenOnce()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    QVERIFY(owed.isOwed(REPLY));
    QVERIFY(!owed.take(REPLY + "\x55"));
    QVERIFY(!owed.take(withCrc("02 03 04 04 D2 16 2E")));
    QVERIFY(owed.take(REPLY));
    QVERIFY(!owed.take(REPLY));
    QCOMPARE(owed.blockedUntil(READ_200), qint64(0));
}

void OwedRepliesTest::refusalsAreNotTaken()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    QVERIFY(!owed.take(withCrc("01 83 02")));
    QCOMPARE(owed.blockedUntil(READ_200), qint64(500));
}

void OwedRepliesTest::owedOnlyToOne()
{
    OwedReplies owed;
    owed.add(READ_100, 500);
    QVERIFY(owed.isOwedOnly(READ_100));
    QVERIFY(!owed.isOwedOnly(READ_200));
    owed.add(READ_100, 600);
    QVERIFY(!owed.isOwedOnly(READ_100));
}

void OwedRepliesTest::owedToAnother()
{
    OwedReplies owed;
    QVERIFY(!owed.owesOther(READ_100));
    owed.add(READ_100, 500);
    owed.add(READ_100, 600);
    QVERIFY(!owed.owesOther(READ_100));
    QVERIFY(owed.owesOther(READ_200));
    owed.add(READ_200, 700);
    QVERIFY(owed.owesOther(READ_100));
}

QTEST_APPLESS_MAIN(OwedRepliesTest)
#include "tst_owed_replies.moc"
