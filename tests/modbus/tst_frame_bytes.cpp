#include "modbus/frame_bytes.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

QByteArray head(const FRAME_PRO& frame, int length)
{
    return QByteArray(reinterpret_cast<const char*>(frame.frame), length);
}

// Everything of the record that is not the frame, to notice a stray byte.
bool restIsUntouched(const FRAME_PRO& frame)
{
    return frame.sendLen == 0 && frame.recvLen == 0 && frame.frameFunc == 0 && frame.dataLen == 0
           && frame.reserved == 0 && frame.job.regType.isNull();
}

} // namespace

class FrameBytesTest : public QObject
{
    Q_OBJECT

private slots:
    void putsTheLowEightBits()
    {
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes target(frame);
        target.put(0, 0x12);
        target.put(1, 0x1FE);
        target.put(2, -1);
        QCOMPARE(head(frame, 4), bytes("12 FE FF 00"));
    }

    void writesOnlyInsideTheFrame_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("written");
        QTest::newRow("first byte") << 0 << 1;
        QTest::newRow("last byte") << 1023 << 1;
        QTest::newRow("one before the frame") << -1 << 0;
        QTest::newRow("one past the frame") << 1024 << 0;
        QTest::newRow("far before the frame") << INT_MIN << 0;
        QTest::newRow("far past the frame") << INT_MAX << 0;
    }

    void writesOnlyInsideTheFrame()
    {
        QFETCH(int, index);
        QFETCH(int, written);
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes(frame).put(index, 0xA5);
        QCOMPARE(static_cast<int>(head(frame, FRAME_SIZE).count('\xA5')), written);
        QVERIFY(restIsUntouched(frame));
    }

    void putsWordsHighByteFirst()
    {
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes(frame).putWord(1, 0x31234);
        QCOMPARE(head(frame, 4), bytes("00 12 34 00"));
    }

    void cutsAWordAtTheEndOfTheFrame()
    {
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes(frame).putWord(1023, 0x1234);
        QCOMPARE(head(frame, FRAME_SIZE).right(2), bytes("00 12"));
        QVERIFY(restIsUntouched(frame));
    }

    void putsTheHeader()
    {
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes(frame).putHeader(0x107, READ_HOLDING_REGISTERS, 0x12345, 0x6789);
        QCOMPARE(head(frame, 7), bytes("07"    // low byte of the station
                                       "03"    // read holding registers
                                       "2345"  // low 16 bits of the address
                                       "6789"  // quantity
                                       "00")); // nothing beyond
    }

    void putsTheCrcLowByteFirst()
    {
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes target(frame);
        target.putHeader(1, READ_HOLDING_REGISTERS, 0, 10);
        target.putCrc(6);
        QCOMPARE(head(frame, 9), bytes("01 03 0000 000A"
                                       "C5" // low byte of 0xCDC5
                                       "CD" // high byte
                                       "00"));
    }

    void putsNoCrcOutsideTheFrame_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QByteArray>("lastTwoBytes");
        QTest::newRow("whole at the end") << 1022 << bytes("AA B1");
        QTest::newRow("low byte only") << 1023 << bytes("00 31");
        QTest::newRow("just past the frame") << 1024 << bytes("00 00");
        QTest::newRow("far past the frame") << INT_MAX - 1 << bytes("00 00");
        QTest::newRow("before the frame") << -2 << bytes("00 00");
    }

    void putsNoCrcOutsideTheFrame()
    {
        QFETCH(int, index);
        QFETCH(QByteArray, lastTwoBytes);
        FRAME_PRO frame = FRAME_PRO();
        FrameBytes(frame).putCrc(index);
        QCOMPARE(head(frame, FRAME_SIZE).right(2), lastTwoBytes);
        QCOMPARE(head(frame, 2), bytes("00 00"));
        QVERIFY(restIsUntouched(frame));
    }

    void packsEightBitsIntoAByte_data()
    {
        QTest::addColumn<int>("bits");
        QTest::addColumn<int>("packed");
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("one") << 1 << 1;
        QTest::newRow("seven") << 7 << 1;
        QTest::newRow("eight") << 8 << 1;
        QTest::newRow("nine") << 9 << 2;
        QTest::newRow("sixteen") << 16 << 2;
        QTest::newRow("the largest count") << INT_MAX << 268435456;
    }

    void packsEightBitsIntoAByte()
    {
        QFETCH(int, bits);
        QFETCH(int, packed);
        QCOMPARE(packedBytes(bits), packed);
    }
};

QTEST_APPLESS_MAIN(FrameBytesTest)
#include "tst_frame_bytes.moc"
