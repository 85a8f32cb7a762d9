#include "stories/slave.h"

#include <QtTest/QTest>

class WrongRepliesTest : public QObject
{
    Q_OBJECT

private slots:
    void repliesToAReadOfTwoRegisters_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("result");
        //                                       station function bytes D100 D101 CRC
        QTest::newRow("good") << bytes("01 03 04 1234 5678 81 07") << 1;
        QTest::newRow("short, right CRC") << bytes("01 03 02 1234 B5 33") << 8;
        QTest::newRow("long, right CRC") << bytes("01 03 06 1234 5678 9ABC 69 43") << 8;
        QTest::newRow("cut off") << bytes("01 03 04 12") << 8;
        QTest::newRow("bad CRC") << bytes("01 03 04 1234 5678 00 00") << 8;
        QTest::newRow("CRC high byte first") << bytes("01 03 04 1234 5678 07 81") << 8;
        QTest::newRow("empty") << QByteArray() << 8;
        QTest::newRow("one byte") << bytes("01") << 8;
        QTest::newRow("exception: illegal address") << bytes("01 83 02 C0 F1") << 8;
        QTest::newRow("the request itself, echoed") << bytes("01 03 0064 0002 85 D4") << 8;
        QTest::newRow("other station, right CRC") << bytes("02 03 04 1234 5678 B2 07") << 1;
        QTest::newRow("other function, right CRC") << bytes("01 04 04 1234 5678 80 B0") << 1;
    }

    void repliesToAReadOfTwoRegisters()
    {
        QFETCH(QByteArray, reply);
        QFETCH(int, result);
        DriverFixture runtime("1#0#0#3#32");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 100, 2);
        intf_addrMerge(watched);
        const QByteArray request = runtime.poll();
        QCOMPARE(runtime.deal(reply), result);
        const bool accepted = result == 1;
        QCOMPARE(DriverFixture::data(1, "D", 100, 2, 4),
                 accepted ? bytes("3412 7856") : bytes("0000 0000"));
        QCOMPARE(static_cast<int>(runtime.reports.size()), accepted ? 2 : 0);
        QCOMPARE(driver.errorCount, accepted ? 0 : 1);
        QCOMPARE(driver.commFailed, 0);

        // Either way the device's next good reply is taken.
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(withCrc("01 03 04 1234 5679")), 1);
        QCOMPARE(DriverFixture::data(1, "D", 101, 1, 2), bytes("7956"));
    }

    void repliesToAWrite_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("result");
        //                                           station function register value CRC
        QTest::newRow("echo") << bytes("01 06 0005 1234 94 BC") << 1;
        QTest::newRow("exception") << bytes("01 86 03 02 61") << 2;
        QTest::newRow("empty") << QByteArray() << 2;
        QTest::newRow("bad CRC") << bytes("01 06 0005 1234 FF FF") << 2;
        QTest::newRow("short") << bytes("01 06 0005 12 9A 15") << 2;
        QTest::newRow("other station, right CRC") << bytes("02 06 0005 1234 94 8F") << 1;
    }

    void repliesToAWrite()
    {
        QFETCH(QByteArray, reply);
        QFETCH(int, result);
        DriverFixture runtime("1#0#0#1#32");
        setValues(1, "D", 5, 1, "3412");
        runtime.poll();
        QCOMPARE(runtime.deal(reply), result);
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), result == 1 ? bytes("3412") : bytes("0000"));
        QCOMPARE(runtime.lastError(),
                 result == 1 ? QString() : QString("%1,1,5,D").arg(reply.size()));
        QVERIFY(runtime.poll().isEmpty());
    }

    void differentFaultsCountTogether()
    {
        DriverFixture runtime("1#0#0#4#32");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "M", 0, 9);
        intf_addrMerge(watched);
        runtime.poll();
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QCOMPARE(runtime.deal(withCrc("01 81 02")), 8);
        QCOMPARE(runtime.deal(bytes("01 01 02 FF 01 00 00")), 8);
        QCOMPARE(runtime.deal(withCrc("01 01 01 FF")), 2);
        QCOMPARE(runtime.lastError(), QString("6,1,0,M"));
    }
};

QTEST_APPLESS_MAIN(WrongRepliesTest)
#include "tst_wrong_replies.moc"
