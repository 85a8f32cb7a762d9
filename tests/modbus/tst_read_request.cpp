#include "modbus/read_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <climits>
#include <cstring>

namespace
{

// What the builder appends for one job to an empty list of frames.
QList<FRAME_PRO> built(VARIABLE job)
{
    driver.frameList.clear();
    getReadFrame(job);
    return driver.frameList;
}

QByteArray request(const FRAME_PRO& frame)
{
    return QByteArray(reinterpret_cast<const char*>(frame.frame), 8);
}

} // namespace

class ReadRequestTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { driver.frameList.clear(); }

    void readsRegisters()
    {
        const QList<FRAME_PRO> frames = built(job(1, "D", 100, 10));
        QCOMPARE(static_cast<int>(frames.size()), 1);
        QCOMPARE(request(frames.first()), bytes("01"   // station
                                                "03"   // read holding registers
                                                "0064" // register 100
                                                "000A" // ten registers
                                                "84 12"));
        QCOMPARE(frames.first().sendLen, 8);
        QCOMPARE(frames.first().recvLen, 25);
        QCOMPARE(frames.first().frameFunc, 3);
        QCOMPARE(frames.first().dataLen, 20);
    }

    void readsCoils()
    {
        const QList<FRAME_PRO> frames = built(job(1, "M", 3000, 16));
        QCOMPARE(static_cast<int>(frames.size()), 1);
        QCOMPARE(request(frames.first()), bytes("01"   // station
                                                "01"   // read coils
                                                "3298" // coil 12952: second M range
                                                "0010" // sixteen coils
                                                "B2 91"));
        QCOMPARE(frames.first().sendLen, 8);
        QCOMPARE(frames.first().recvLen, 7);
        QCOMPARE(frames.first().frameFunc, 3);
        QCOMPARE(frames.first().dataLen, 16);
    }

    void readsDoubleWords()
    {
        const QList<FRAME_PRO> frames = built(job(1, "32CV", 200, 2));
        QCOMPARE(static_cast<int>(frames.size()), 1);
        QCOMPARE(request(frames.first()), bytes("01"   // station
                                                "03"   // read holding registers
                                                "25E4" // register 9700
                                                "0002" // two registers, one value
                                                "8F 30"));
        QCOMPARE(frames.first().sendLen, 8);
        QCOMPARE(frames.first().recvLen, 9);
        QCOMPARE(frames.first().frameFunc, 3);
        QCOMPARE(frames.first().dataLen, 4);
    }

    void tellsCounterTypesApart()
    {
        QCOMPARE(request(built(job(1, "CV", 150, 1)).first()), bytes("01 03"
                                                                     "25B2" // 9500 + 150
                                                                     "0001"
                                                                     "2F 21"));
        QCOMPARE(request(built(job(1, "32CV", 150, 1)).first()), bytes("01 03"
                                                                       "2580" // 9500 + 50 * 2
                                                                       "0001"
                                                                       "8E EE"));
    }

    void replyLengthFollowsTheCount_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("recvLen");
        QTest::addColumn<int>("dataLen");
        QTest::newRow("no bits") << "M" << 0 << 5 << 0;
        QTest::newRow("one bit") << "M" << 1 << 6 << 1;
        QTest::newRow("eight bits") << "M" << 8 << 6 << 8;
        QTest::newRow("nine bits") << "M" << 9 << 7 << 9;
        QTest::newRow("2000 bits") << "M" << 2000 << 255 << 2000;
        QTest::newRow("no register") << "D" << 0 << 5 << 0;
        QTest::newRow("one register") << "D" << 1 << 7 << 2;
        QTest::newRow("125 registers") << "D" << 125 << 255 << 250;
        QTest::newRow("more than a device accepts") << "D" << 300 << 605 << 600;
        QTest::newRow("an odd 32CV count") << "32CV" << 3 << 11 << 6;
        QTest::newRow("negative bits") << "M" << -8 << 4 << -8;
        QTest::newRow("negative bits, no whole byte") << "M" << -9 << 5 << -9;
        QTest::newRow("forty negative bits") << "M" << -40 << 0 << -40;
        QTest::newRow("negative registers") << "D" << -3 << -1 << -6;
        QTest::newRow("most bits") << "M" << INT_MAX << 268435461 << INT_MAX;
        QTest::newRow("registers that wrap") << "D" << INT_MAX << 3 << -2;
        QTest::newRow("fewest registers") << "D" << INT_MIN << 5 << 0;
    }

    void replyLengthFollowsTheCount()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        const QList<FRAME_PRO> frames = built(job(1, type.toLatin1().constData(), 0, count));
        QCOMPARE(static_cast<int>(frames.size()), 1);
        QCOMPARE(frames.first().sendLen, 8);
        QTEST(frames.first().recvLen, "recvLen");
        QTEST(frames.first().dataLen, "dataLen");
    }

    void sendsLowBytesOnly_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("frame");
        //                                                        station function address count CRC
        QTest::newRow("station 257") << 257 << 0 << 1 << bytes("01 03 0000 0001 84 0A");
        QTest::newRow("station 256 is not 0") << 256 << 0 << 1 << bytes("00 03 0000 0001 85 DB");
        QTest::newRow("station -1") << -1 << 0 << 1 << bytes("FF 03 0000 0001 91 D4");
        QTest::newRow("station 247") << 247 << 0 << 1 << bytes("F7 03 0000 0001 90 9C");
        QTest::newRow("last address") << 1 << 65535 << 1 << bytes("01 03 FFFF 0001 84 2E");
        QTest::newRow("past 16 bits") << 1 << 65537 << 1 << bytes("01 03 0001 0001 D5 CA");
        QTest::newRow("below zero") << 1 << -1 << 1 << bytes("01 03 FFFF 0001 84 2E");
        QTest::newRow("high byte of count") << 1 << 0 << 0x123 << bytes("01 03 0000 0123 05 83");
        QTest::newRow("count past 16 bits") << 1 << 0 << 65538 << bytes("01 03 0000 0002 C4 0B");
    }

    void sendsLowBytesOnly()
    {
        QFETCH(int, station);
        QFETCH(int, address);
        QFETCH(int, count);
        QTEST(request(built(job(station, "D", address, count)).first()), "frame");
    }

    // M starts at coil 9952 above its split: 9952 + 55584 is coil 65536.
    void wrapsAModbusAddressPast16Bits()
    {
        QCOMPARE(request(built(job(1, "M", 55584, 1)).first()),
                 bytes("01 01"
                       "0000" // coil 65536, low 16 bits
                       "0001"
                       "FD CA"));
        QCOMPARE(request(built(job(1, "32CV", INT_MAX, 2)).first()),
                 bytes("01 03"
                       "2452" // 9500 + (2147483647 - 100) * 2, low 16 bits
                       "0002"
                       "6F 2A"));
    }

    void station0HasNoFrame()
    {
        QCOMPARE(static_cast<int>(built(job(0, "D", 0, 1)).size()), 0);
        QCOMPARE(static_cast<int>(built(job(0, "M", 0, 1)).size()), 0);
    }

    void anUnknownTypeReadsRegistersAtBaseZero_data()
    {
        QTest::addColumn<QString>("type");
        QTest::newRow("no such type") << "Q";
        QTest::newRow("lower case") << "x";
        QTest::newRow("empty") << "";
        QTest::newRow("a type with a blank") << "M ";
    }

    void anUnknownTypeReadsRegistersAtBaseZero()
    {
        QFETCH(QString, type);
        const FRAME_PRO frame = built(job(1, type.toLatin1().constData(), 5, 9)).first();
        QCOMPARE(request(frame), bytes("01"   // station
                                       "03"   // read holding registers
                                       "0005" // the address itself
                                       "0009" // quantity
                                       "95 CD"));
        QCOMPARE(frame.recvLen, 23);
        QCOMPARE(frame.dataLen, 18);
    }

    void appendsBehindWaitingFramesAndKeepsTheWholeJob()
    {
        VARIABLE first = job(1, "D", 1, 1);
        VARIABLE second = job(2, "M", 7, 3, "AA BB");
        second.kind = 77;
        second.data[1023] = 0xCC;
        const VARIABLE before = second;
        getReadFrame(first);
        getReadFrame(second);

        QCOMPARE(static_cast<int>(driver.frameList.size()), 2);
        QCOMPARE(driver.frameList.at(0).job.address, 1);
        const FRAME_PRO& frame = driver.frameList.at(1);
        QCOMPARE(frame.job.kind, 77);
        QCOMPARE(frame.job.station, 2);
        QCOMPARE(frame.job.regType, QString("M"));
        QCOMPARE(frame.job.address, 7);
        QCOMPARE(frame.job.count, 3);
        QCOMPARE(std::memcmp(frame.job.data, before.data, sizeof before.data), 0);
        QCOMPARE(second.kind, 77);
        QCOMPARE(std::memcmp(second.data, before.data, sizeof before.data), 0);
        QCOMPARE(frame.reserved, 0);
    }
};

QTEST_APPLESS_MAIN(ReadRequestTest)
#include "tst_read_request.moc"
