#include "modbus/crc.h"

#include <QtTest/QtTest>

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
    }

    void knownValues()
    {
        QFETCH(QByteArray, message);
        QFETCH(int, crc);
        const auto* const bytes = reinterpret_cast<const unsigned char*>(message.constData());
        QCOMPARE(int(modbusCrc(bytes, static_cast<int>(message.size()))), crc);
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
