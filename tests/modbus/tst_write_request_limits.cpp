// Counts that no device accepts: the frame stays inside its record.

#include "modbus/write_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <climits>
#include <cstring>

namespace
{

FRAME_PRO built(const VARIABLE& write)
{
    VARIABLE copy = write;
    driver.frameList.clear();
    getWriteFrame(copy);
    return driver.frameList.isEmpty() ? FRAME_PRO() : driver.frameList.takeFirst();
}

QByteArray head(const FRAME_PRO& frame, int length)
{
    return QByteArray(reinterpret_cast<const char*>(frame.frame), length);
}

VARIABLE filled(const char* type, int count, unsigned char byte)
{
    VARIABLE write = job(1, type, 0, count);
    std::memset(write.data, byte, sizeof write.data);
    return write;
}

} // namespace

class WriteRequestLimitsTest : public QObject
{
    Q_OBJECT

private slots:
    void noCoils()
    {
        const FRAME_PRO frame = built(filled("Y", 0, 1));
        QCOMPARE(frame.sendLen, 9);
        QCOMPARE(head(frame, 10), bytes("01"   // station
                                        "0F"   // write multiple coils
                                        "0000" // coil 0
                                        "0000" // no coils
                                        "00"   // no bytes
                                        "0B 3F")
                                      + bytes("00"));
    }

    void noRegisters_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QByteArray>("frame");
        //                          station function register quantity bytes CRC
        QTest::newRow("words") << "D" << bytes("01 10 0000 0000 00 09 50");
        QTest::newRow("double words") << "32CV" << bytes("01 10 2454 0000 00 69 67");
    }

    void noRegisters()
    {
        QFETCH(QString, type);
        const FRAME_PRO frame = built(filled(type.toLatin1().constData(), 0, 1));
        QCOMPARE(frame.sendLen, 9);
        QTEST(head(frame, 9), "frame");
    }

    // The byte count keeps its low 8 bits; the values are sent all the same.
    void theByteCountWraps_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("byteCount");
        QTest::newRow("127 registers") << 127 << 0xFE;
        QTest::newRow("128 registers") << 128 << 0x00;
        QTest::newRow("129 registers") << 129 << 0x02;
        QTest::newRow("300 registers") << 300 << 0x58;
    }

    void theByteCountWraps()
    {
        QFETCH(int, count);
        const FRAME_PRO frame = built(filled("D", count, 0x5A));
        QTEST(int(frame.frame[6]), "byteCount");
        QCOMPARE(frame.sendLen, 2 * count + 9);
        QCOMPARE(head(frame, frame.sendLen).mid(7, 2 * count), QByteArray(2 * count, '\x5A'));
    }

    void theByteCountOfCoilsKeepsItsLowEightBits()
    {
        const FRAME_PRO frame = built(filled("Y", 2049, 0));
        QCOMPARE(int(frame.frame[6]), 0x01); // 257 bytes
        QCOMPARE(frame.sendLen, 266);
    }

    void coilsPastThePayloadAreOff()
    {
        const FRAME_PRO frame = built(filled("Y", 1100, 1));
        QCOMPARE(frame.sendLen, 147);
        QCOMPARE(head(frame, 145).mid(7), QByteArray(128, '\xFF') + QByteArray(10, '\0'));
    }

    // 507 registers leave one byte of the frame unused.
    void theLongestFrameThatFits()
    {
        const FRAME_PRO frame = built(filled("D", 507, 0x11));
        QCOMPARE(frame.sendLen, 1023);
        QCOMPARE(head(frame, 7), bytes("01"    // station
                                       "10"    // write multiple registers
                                       "0000"  // register 0
                                       "01FB"  // 507 registers
                                       "F6")); // low byte of 1014
        QCOMPARE(head(frame, FRAME_SIZE).mid(7), QByteArray(1014, '\x11')
                                                     + bytes("D9 A1" // CRC
                                                             "00"));
    }

    void aFrameThatIsTooLongIsCutAtItsEnd_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("sendLen");
        QTest::newRow("600 registers") << "D" << 600 << 1209;
        QTest::newRow("600 registers of 32CV") << "32CV" << 600 << 1209;
        QTest::newRow("9000 coils") << "Y" << 9000 << 1134;
        QTest::newRow("most coils") << "Y" << INT_MAX << 268435465;
        QTest::newRow("a billion registers") << "D" << 1000000000 << 2000000009;
    }

    void aFrameThatIsTooLongIsCutAtItsEnd()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        const VARIABLE write = filled(type.toLatin1().constData(), count, 0);
        const FRAME_PRO frame = built(write);
        QTEST(frame.sendLen, "sendLen");
        QCOMPARE(frame.recvLen, 8);
        QCOMPARE(frame.frameFunc, 0);
        QCOMPARE(frame.dataLen, 0);
        QCOMPARE(frame.reserved, 0);
        QCOMPARE(frame.job.count, count);
        QCOMPARE(head(frame, FRAME_SIZE).mid(7), QByteArray(1017, '\0'));
    }

    void registerValuesFillTheFrameToItsLastByte()
    {
        const FRAME_PRO frame = built(filled("D", 600, 0x11));
        QCOMPARE(head(frame, FRAME_SIZE).mid(7), QByteArray(1017, '\x11'));
    }

    void countsThatWrapStayInTheFrame_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("sendLen");
        QTest::newRow("registers: twice the count is -2") << "D" << INT_MAX << 7;
        QTest::newRow("32CV: twice the count is -2") << "32CV" << INT_MAX << 7;
        QTest::newRow("registers: twice the count is 0") << "D" << INT_MIN << 9;
        QTest::newRow("minus one register") << "D" << -1 << 7;
        QTest::newRow("minus ten registers") << "D" << -10 << -11;
        QTest::newRow("minus one coil") << "Y" << -1 << 10;
        QTest::newRow("minus eight coils") << "Y" << -8 << 8;
        QTest::newRow("minus 800 coils") << "Y" << -800 << -91;
        QTest::newRow("fewest coils") << "Y" << INT_MIN << -268435447;
    }

    void countsThatWrapStayInTheFrame()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        const FRAME_PRO frame = built(filled(type.toLatin1().constData(), count, 0));
        QTEST(frame.sendLen, "sendLen");
        QCOMPARE(frame.recvLen, 8);
        QCOMPARE(int(frame.frame[0]), 1);
        QCOMPARE(frame.job.count, count);
        QCOMPARE(head(frame, FRAME_SIZE).mid(16), QByteArray(1008, '\0'));
    }
};

QTEST_APPLESS_MAIN(WriteRequestLimitsTest)
#include "tst_write_request_limits.moc"
