// Requests made one after the other: none shows anything of the one before.
#include "modbus/read_request.h"
#include "modbus/write_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <algorithm>
#include <cstring>

namespace
{

void watchD0()
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1("D");
    key.count = 1;
    QList<KEY_ADDRESS> keys = {key};
    intf_addrMerge(keys);
}

// D0 to D99, all bytes A5, is 209 bytes long: header 7, values 200, CRC 2.
void write100Words(DriverFixture& runtime)
{
    std::vector<unsigned char> values(200, 0xA5);
    intf_setData(1, QString::fromLatin1("D"), 0, 100, values.data(), WRITE_JOB);
    QCOMPARE(static_cast<int>(runtime.poll().size()), 209);
    // Echo: station, function, first register, 100 registers.
    QCOMPARE(runtime.deal(withCrc("01 10 0000 0064")), 1);
}

int nonZeroBytes(const unsigned char* begin, const unsigned char* end)
{
    return static_cast<int>(end - begin - std::count(begin, end, 0));
}

// The read of D0 with nothing else in the record.
void compareWithAReadOfD0(const FRAME_PRO& request)
{
    // Station, function 3, register 0, one register, CRC.
    QCOMPARE(wholeBytes(request), bytes("01 03 00 00 00 01 84 0A"));
    QCOMPARE(nonZeroBytes(request.frame + 8, request.frame + FRAME_SIZE), 0);
    QCOMPARE(request.recvLen, 7);
    QCOMPARE(request.frameFunc, 3);
    QCOMPARE(request.dataLen, 2);
    QCOMPARE(request.reserved, 0);
    QCOMPARE(request.job.kind, 4);
    QCOMPARE(request.job.address, 0);
    QCOMPARE(nonZeroBytes(request.job.data, request.job.data + PAYLOAD_SIZE), 0);
}

} // namespace

class FrameListTest : public QObject
{
    Q_OBJECT

private slots:
    void aReadAfterALongWrite()
    {
        DriverFixture runtime("1#0#0#3#125");
        watchD0();
        write100Words(runtime);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 0);
        runtime.poll();
        compareWithAReadOfD0(runtime.polled());
        QCOMPARE(static_cast<int>(driver.frameList.size()), 1);
    }

    void whatWasWrittenIntoTheRequestBeforeIsGone()
    {
        DriverFixture runtime;
        watchD0();
        runtime.poll();
        FRAME_PRO& request = driver.frameList.first();
        std::memset(request.frame + 8, 0xEE, FRAME_SIZE - 8);
        std::memset(request.job.data, 0xEE, PAYLOAD_SIZE);
        request.reserved = 7;
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        runtime.poll();
        compareWithAReadOfD0(runtime.polled());
    }

    // Handed out again as it stands, whatever was written into it.
    void aRepeatedRequestKeepsWhatWasWrittenIntoIt()
    {
        DriverFixture runtime;
        watchD0();
        runtime.poll();
        driver.frameList.first().reserved = 7;
        QCOMPARE(runtime.deal(QByteArray()), 8);
        runtime.poll();
        QCOMPARE(runtime.polled().reserved, 7);
    }

    void aCopyOfTheListStaysWhatItWas()
    {
        DriverFixture runtime("1#0#0#3#125");
        watchD0();
        runtime.poll();
        const QList<FRAME_PRO> copy = driver.frameList;
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        write100Words(runtime);
        QCOMPARE(static_cast<int>(copy.size()), 1);
        compareWithAReadOfD0(copy.at(0));
    }

    // One after the other leaves the list, and the job is retired with the last.
    void severalRequests()
    {
        DriverFixture runtime;
        watchD0();
        runtime.poll();
        VARIABLE job = driver.currentJob;
        job.address = 5;
        getReadFrame(job);
        getReadFrame(driver.frameList.first().job);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 3);
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 2);
        QCOMPARE(driver.frameList.at(0).job.address, 5);
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        compareWithAReadOfD0(driver.frameList.at(0));
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 0);
        runtime.poll();
        compareWithAReadOfD0(runtime.polled());
    }

    // A frame that the runtime put there waits like the driver's own, and comes first.
    void aRequestBehindAFrameFromOutside()
    {
        DriverFixture runtime;
        watchD0();
        runtime.poll();
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        driver.frameList.append(runtime.polled());
        VARIABLE job = driver.currentJob;
        job.address = 5;
        getReadFrame(job);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 2);
        compareWithAReadOfD0(driver.frameList.at(0));
        QCOMPARE(driver.frameList.at(1).job.address, 5);
    }

    // The request answered before it does not come back.
    void aFrameFromOutsideLeavesTheListEmpty()
    {
        DriverFixture runtime;
        watchD0();
        runtime.poll();
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        driver.frameList.append(runtime.polled());
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 0);
    }

    // The list moves its frames while it grows.
    void jobsThatLieInTheList()
    {
        DriverFixture runtime;
        watchD0();
        runtime.poll();
        for (int i = 1; i < 20; ++i) {
            getReadFrame(driver.frameList[i - 1].job);
            compareWithAReadOfD0(driver.frameList.at(i));
        }
        VARIABLE write = driver.currentJob;
        write.data[0] = 0x12;
        getWriteFrame(write);
        for (int i = 21; i < 40; ++i) {
            getWriteFrame(driver.frameList[i - 1].job);
            QCOMPARE(wholeBytes(driver.frameList.at(i)), wholeBytes(driver.frameList.at(20)));
        }
    }

    void aRequestAfterOneThatFailedForGood()
    {
        DriverFixture runtime("1#0#0#1#32");
        watchD0();
        runtime.poll();
        driver.frameList.first().reserved = 7;
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 0);
        runtime.poll();
        compareWithAReadOfD0(runtime.polled());
    }
};

QTEST_APPLESS_MAIN(FrameListTest)
#include "tst_frame_list.moc"
