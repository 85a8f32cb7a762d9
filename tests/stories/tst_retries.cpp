#include "stories/slave.h"

#include <QtTest/QTest>

class RetriesTest : public QObject
{
    Q_OBJECT

private slots:
    void threeBadRepliesAndRecovery()
    {
        DriverFixture runtime("1#0#0#3#32");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 100, 2) << key(1, "M", 0, 1);
        intf_addrMerge(watched);
        runtime.poll();
        runtime.deal(withCrc("01 01 01 01"));
        const QByteArray request = withCrc("01 03 0064 0002");
        QCOMPARE(runtime.poll(), request);
        runtime.deal(withCrc("01 03 04 1111 2222"));
        runtime.poll();
        runtime.deal(withCrc("01 01 01 01"));
        runtime.reports.clear();

        // The device stops answering.
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(bytes("01 03 04")), 8);
        QCOMPARE(runtime.lastError(), QString());
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.lastError(), QString("0,1,100,D"));
        QCOMPARE(driver.commFailed, 1);
        QCOMPARE(driver.errorCount, 0);
        QCOMPARE(DriverFixture::data(1, "D", 100, 2, 4), bytes("1111 2222"));
        QCOMPARE(int(driver.dataAreas.at(0).commError), 1);

        // The failed job went to the back like an answered one; the next is asked.
        QCOMPARE(runtime.poll(), withCrc("01 01 07D0 0001"));
        QCOMPARE(runtime.deal(withCrc("01 01 01 01")), 1);
        QCOMPARE(runtime.lastError(), QString());
        QCOMPARE(driver.commFailed, 0);

        // The device is back.
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(withCrc("01 03 04 1111 2223")), 1);
        QCOMPARE(int(driver.dataAreas.at(0).commError), 0);
        QCOMPARE(runtime.reports, QList<Report>() << (Report{1, 1, "D", 101}));
    }

    void everyRequestOfADeadDeviceFailsInTurn()
    {
        DriverFixture runtime("1#0#0#2#1");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 1, 1) << key(1, "D", 50, 1);
        intf_addrMerge(watched);
        QStringList errors;
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(failRequest(runtime), QList<int>() << 8 << 2);
            errors << runtime.lastError();
        }
        QCOMPARE(errors, QStringList() << "0,1,1,D"
                                       << "0,1,50,D"
                                       << "0,1,1,D");
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void writesGoOnAfterAFailure()
    {
        DriverFixture runtime("1#0#0#1#32");
        setValues(1, "Y", 1, 1, "01");
        setValues(1, "Y", 2, 1, "01");
        QCOMPARE(failRequest(runtime), QList<int>() << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,1,Y"));
        QCOMPARE(runtime.poll(), withCrc("01 05 0002 FF00"));
        QCOMPARE(runtime.deal(runtime.poll()), 1);
        QCOMPARE(DriverFixture::data(1, "Y", 1, 2, 2), bytes("00 01"));
    }
};

QTEST_APPLESS_MAIN(RetriesTest)
#include "tst_retries.moc"
