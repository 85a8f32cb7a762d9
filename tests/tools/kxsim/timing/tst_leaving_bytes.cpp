// Replies of controllers, as a line of some speed carries them. At 10000 baud a character
// of 10 bits takes 1 ms.

#include "kxsim/timing/leaving_bytes.h"

#include <QtTest/QTest>

using kxsim::LeavingBytes;
using kxsim::Moment;
using kxsim::Pace;
using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace
{

const Pace MILLISECOND_EACH = {10000, 10};

/// What arrives by a time, and "[" for each reply that begins.
QByteArray taken(LeavingBytes* leaving, Moment now)
{
    QList<QByteArray> begun;
    const QByteArray bytes = leaving->take(now, &begun);
    return QByteArray(begun.size(), '[') + bytes;
}

} // namespace

class LeavingBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void bytesArriveOneByOne();
    void aLateLookTakesAllThatIsDue();
    void aReplyWaitsForTheOneBefore();
    void theEarlierStartGoesFirst();
    void equalStartsKeepTheirOrder();
    void nothingCutsIntoAReply();
    void withoutAPaceRepliesLeaveWhole();
    void anEmptyReplyIsNone();
    void whatIsClearedNeverLeaves();
};

void LeavingBytesTest::bytesArriveOneByOne()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    QVERIFY(leaving.isEmpty());
    leaving.add("abc", milliseconds(10));
    QCOMPARE(leaving.due(), Moment(milliseconds(11))); // with its stop bit
    QCOMPARE(taken(&leaving, microseconds(9999)), QByteArray());
    QCOMPARE(taken(&leaving, milliseconds(10)), QByteArray("["));
    QCOMPARE(taken(&leaving, microseconds(10999)), QByteArray());
    QCOMPARE(taken(&leaving, milliseconds(11)), QByteArray("a"));
    QCOMPARE(leaving.due(), Moment(milliseconds(12)));
    QCOMPARE(taken(&leaving, milliseconds(12)), QByteArray("b"));
    QVERIFY(!leaving.isEmpty());
    QCOMPARE(taken(&leaving, milliseconds(13)), QByteArray("c"));
    QVERIFY(leaving.isEmpty());
}

void LeavingBytesTest::aLateLookTakesAllThatIsDue()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    leaving.add("abcd", milliseconds(0));
    QCOMPARE(taken(&leaving, microseconds(3500)), QByteArray("[abc"));
    // The rest keeps its time.
    QCOMPARE(leaving.due(), Moment(milliseconds(4)));
}

void LeavingBytesTest::aReplyWaitsForTheOneBefore()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    leaving.add("abc", milliseconds(0));
    leaving.add("de", milliseconds(1));
    QCOMPARE(taken(&leaving, milliseconds(3)), QByteArray("[[abc"));
    QCOMPARE(leaving.due(), Moment(milliseconds(4)));
    QCOMPARE(taken(&leaving, milliseconds(5)), QByteArray("de"));
}

void LeavingBytesTest::theEarlierStartGoesFirst()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    leaving.add("late", milliseconds(1500));
    leaving.add("ab", milliseconds(10));
    QCOMPARE(leaving.due(), Moment(milliseconds(11)));
    QCOMPARE(taken(&leaving, milliseconds(100)), QByteArray("[ab"));
    QCOMPARE(leaving.due(), Moment(milliseconds(1501)));
}

void LeavingBytesTest::equalStartsKeepTheirOrder()
{
    LeavingBytes leaving((Pace()));
    leaving.add("ab", milliseconds(5));
    leaving.add("cd", milliseconds(5));
    QCOMPARE(taken(&leaving, milliseconds(5)), QByteArray("[[abcd"));
}

void LeavingBytesTest::nothingCutsIntoAReply()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    leaving.add("abc", milliseconds(10));
    QCOMPARE(taken(&leaving, milliseconds(11)), QByteArray("[a"));
    leaving.add("x", milliseconds(1)); // late, though it could have begun before
    QCOMPARE(taken(&leaving, milliseconds(20)), QByteArray("[bcx"));
}

void LeavingBytesTest::withoutAPaceRepliesLeaveWhole()
{
    LeavingBytes leaving((Pace()));
    leaving.add("abc", milliseconds(5));
    QCOMPARE(leaving.due(), Moment(milliseconds(5)));
    QCOMPARE(taken(&leaving, microseconds(4999)), QByteArray());
    QCOMPARE(taken(&leaving, milliseconds(5)), QByteArray("[abc"));
    QVERIFY(leaving.isEmpty());
}

void LeavingBytesTest::anEmptyReplyIsNone()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    leaving.add(QByteArray(), milliseconds(5));
    QVERIFY(leaving.isEmpty());
}

void LeavingBytesTest::whatIsClearedNeverLeaves()
{
    LeavingBytes leaving(MILLISECOND_EACH);
    leaving.add("abc", milliseconds(0));
    leaving.add("def", milliseconds(0));
    QCOMPARE(taken(&leaving, milliseconds(1)), QByteArray("[a"));
    leaving.clear();
    QVERIFY(leaving.isEmpty());
    leaving.add("x", milliseconds(2));
    QCOMPARE(taken(&leaving, milliseconds(3)), QByteArray("[x"));
}

QTEST_APPLESS_MAIN(LeavingBytesTest)

#include "tst_leaving_bytes.moc"
