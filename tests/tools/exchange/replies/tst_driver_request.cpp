#include "exchange/replies/driver_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

class DriverRequestTest : public QObject
{
    Q_OBJECT

private slots:
    void lengthOfAGoodReply_data();
    void lengthOfAGoodReply();
    void theRequestsBytes();
    void longerThanADriverSends();
};

void DriverRequestTest::lengthOfAGoodReply_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("length");
    // Behind station and function: address, quantity or value, CRC.
    QTest::newRow("1 coil") << bytes("01 01 07 D0 00 01 FD 47") << 6;
    QTest::newRow("8 coils") << bytes("01 01 07 D0 00 08 3D 41") << 6;
    QTest::newRow("9 coils") << bytes("01 01 07 D0 00 09 FC 81") << 7;
    QTest::newRow("10 inputs") << bytes("01 02 07 D0 00 0A F8 80") << 7;
    QTest::newRow("2 registers") << bytes("01 03 00 64 00 02 85 D4") << 9;
    QTest::newRow("2 input registers") << bytes("01 04 00 64 00 02 30 14") << 9;
    QTest::newRow("1 coil written") << bytes("01 05 07 D0 FF 00 8C B7") << 8;
    QTest::newRow("1 register written") << bytes("01 06 00 64 04 D2 4A 88") << 8;
    QTest::newRow("10 coils written") << bytes("01 0F 07 D0 00 0A 02 0D 03 C4 F9") << 8;
    QTest::newRow("2 registers written") << bytes("01 10 00 64 00 02 04 04 D2 00 11 95 71") << 8;
    QTest::newRow("without its CRC") << bytes("01 03 00 64 00 02") << 9;
    QTest::newRow("without its quantity") << bytes("01 03 00 64 00") << 0;
    QTest::newRow("another function") << bytes("01 2B 0E 01 00 70 77") << 0;
    QTest::newRow("nothing") << QByteArray() << 0;
}

void DriverRequestTest::lengthOfAGoodReply()
{
    QFETCH(QByteArray, request);
    QTEST(driverRequest(request).recvLen, "length");
}

void DriverRequestTest::theRequestsBytes()
{
    const FRAME_PRO frame = driverRequest(bytes("01 03 00 64 00 02 85 D4"));
    QCOMPARE(frame.sendLen, 8);
    QCOMPARE(frame.frame[0], uchar(0x01));
    QCOMPARE(frame.frame[7], uchar(0xD4));
    QCOMPARE(frame.frame[8], uchar(0));
}

void DriverRequestTest::longerThanADriverSends()
{
    const FRAME_PRO frame = driverRequest(QByteArray(FRAME_SIZE + 1, '\x03'));
    QCOMPARE(frame.sendLen, FRAME_SIZE);
    QCOMPARE(frame.frame[FRAME_SIZE - 1], uchar(3));
}

QTEST_GUILESS_MAIN(DriverRequestTest)

#include "tst_driver_request.moc"
