#include "modbus/write_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <cstring>

namespace
{

QList<FRAME_PRO> built(VARIABLE job)
{
    driver.frameList.clear();
    getWriteFrame(job);
    return driver.frameList;
}

QByteArray request(const VARIABLE& job)
{
    const QList<FRAME_PRO> frames = built(job);
    if (frames.size() != 1)
        return QByteArray();
    return QByteArray(reinterpret_cast<const char*>(frames.first().frame), frames.first().sendLen);
}

} // namespace

class WriteRequestTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { driver.frameList.clear(); }

    void singleCoilIsOnOnlyForOne_data()
    {
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QByteArray>("frame");
        //                                                 station function coil value CRC
        QTest::newRow("1 is on") << bytes("01") << bytes("01 05 0005 FF00 9C 3B");
        QTest::newRow("0 is off") << bytes("00") << bytes("01 05 0005 0000 DD CB");
        QTest::newRow("2 is off") << bytes("02") << bytes("01 05 0005 0000 DD CB");
        QTest::newRow("255 is off") << bytes("FF") << bytes("01 05 0005 0000 DD CB");
        QTest::newRow("second byte unread") << bytes("0001") << bytes("01 05 0005 0000 DD CB");
    }

    void singleCoilIsOnOnlyForOne()
    {
        QFETCH(QByteArray, payload);
        QTEST(request(job(1, "Y", 5, 1, payload.toHex().constData())), "frame");
    }

    void singleRegisterGoesHighByteFirst()
    {
        QCOMPARE(request(job(3, "D", 100, 1, "34 12")), bytes("03"   // station
                                                              "06"   // write single register
                                                              "0064" // register 100
                                                              "1234" // value
                                                              "C4 80"));
    }

    void oneRegisterOf32CVIsASingleRegister()
    {
        QCOMPARE(request(job(1, "32CV", 201, 1, "78 56 34 12")),
                 bytes("01"   // station
                       "06"   // write single register
                       "25E6" // register 9702
                       "5678" // the payload's low word
                       "5C B3"));
    }

    void packsCoils_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QByteArray>("packed");
        QTest::newRow("two") << 2 << bytes("0101") << bytes("03");
        QTest::newRow("ten") << 10 << bytes("01000101000000000101") << bytes("0D 03");
        QTest::newRow("seven") << 7 << bytes("01010101010101") << bytes("7F");
        QTest::newRow("eight: sent as off") << 8 << bytes("0101010101010101") << bytes("00");
        QTest::newRow("nine") << 9 << bytes("010101010101010101") << bytes("FF 01");
        QTest::newRow("sixteen: last eight off")
            << 16 << bytes("01010101010101010101010101010101") << bytes("FF 00");
        QTest::newRow("past the count unread") << 3 << bytes("0000000101") << bytes("00");
        QTest::newRow("2 spills upward") << 3 << bytes("020000") << bytes("02");
        QTest::newRow("2 and its neighbour add up") << 3 << bytes("020100") << bytes("04");
        QTest::newRow("255 everywhere, kept to 8 bits")
            << 9 << bytes("FFFFFFFFFFFFFFFF03") << bytes("01 03");
    }

    void packsCoils()
    {
        QFETCH(int, count);
        QFETCH(QByteArray, payload);
        const QByteArray frame = request(job(1, "Y", 0, count, payload.toHex().constData()));
        QTEST(frame.mid(7, frame.size() - 9), "packed");
    }

    void severalCoils()
    {
        const QByteArray frame = request(job(1, "M", 0, 10, "01000101000000000101"));
        QCOMPARE(frame, bytes("01"   // station
                              "0F"   // write multiple coils
                              "07D0" // coil 2000
                              "000A" // ten coils
                              "02"   // two bytes
                              "0D"   // M0, M2, M3
                              "03"   // M8, M9
                              "C4 F9"));
        QCOMPARE(static_cast<int>(frame.size()), 11);
    }

    void eightCoilsAreSentAsOff()
    {
        QCOMPARE(request(job(1, "M", 0, 8, "0101010101010101")), bytes("01"   // station
                                                                       "0F"   // multiple coils
                                                                       "07D0" // coil 2000
                                                                       "0008" // eight coils
                                                                       "01"   // one byte
                                                                       "00"   // all off
                                                                       "3E F0"));
    }

    void severalRegisters()
    {
        const QByteArray frame = request(job(1, "D", 100, 2, "34 12 78 56"));
        QCOMPARE(frame, bytes("01"   // station
                              "10"   // write multiple registers
                              "0064" // register 100
                              "0002" // two registers
                              "04"   // four bytes
                              "1234" // D100
                              "5678" // D101
                              "8F 40"));
        QCOMPARE(static_cast<int>(frame.size()), 13);
    }

    void doubleWordsGoHighWordFirst()
    {
        QCOMPARE(request(job(1, "32CV", 200, 4, "78563412 A0860100")),
                 bytes("01"       // station
                       "10"       // write multiple registers
                       "25E4"     // register 9700
                       "0004"     // four registers
                       "08"       // eight bytes
                       "12345678" // 32CV200
                       "000186A0" // 32CV201: 100000
                       "DC DC"));
    }

    void theOddRegisterOf32CVIsZero()
    {
        QCOMPARE(request(job(1, "32CV", 200, 3, "78563412 FFFFFFFF")),
                 bytes("01 10 25E4"
                       "0003"     // three registers
                       "06"       // six bytes
                       "12345678" // 32CV200
                       "0000"     // half a value is not sent
                       "3A 28"));
    }

    void frameFieldsFollowTheFunction_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("sendLen");
        QTest::newRow("single coil") << "Y" << 1 << 8;
        QTest::newRow("single register") << "D" << 1 << 8;
        QTest::newRow("nine coils") << "Y" << 9 << 11;
        QTest::newRow("sixteen coils") << "Y" << 16 << 11;
        QTest::newRow("three registers") << "D" << 3 << 15;
        QTest::newRow("three registers of 32CV") << "32CV" << 3 << 15;
    }

    void frameFieldsFollowTheFunction()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        const QList<FRAME_PRO> frames = built(job(1, type.toLatin1().constData(), 0, count));
        QCOMPARE(static_cast<int>(frames.size()), 1);
        QTEST(frames.first().sendLen, "sendLen");
        QCOMPARE(frames.first().recvLen, 8);
        QCOMPARE(frames.first().frameFunc, 0);
        QCOMPARE(frames.first().dataLen, 0);
        QCOMPARE(frames.first().reserved, 0);
    }

    void station0IsABroadcast()
    {
        QCOMPARE(request(job(0, "Y", 5, 1, "01")), bytes("00"   // every station
                                                         "05"   // write single coil
                                                         "0005" // coil 5
                                                         "FF00" // on
                                                         "9D EA"));
    }

    void sendsLowBytesOnly()
    {
        //                                                      station function register value CRC
        QCOMPARE(request(job(0x1F7, "D", 65537, 1, "0100")), bytes("F7 06 0001 0001 0D 5C"));
        QCOMPARE(request(job(1, "D", -1, 1, "0100")), bytes("01 06 FFFF 0001 48 2E"));
    }

    void anUnknownTypeHasNoFrame_data()
    {
        QTest::addColumn<QString>("type");
        QTest::newRow("no such type") << "Q";
        QTest::newRow("lower case") << "d";
        QTest::newRow("empty") << "";
    }

    void anUnknownTypeHasNoFrame()
    {
        QFETCH(QString, type);
        QCOMPARE(static_cast<int>(built(job(1, type.toLatin1().constData(), 0, 1)).size()), 0);
        QCOMPARE(static_cast<int>(built(job(1, type.toLatin1().constData(), 0, 2)).size()), 0);
    }

    void appendsBehindWaitingFramesAndKeepsTheWholeJob()
    {
        VARIABLE first = job(1, "D", 1, 1);
        VARIABLE second = job(2, "M", 7, 3, "010101");
        second.kind = 2;
        second.data[1023] = 0xCC;
        const VARIABLE before = second;
        getWriteFrame(first);
        getWriteFrame(second);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 2);
        QCOMPARE(driver.frameList.at(0).job.address, 1);
        const VARIABLE& kept = driver.frameList.at(1).job;
        QCOMPARE(kept.kind, 2);
        QCOMPARE(kept.station, 2);
        QCOMPARE(kept.regType, QString("M"));
        QCOMPARE(kept.address, 7);
        QCOMPARE(kept.count, 3);
        QCOMPARE(std::memcmp(kept.data, before.data, sizeof before.data), 0);
        QCOMPARE(std::memcmp(second.data, before.data, sizeof before.data), 0);
    }
};

QTEST_APPLESS_MAIN(WriteRequestTest)
#include "tst_write_request.moc"
