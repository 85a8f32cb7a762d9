#include "stories/slave.h"

#include <QtTest/QTest>

class CyclicPollingTest : public QObject
{
    Q_OBJECT

private slots:
    void aWatchListIsReadInTurn()
    {
        DriverFixture runtime("7#0#0#3#32");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "32CV", 200, 2) << key(1, "D", 100, 2) << key(1, "M", 0, 3)
                << key(1, "D", 102, 1);
        QCOMPARE(intf_addrMerge(watched), 3);

        // First cycle: everything changes.
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "01"   // read coils
                                       "07D0" // coil 2000
                                       "0003" // three coils
                                       "7C 86"));
        QCOMPARE(runtime.deal(bytes("01 01 01"
                                    "01" // only M0 is on
                                    "90 48")),
                 1);
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "03"   // read holding registers
                                       "0064" // register 100
                                       "0003" // three registers, merged
                                       "44 14"));
        QCOMPARE(runtime.deal(bytes("01 03 06"
                                    "0001" // D100
                                    "0000" // D101
                                    "FFFF" // D102
                                    "1D 05")),
                 1);
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "03"   // read holding registers
                                       "25E4" // register 9700
                                       "0002" // one value
                                       "8F 30"));
        QCOMPARE(runtime.deal(bytes("01 03 04"
                                    "000186A0" // 100000
                                    "C9 EB")),
                 1);
        // M1 and M2 are compared with the CRC bytes 0x90 and 0x48.
        QCOMPARE(runtime.reports, QList<Report>()
                                      << (Report{7, 1, "M", 0}) << (Report{7, 1, "M", 1})
                                      << (Report{7, 1, "M", 2}) << (Report{7, 1, "D", 100})
                                      << (Report{7, 1, "D", 102}) << (Report{7, 1, "32CV", 200}));
        QCOMPARE(DriverFixture::data(1, "M", 0, 3, 3), bytes("010000"));
        QCOMPARE(DriverFixture::data(1, "D", 100, 3, 6), bytes("0100 0000 FFFF"));
        QCOMPARE(DriverFixture::data(1, "32CV", 200, 2, 4), bytes("A0860100"));

        // Second cycle: the same order, one register changed.
        runtime.reports.clear();
        QCOMPARE(runtime.poll().mid(1, 3), bytes("01 07D0"));
        runtime.deal(withCrc("01 01 01 01"));
        runtime.reports.clear();
        QCOMPARE(runtime.poll().mid(1, 3), bytes("03 0064"));
        runtime.deal(withCrc("01 03 06 0001 0002 FFFF"));
        QCOMPARE(runtime.poll().mid(1, 3), bytes("03 25E4"));
        runtime.deal(withCrc("01 03 04 000186A0"));
        QCOMPARE(runtime.reports, QList<Report>() << (Report{7, 1, "D", 101}));
    }

    void jobsRotate()
    {
        DriverFixture runtime("1#0#0#3#1");
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 1, 1) << key(1, "D", 50, 1) << key(1, "D", 99, 1);
        QCOMPARE(intf_addrMerge(watched), 3);
        QCOMPARE(serve(runtime, 7), QStringList() << "D 1 1"
                                                  << "D 50 1"
                                                  << "D 99 1"
                                                  << "D 1 1"
                                                  << "D 50 1"
                                                  << "D 99 1"
                                                  << "D 1 1");
    }

    void twoStationsAreAskedSeparately()
    {
        DriverFixture runtime;
        QList<KEY_ADDRESS> watched;
        watched << key(2, "D", 1, 1) << key(1, "D", 1, 1);
        QCOMPARE(intf_addrMerge(watched), 2);
        QCOMPARE(runtime.poll(), withCrc("01 03 0001 0001"));
        runtime.deal(withCrc("01 03 02 1111"));
        QCOMPARE(runtime.poll(), withCrc("02 03 0001 0001"));
        runtime.deal(withCrc("02 03 02 2222"));
        QCOMPARE(DriverFixture::data(1, "D", 1, 1, 2), bytes("1111"));
        QCOMPARE(DriverFixture::data(2, "D", 1, 1, 2), bytes("2222"));
    }

    void anAddressNoLongerWatchedKeepsItsValueButIsSilent()
    {
        DriverFixture runtime;
        QList<KEY_ADDRESS> both;
        both << key(1, "D", 1, 1) << key(1, "D", 2, 1);
        intf_addrMerge(both);
        runtime.poll();
        runtime.deal(withCrc("01 03 04 0001 0002"));
        QList<KEY_ADDRESS> second;
        second << key(1, "D", 2, 1);
        intf_addrMerge(second);
        QCOMPARE(DriverFixture::data(1, "D", 1, 1, 2), bytes("0100"));
        runtime.reports.clear();
        addCondition(1, "D", 1, 2);
        runtime.poll();
        runtime.deal(withCrc("01 03 04 0011 0012"));
        QCOMPARE(runtime.reports, QList<Report>() << (Report{1, 1, "D", 2}) << CONDITION_DONE);
    }

    void anEmptyWatchListStopsThePolling()
    {
        DriverFixture runtime;
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 1, 1);
        intf_addrMerge(watched);
        serve(runtime, 1);
        watched.clear();
        QCOMPARE(intf_addrMerge(watched), 0);
        QCOMPARE(serve(runtime, 2), QStringList() << "-"
                                                  << "-");
    }
};

QTEST_APPLESS_MAIN(CyclicPollingTest)
#include "tst_cyclic_polling.moc"
