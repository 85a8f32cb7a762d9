#include "modbus/read_request.h"
#include "modbus/reply_check.h"
#include "modbus/write_request.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

int check(const QByteArray& reply)
{
    QByteArray received = reply;
    return check_rcv_data(reinterpret_cast<unsigned char*>(received.data()),
                          static_cast<int>(received.size()));
}

void waitForRead(const char* type, int count)
{
    VARIABLE read = job(1, type, 0, count);
    driver.frameList.clear();
    getReadFrame(read);
}

void waitForWrite()
{
    VARIABLE write = job(1, "D", 5, 1, "34 12");
    driver.frameList.clear();
    getWriteFrame(write);
}

} // namespace

class ReplyCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { driver.frameList.clear(); }

    void aReadOfTwoRegisters_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("result");
        //                                      station function bytes values CRC
        QTest::newRow("good") << bytes("01 03 04 1234 5678 81 07") << 1;
        QTest::newRow("other station, right CRC") << bytes("02 03 04 1234 5678 B2 07") << 1;
        QTest::newRow("other function, right CRC") << bytes("01 06 04 1234 5678 81 52") << 1;
        QTest::newRow("exception flag, right CRC") << bytes("01 83 04 1234 5678 9E C7") << 1;
        QTest::newRow("other byte count, right CRC") << bytes("01 03 09 1234 5678 AC C6") << 1;
        QTest::newRow("one byte short, right CRC") << bytes("01 03 04 1234 56 72 01") << 0;
        QTest::newRow("one byte long, right CRC") << bytes("01 03 04 1234 5678 00 C7 60") << 0;
        QTest::newRow("exception") << bytes("01 83 02 C0 F1") << 0;
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("one byte") << bytes("01") << 0;
        QTest::newRow("CRC bytes exchanged") << bytes("01 03 04 1234 5678 07 81") << 0;
        QTest::newRow("a value bit flipped") << bytes("01 03 04 1235 5678 81 07") << 0;
    }

    void aReadOfTwoRegisters()
    {
        QFETCH(QByteArray, reply);
        waitForRead("D", 2);
        QTEST(check(reply), "result");
    }

    void bothCrcBytesCount()
    {
        waitForRead("D", 2);
        const QByteArray good = bytes("01 03 04 1234 5678 81 07");
        QCOMPARE(check(good), 1);
        QByteArray wrongLow = good;
        wrongLow[7] = '\x80';
        QCOMPARE(check(wrongLow), 0);
        QByteArray wrongHigh = good;
        wrongHigh[8] = '\x06';
        QCOMPARE(check(wrongHigh), 0);
    }

    void aReadOfCoils()
    {
        waitForRead("M", 9);
        QCOMPARE(check(bytes("01"    // station
                             "01"    // read coils
                             "02"    // two bytes
                             "FF 01" // nine coils on
                             "39 CC")),
                 1);
    }

    void aWrite_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("result");
        //                                      station function register value CRC
        QTest::newRow("echo") << bytes("01 06 0005 1234 94 BC") << 2;
        QTest::newRow("other station") << bytes("09 06 0005 1234 95 F4") << 2;
        QTest::newRow("other function") << bytes("01 86 0005 1234 95 62") << 2;
        QTest::newRow("other value") << bytes("01 06 0005 4321 68 E3") << 2;
        QTest::newRow("bad CRC") << bytes("01 06 0005 1234 00 00") << 0;
        QTest::newRow("exception") << bytes("01 86 02 C3 A1") << 0;
        QTest::newRow("empty") << QByteArray() << 0;
    }

    void aWrite()
    {
        QFETCH(QByteArray, reply);
        waitForWrite();
        QTEST(check(reply), "result");
    }

    void nothingIsTheReplyToARequestThatExpectsNothing()
    {
        waitForRead("D", 1);
        driver.frameList.first().recvLen = 0;
        QCOMPARE(check(QByteArray()), 2);
        QCOMPARE(check(bytes("01")), 0);
    }

    // Too short to hold a CRC, so it can never be right.
    void aReplyOfOneByteFailsEvenWhenOneIsExpected()
    {
        waitForRead("D", 1);
        driver.frameList.first().recvLen = 1;
        QCOMPARE(check(bytes("FF")), 0);
    }

    void aReplyOfTwoBytesIsTheCrcOfNothing()
    {
        waitForRead("D", 1);
        driver.frameList.first().recvLen = 2;
        QCOMPARE(check(bytes("FF FF")), 1);
        QCOMPARE(check(bytes("00 00")), 0);
    }

    // 65538 bytes leave 65536 for the CRC, which a 16-bit count makes none.
    void theCheckedLengthIsA16BitCount()
    {
        waitForRead("D", 1);
        driver.frameList.first().recvLen = 65538;
        QByteArray reply(65538, '\0');
        reply[65536] = '\xFF';
        reply[65537] = '\xFF';
        QCOMPARE(check(reply), 1);
        driver.frameList.first().recvLen = 65539;
        reply = QByteArray(65537, '\0') + bytes("BF 40"); // CRC of one zero byte
        QCOMPARE(check(reply), 1);
    }

    void looksAtTheFirstWaitingFrame()
    {
        waitForWrite();
        VARIABLE read = job(1, "D", 0, 2);
        getReadFrame(read);
        QCOMPARE(check(bytes("01 06 0005 1234 94 BC")), 2);
        QCOMPARE(check(bytes("01 03 04 1234 5678 81 07")), 0);
    }

    void aNegativeExpectedLengthMatchesNothing()
    {
        waitForRead("D", -3);
        QCOMPARE(driver.frameList.first().recvLen, -1);
        QCOMPARE(check_rcv_data(nullptr, -1), 0);
        QCOMPARE(check(QByteArray()), 0);
    }

    void withoutAWaitingFrameEveryReplyIsBad()
    {
        QCOMPARE(check(bytes("01 06 0005 1234 94 BC")), 0);
        QCOMPARE(check(QByteArray()), 0);
    }

    void changesNothing()
    {
        waitForWrite();
        QByteArray reply = bytes("01 06 0005 1234 94 BC");
        check_rcv_data(reinterpret_cast<unsigned char*>(reply.data()), 8);
        QCOMPARE(reply, bytes("01 06 0005 1234 94 BC"));
        QCOMPARE(static_cast<int>(driver.frameList.size()), 1);
        QCOMPARE(driver.errorCount, 0);
    }
};

QTEST_APPLESS_MAIN(ReplyCheckTest)
#include "tst_reply_check.moc"
