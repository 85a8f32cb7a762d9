#include "exchange/lines/mbap_frames.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(kx::MbapContent)

namespace
{

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

} // namespace

class MbapFramesTest : public QObject
{
    Q_OBJECT

private slots:
    void aRequestIsPutIntoAHeader_data();
    void aRequestIsPutIntoAHeader();
    void whatHasCome_data();
    void whatHasCome();
    void twoFramesAreTakenOneByOne();
    void aReplyIsKnownByItsHeader_data();
    void aReplyIsKnownByItsHeader();
};

void MbapFramesTest::aRequestIsPutIntoAHeader_data()
{
    QTest::addColumn<int>("transaction");
    QTest::addColumn<QByteArray>("rtu");
    QTest::addColumn<QByteArray>("mbap");
    QTest::newRow("a read") << 1
                            // Station 1, function 3, address 0, quantity 10, CRC.
                            << hex("01 03 0000 000A C5CD")
                            // Transaction, protocol 0, 6 bytes follow, the same without CRC.
                            << hex("0001 0000 0006 01 03 0000 000A");
    QTest::newRow("a write of two registers")
        << 0xABCD
        // Station 17, function 16, address 100, 2 registers, 4 bytes, values, CRC.
        << hex("11 10 0064 0002 04 0102 0304 01BB")
        << hex("ABCD 0000 000B 11 10 0064 0002 04 0102 0304");
    QTest::newRow("no more than station, function and CRC")
        << 0xFFFF << hex("01 11 C02C") << hex("FFFF 0000 0002 01 11");
}

void MbapFramesTest::aRequestIsPutIntoAHeader()
{
    QFETCH(int, transaction);
    QFETCH(QByteArray, rtu);
    QTEST(mbapFrame(static_cast<quint16>(transaction), rtu), "mbap");
}

void MbapFramesTest::whatHasCome_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<MbapContent>("content");
    QTest::addColumn<QByteArray>("rtu");
    QTest::addColumn<QByteArray>("left");
    const auto incomplete = [](const char* name, const char* received) {
        QTest::newRow(name) << hex(received) << MbapContent::Incomplete << QByteArray()
                            << hex(received);
    };
    const auto wrong = [](const char* name, const char* received) {
        QTest::newRow(name) << hex(received) << MbapContent::Wrong << QByteArray() << hex(received);
    };
    incomplete("nothing", "");
    incomplete("half a header", "1234 00");
    incomplete("a header alone", "1234 0000 0005");
    incomplete("all but the last byte", "1234 0000 0005 01 03 02 04");
    // Station 1, function 3, 2 bytes, 1234, CRC.
    QTest::newRow("a reply") << hex("1234 0000 0005 01 03 02 04D2") << MbapContent::Frame
                             << hex("01 03 02 04D2 3AD9") << QByteArray();
    QTest::newRow("a reply and more") << hex("1234 0000 0003 01 83 02 77") << MbapContent::Frame
                                      << hex("01 83 02 C0F1") << hex("77");
    QTest::newRow("no more than station and function")
        << hex("1234 0000 0002 01 11") << MbapContent::Frame << hex("01 11 C02C") << QByteArray();
    wrong("another protocol", "1234 0001 0005");
    wrong("another protocol, seen early", "1234 0100");
    wrong("a reply of Modbus RTU", "01 03 02 04D2 3AD9");
    wrong("a length of one byte", "1234 0000 0001 01");
    wrong("no length", "1234 0000 0000");
    wrong("a length that none has", "1234 0000 00FF");
    incomplete("the longest", "1234 0000 00FE 01");
}

void MbapFramesTest::whatHasCome()
{
    QFETCH(QByteArray, received);
    MbapFrame frame;
    QTEST(takeMbapFrame(&received, &frame), "content");
    QTEST(frame.rtu, "rtu");
    QTEST(received, "left");
    QCOMPARE(int(frame.transaction), frame.rtu.isEmpty() ? 0 : 0x1234);
}

void MbapFramesTest::twoFramesAreTakenOneByOne()
{
    QByteArray received = hex("0007 0000 0003 01 83 02  0008 0000 0003 01 83 01  0009");
    MbapFrame frame;
    QVERIFY(takeMbapFrame(&received, &frame) == MbapContent::Frame);
    QCOMPARE(int(frame.transaction), 7);
    QVERIFY(takeMbapFrame(&received, &frame) == MbapContent::Frame);
    QCOMPARE(int(frame.transaction), 8);
    QCOMPARE(frame.rtu, hex("01 83 01 80F0"));
    QVERIFY(takeMbapFrame(&received, &frame) == MbapContent::Incomplete);
    QCOMPARE(received, hex("0009"));
}

void MbapFramesTest::aReplyIsKnownByItsHeader_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<bool>("isReply");
    // To 01 03 00 00 00 01 84 0A, read as transaction 0103 and so on: station 84, function 0A.
    QTest::newRow("a refusal of what RTU is in it") << hex("0103 0000 0003 84 8A 01") << true;
    QTest::newRow("a value") << hex("0001 0000 0005 01 03 02 04D2") << true;
    QTest::newRow("all but its last byte") << hex("0103 0000 0003 84 8A") << false;
    QTest::newRow("a byte more") << hex("0103 0000 0003 84 8A 01 00") << false;
    QTest::newRow("a request of RTU") << hex("01 03 0000 0001 84 0A 00") << false;
    QTest::newRow("a reply of RTU") << hex("01 03 04 0001 0003 EB F2") << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("less than any reply") << hex("0103 0000 0002 84 8A") << false;
}

void MbapFramesTest::aReplyIsKnownByItsHeader()
{
    QFETCH(QByteArray, received);
    QTEST(isMbapReply(received), "isReply");
}

QTEST_APPLESS_MAIN(MbapFramesTest)
#include "tst_mbap_frames.moc"
