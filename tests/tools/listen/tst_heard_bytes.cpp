// Times at 9600 baud, 8N1: a character takes 1042 us (1041.7 rounded up; ten of them 10417),
// the gap of 3.5 characters 3646 us.

#include "listen/heard_bytes.h"

#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class HeardBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void aPieceKeepsItsTimes();
    void bytesReadOneByOneLeaveNoDoubt();
    void bytesReadInOneGoAreInDoubt();
    void bytesThatWereHeldBackAreInDoubt();
    void aPieceFromTheMiddleOfAGo();
    void pauses();
};

void HeardBytesTest::aPieceKeepsItsTimes()
{
    HeardBytes heard((LineTiming()));
    heard.add(bytes("01 03"), 100000);
    heard.add(bytes("00"), 101042);
    QCOMPARE(heard.size(), 3);
    const HeardPiece piece = heard.take(3);
    QCOMPARE(piece.bytes, bytes("01 03 00"));
    QCOMPARE(piece.firstRead, qint64(100000));
    QCOMPARE(piece.lastRead, qint64(101042));
    QCOMPARE(piece.begin, qint64(100000 - 2084)); // two characters before they were read
    QCOMPARE(piece.end, qint64(101042));
    QCOMPARE(piece.isGlued, false);
    QCOMPARE(heard.size(), 0);
}

void HeardBytesTest::bytesReadOneByOneLeaveNoDoubt()
{
    HeardBytes heard((LineTiming()));
    heard.add(bytes("01"), 1042);
    heard.add(bytes("03"), 2084);
    heard.add(bytes("00"), 3126);
    QCOMPARE(heard.take(3).doubt, qint64(0));
}

void HeardBytesTest::bytesReadInOneGoAreInDoubt()
{
    HeardBytes heard((LineTiming()));
    heard.add(bytes("01 03 00 64 00 02 85 D4"), 50000);
    QCOMPARE(heard.take(8).doubt, qint64(7292)); // the first one waited for seven characters
}

void HeardBytesTest::bytesThatWereHeldBackAreInDoubt()
{
    HeardBytes heard((LineTiming()));
    heard.add(bytes("01"), 1042);
    heard.add(bytes("03"), 2084 + 900); // read late
    heard.add(bytes("00"), 3126);       // and so this follows too soon
    QCOMPARE(heard.take(3).doubt, qint64(900));
}

void HeardBytesTest::aPieceFromTheMiddleOfAGo()
{
    HeardBytes heard((LineTiming()));
    heard.add(bytes("FF 01 03 00"), 50000);
    const HeardPiece first = heard.take(1);
    QCOMPARE(first.end, qint64(50000 - 3125)); // three characters came behind it
    const HeardPiece second = heard.take(2);
    QCOMPARE(second.bytes, bytes("01 03"));
    QCOMPARE(second.isGlued, true);
    QCOMPARE(second.begin, qint64(50000 - 3125));
    QCOMPARE(second.end, qint64(50000 - 1042));
    QCOMPARE(heard.bytes(), bytes("00"));
}

void HeardBytesTest::pauses()
{
    HeardBytes heard((LineTiming()));
    heard.add(bytes("01 03"), 10000);
    heard.add(bytes("04"), 10000 + 1042 + 3645);    // a microsecond less than the gap
    heard.add(bytes("05 06"), 14687 + 2084 + 3646); // the gap
    QCOMPARE(heard.isAfterPause(0), true);          // nothing was before
    QCOMPARE(heard.isAfterPause(1), false);
    QCOMPARE(heard.isAfterPause(2), false);
    QCOMPARE(heard.isAfterPause(3), true);
    QCOMPARE(heard.isAfterPause(4), false);
    heard.take(5);
    heard.add(bytes("07"), 20417 + 1042);
    QCOMPARE(heard.isAfterPause(0), false); // bytes that were taken count as well
}

QTEST_APPLESS_MAIN(HeardBytesTest)
#include "tst_heard_bytes.moc"
