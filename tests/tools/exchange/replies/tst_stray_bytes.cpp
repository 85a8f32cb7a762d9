#include "exchange/replies/stray_bytes.h"
#include "tools/exchange/replies/request_frames.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const FRAME_PRO READ = requestOf(withCrc("01 03 00 64 00 02"), 9);
const FRAME_PRO READ_200 = requestOf(withCrc("01 03 00 C8 00 02"), 9);
const FRAME_PRO OF_STATION_2 = requestOf(withCrc("02 03 00 64 00 02"), 9);
const QByteArray REPLY = withCrc("01 03 04 04 D2 16 2E");
const QByteArray SAME_FROM_2 = withCrc("02 03 04 04 D2 16 2E");

} // namespace

class StrayBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void whatTheyAre_data();
    void whatTheyAre();
    void aLateReplyStaysOwedUnlessItWasExpected();
    void aDoubleOfTheLastReplyIsNotTakenForALateOne();
    void bytesCountWhenSorted();
    void ofAFloodTheLastBytesAreSorted();
};

void StrayBytesTest::whatTheyAre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QList<int>>("counts"); // foreign, late, duplicates, bytes
    QTest::newRow("nothing") << QByteArray() << QList<int>({0, 0, 0, 0});
    QTest::newRow("noise") << bytes("55 AA 55") << QList<int>({0, 0, 0, 3});
    QTest::newRow("a late reply") << REPLY << QList<int>({0, 1, 0, 0});
    QTest::newRow("of another station") << SAME_FROM_2 << QList<int>({1, 0, 0, 0});
    QTest::newRow("noise around it") << "\x55" + REPLY + "\xAA\x55" << QList<int>({0, 1, 0, 3});
    QTest::newRow("several") << REPLY + SAME_FROM_2 + REPLY << QList<int>({1, 2, 0, 0});
    QTest::newRow("its beginning") << REPLY.left(8) << QList<int>({0, 0, 0, 8});
}

void StrayBytesTest::whatTheyAre()
{
    QFETCH(QByteArray, bytes);
    OwedReplies owed;
    owed.add(READ, 500);
    ThrownAway counts;
    StrayBytes stray(&counts);
    stray.add(bytes);
    stray.sort(&owed, nullptr);
    QTEST(QList<int>(
              {int(counts.foreign), int(counts.late), int(counts.duplicates), int(counts.bytes)}),
          "counts");
    QCOMPARE(counts.echoes, qint64(0));
}

void StrayBytesTest::aLateReplyStaysOwedUnlessItWasExpected()
{
    OwedReplies owed;
    owed.add(READ, 500);
    ThrownAway counts;
    StrayBytes stray(&counts);
    stray.add(REPLY);
    stray.sort(&owed, nullptr);
    QVERIFY(owed.isOwed(REPLY));
    stray.add(REPLY);
    stray.sort(&owed, &OF_STATION_2);
    QVERIFY(owed.isOwed(REPLY));
    stray.add(REPLY);
    stray.sort(&owed, &READ_200);
    QVERIFY(!owed.isOwed(REPLY));
    QCOMPARE(counts.late, qint64(3));
}

void StrayBytesTest::aDoubleOfTheLastReplyIsNotTakenForALateOne()
{
    OwedReplies owed;
    owed.add(READ, 500);
    ThrownAway counts;
    StrayBytes stray(&counts);
    stray.setLastTaken(REPLY);
    stray.add(REPLY);
    stray.sort(&owed, nullptr);
    QCOMPARE(counts.duplicates, qint64(1));
    QCOMPARE(counts.late, qint64(0));
    QVERIFY(owed.isOwed(REPLY));
}

void StrayBytesTest::bytesCountWhenSorted()
{
    OwedReplies owed;
    owed.add(READ, 500);
    ThrownAway counts;
    StrayBytes stray(&counts);
    stray.add(REPLY.left(4));
    QCOMPARE(counts.bytes, qint64(0));
    stray.add(REPLY.mid(4));
    stray.sort(&owed, nullptr);
    stray.sort(&owed, nullptr);
    QCOMPARE(counts.late, qint64(1));
    QCOMPARE(counts.bytes, qint64(0));
}

void StrayBytesTest::ofAFloodTheLastBytesAreSorted()
{
    OwedReplies owed;
    ThrownAway counts;
    StrayBytes stray(&counts);
    stray.add(QByteArray(4096, '\x55'));
    QCOMPARE(counts.bytes, qint64(0));
    stray.add(REPLY); // 9 bytes
    QCOMPARE(counts.bytes, qint64(9));
    stray.sort(&owed, nullptr);
    QCOMPARE(counts.bytes, qint64(4096));
    QCOMPARE(counts.foreign, qint64(1));
}

QTEST_APPLESS_MAIN(StrayBytesTest)
#include "tst_stray_bytes.moc"
