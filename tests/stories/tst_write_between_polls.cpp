#include "stories/slave.h"

#include <QtTest/QTest>

namespace
{

// D5 is watched and has been read as 3; the next read is already on the wire.
void startPolling(DriverFixture& runtime)
{
    QList<KEY_ADDRESS> watched;
    watched << key(1, "D", 5, 1);
    intf_addrMerge(watched);
    runtime.poll();
    runtime.deal(withCrc("01 03 02 0003"));
    runtime.poll();
    runtime.reports.clear();
}

const Report D5 = {1, 1, "D", 5};

} // namespace

class WriteBetweenPollsTest : public QObject
{
    Q_OBJECT

private slots:
    void confirmed()
    {
        DriverFixture runtime;
        startPolling(runtime);
        setValues(1, "D", 5, 1, "0700");
        QCOMPARE(runtime.reports, QList<Report>() << D5);
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0700"));

        // The read that was on the wire still brings the old value: the write stays.
        QCOMPARE(runtime.deal(withCrc("01 03 02 0003")), 1);
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0700"));
        QCOMPARE(runtime.reports, QList<Report>() << D5);

        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "06"   // write single register
                                       "0005" // register 5
                                       "0007" // value
                                       "D8 09"));
        QCOMPARE(runtime.deal(bytes("01 06 0005 0007 D8 09")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << D5 << D5);

        QCOMPARE(runtime.poll(), withCrc("01 03 0005 0001"));
        QCOMPARE(runtime.deal(withCrc("01 03 02 0007")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << D5 << D5); // nothing new
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0700"));
    }

    void failed()
    {
        DriverFixture runtime;
        startPolling(runtime);
        setValues(1, "D", 5, 1, "0700");
        runtime.deal(withCrc("01 03 02 0003"));
        runtime.reports.clear();
        QCOMPARE(failRequest(runtime), QList<int>() << 8 << 8 << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,5,D"));
        QCOMPARE(runtime.reports, QList<Report>() << D5);
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0300"));
        QCOMPARE(runtime.poll(), withCrc("01 03 0005 0001")); // polling goes on
    }

    void overtakenByTheDevicesOwnValue()
    {
        DriverFixture runtime;
        startPolling(runtime);
        setValues(1, "D", 5, 1, "0700");
        runtime.deal(withCrc("01 03 02 0009")); // the device changed it meanwhile
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0900"));
        QCOMPARE(runtime.reports, QList<Report>() << D5 << D5);
        runtime.poll();
        QCOMPARE(runtime.deal(goodReply(runtime)), 1); // the write arrives all the same
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0700"));
    }

    void writtenTwiceWhileTheFirstIsOnTheWire()
    {
        DriverFixture runtime;
        setValues(1, "D", 5, 1, "0700");
        QCOMPARE(runtime.poll(), withCrc("01 06 0005 0007"));
        setValues(1, "D", 5, 1, "0800");
        setValues(1, "D", 5, 1, "0900"); // replaces the waiting one
        runtime.deal(withCrc("01 06 0005 0007"));
        // The confirmation takes what was written last.
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0900"));
        QCOMPARE(runtime.poll(), withCrc("01 06 0005 0009"));
        runtime.deal(withCrc("01 06 0005 0009"));
        QVERIFY(runtime.poll().isEmpty());
    }

    void anInputIsNeverWritten()
    {
        DriverFixture runtime;
        setValues(1, "X", 5, 1, "01");
        QVERIFY(runtime.poll().isEmpty());
        QCOMPARE(DriverFixture::data(1, "X", 5, 1, 1), bytes("01"));
        QCOMPARE(runtime.reports, QList<Report>() << (Report{1, 1, "X", 5}));
    }

    void aLongWriteGoesOutInPieces()
    {
        DriverFixture runtime("1#0#0#3#2");
        setValues(1, "D", 100, 5, "0100 0200 0300 0400 0500");
        QCOMPARE(runtime.poll(), withCrc("01 10 0064 0002 04 0001 0002"));
        runtime.deal(withCrc("01 10 0064 0002"));
        QCOMPARE(runtime.poll(), withCrc("01 10 0066 0002 04 0003 0004"));
        QCOMPARE(failRequest(runtime), QList<int>() << 8 << 8 << 2);
        QCOMPARE(runtime.poll(), withCrc("01 06 0068 0005"));
        runtime.deal(withCrc("01 06 0068 0005"));
        QCOMPARE(DriverFixture::data(1, "D", 100, 5, 10), bytes("0100 0200 0000 0000 0500"));
    }
};

QTEST_APPLESS_MAIN(WriteBetweenPollsTest)
#include "tst_write_between_polls.moc"
