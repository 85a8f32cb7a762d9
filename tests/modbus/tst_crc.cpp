#include "modbus/crc.h"

#include <QtTest/QTest>

namespace
{

// 01 02 03 ..., starting again after FF.
QByteArray countingUp(int length)
{
    QByteArray bytes;
    for (int i = 1; i <= length; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

int crcOf(const QByteArray& message)
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(message.constData());
    return modbusCrc(bytes, static_cast<int>(message.size()));
}

// The rule as it is defined, one bit after the other.
int bitByBit(const QByteArray& message)
{
    unsigned int crc = 0xFFFF;
    for (const char byte : message) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0xA001 : crc >> 1;
    }
    return static_cast<int>(crc);
}

} // namespace

class CrcTest : public QObject
{
    Q_OBJECT

private slots:
    void knownValues_data()
    {
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<int>("crc");
        QTest::newRow("nothing: the initial value") << QByteArray() << 0xFFFF;
        QTest::newRow("one zero byte") << QByteArray::fromHex("00") << 0x40BF;
        QTest::newRow("one byte of ones") << QByteArray::fromHex("FF") << 0x00FF;
        QTest::newRow("lowest bit only") << QByteArray::fromHex("01") << 0x807E;
        QTest::newRow("highest bit only") << QByteArray::fromHex("80") << 0xE0BE;
        QTest::newRow("the published check string") << QByteArray("123456789") << 0x4B37;
        QTest::newRow("a read request of ten registers")
            << QByteArray::fromHex("01030000000A") << 0xCDC5;
        QTest::newRow("byte order matters") << QByteArray::fromHex("0103000A0000") << 0xC865;
        QTest::newRow("300 zero bytes") << QByteArray(300, '\0') << 0x3065;
        QTest::newRow("counting up, 7 bytes") << countingUp(7) << 0x711D;
        QTest::newRow("counting up, 8 bytes") << countingUp(8) << 0xCFB0;
        QTest::newRow("counting up, 9 bytes") << countingUp(9) << 0xB20E;
        QTest::newRow("counting up, 15 bytes") << countingUp(15) << 0xA84A;
        QTest::newRow("counting up, 16 bytes") << countingUp(16) << 0x3B28;
        QTest::newRow("counting up, 17 bytes") << countingUp(17) << 0x12FB;
        QTest::newRow("counting up, 23 bytes") << countingUp(23) << 0x6371;
        QTest::newRow("counting up, 24 bytes") << countingUp(24) << 0x2EA3;
        QTest::newRow("counting up, 25 bytes") << countingUp(25) << 0xB3AF;
        QTest::newRow("counting up, 32 bytes") << countingUp(32) << 0x6343;
        QTest::newRow("counting up, 255 bytes") << countingUp(255) << 0x855D;
        QTest::newRow("counting up, 256 bytes") << countingUp(256) << 0xF944;
    }

    void knownValues()
    {
        QFETCH(QByteArray, message);
        QFETCH(int, crc);
        QCOMPARE(crcOf(message), crc);
    }

    // A CRC is linear, so all messages of a length agree when those of one bit do.
    void everyBitOfEveryLengthCounts()
    {
        for (int length = 1; length <= 50; ++length) {
            for (int bit = 0; bit < 8 * length; ++bit) {
                QByteArray message(length, '\0');
                message[bit / 8] = static_cast<char>(1 << bit % 8);
                QCOMPARE(crcOf(message), bitByBit(message));
            }
        }
    }

    void aMessageMayBeginAnywhereInMemory()
    {
        const QByteArray memory = countingUp(120);
        for (int first = 0; first < 9; ++first) {
            const auto* const bytes = reinterpret_cast<const unsigned char*>(memory.constData());
            QCOMPARE(int(modbusCrc(bytes + first, 100)), bitByBit(memory.mid(first, 100)));
        }
    }

    void countsOnlyTheGivenLength()
    {
        const unsigned char bytes[] = {0x01, 0x03, 0x00, 0x00, 0x00, 0x0A, 0xC5, 0xCD};
        QCOMPARE(int(modbusCrc(bytes, 6)), 0xCDC5);
    }

    // A receiver may run the CRC over the whole frame, its two CRC bytes included.
    void aWholeFrameGivesZero()
    {
        const unsigned char bytes[] = {0x01, 0x03, 0x00, 0x00, 0x00, 0x0A, 0xC5, 0xCD};
        QCOMPARE(int(modbusCrc(bytes, 8)), 0);
    }

    void aLengthBelowOneReadsNothing()
    {
        QCOMPARE(int(modbusCrc(nullptr, 0)), 0xFFFF);
        QCOMPARE(int(modbusCrc(nullptr, -1)), 0xFFFF);
    }
};

QTEST_APPLESS_MAIN(CrcTest)
#include "tst_crc.moc"
