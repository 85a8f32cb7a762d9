#include "stories/slave.h"

#include <QtTest/QTest>

class FullQueuesTest : public QObject
{
    Q_OBJECT

private slots:
    void sixHundredWrites()
    {
        DriverFixture runtime;
        for (int i = 0; i < 600; ++i)
            setValues(1, "D", i, 1, "3412");
        QCOMPARE(static_cast<int>(driver.writeList.size()), 513);
        QCOMPARE(driver.writeList.at(511).address, 511);
        QCOMPARE(driver.writeList.at(512).address, 599);
        QCOMPARE(DriverFixture::data(1, "D", 550, 1, 2), bytes("3412")); // cached, never sent

        // All that was queued is sent, in order, with an idle poll after every five.
        QList<int> sent;
        for (int polls = 0; polls < 1000 && !driver.writeList.isEmpty(); ++polls) {
            if (runtime.poll().isEmpty())
                continue;
            sent << runtime.polled().job.address;
            QCOMPARE(runtime.deal(goodReply(runtime)), 1);
        }
        QCOMPARE(static_cast<int>(sent.size()), 513);
        for (int i = 0; i < 512; ++i)
            QCOMPARE(sent.at(i), i);
        QCOMPARE(sent.last(), 599);
    }

    void aWriteOfAQueuedTargetStillFindsItsPlace()
    {
        DriverFixture runtime;
        for (int i = 0; i < 513; ++i)
            setValues(1, "D", i, 1, "0100");
        setValues(1, "D", 300, 1, "0200");
        QCOMPARE(int(driver.writeList.at(300).data[0]), 2);
        QCOMPARE(driver.writeList.at(512).address, 512);
        serve(runtime, 1);
        setValues(1, "D", 700, 1, "0100"); // one place is free again
        QCOMPARE(static_cast<int>(driver.writeList.size()), 513);
        QCOMPARE(driver.writeList.last().address, 700);
        QCOMPARE(driver.writeList.at(511).address, 512);
    }

    void sixHundredConditionReads()
    {
        DriverFixture runtime("1#0#0#1#32");
        for (int i = 0; i < 600; ++i)
            addCondition(1, "D", i, 1);
        QCOMPARE(static_cast<int>(driver.condList.size()), 513);
        QCOMPARE(driver.condList.at(511).address, 511);
        QCOMPARE(driver.condList.at(512).address, 599);
        QCOMPARE(driver.condVar.address, 599);

        QList<int> sent;
        for (int polls = 0; polls < 1000 && !driver.condList.isEmpty(); ++polls) {
            QVERIFY(runtime.reports.isEmpty());
            if (runtime.poll().isEmpty())
                continue;
            sent << runtime.polled().job.address;
            QCOMPARE(runtime.deal(goodReply(runtime)), 1);
        }
        QCOMPARE(static_cast<int>(sent.size()), 513);
        QCOMPARE(sent.at(511), 511);
        QCOMPARE(sent.last(), 599);
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }

    void aFailureEmptiesAFullQueueOfConditionReads()
    {
        DriverFixture runtime("1#0#0#1#32");
        for (int i = 0; i < 600; ++i)
            addCondition(1, "D", i, 1);
        QCOMPARE(failRequest(runtime), QList<int>() << 2);
        QVERIFY(driver.condList.isEmpty());
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void aLongRequestFillsTheQueueWithItsPieces()
    {
        DriverFixture runtime("1#0#0#3#1");
        addCondition(1, "D", 0, 600);
        QCOMPARE(static_cast<int>(driver.condList.size()), 513);
        QCOMPARE(driver.condList.at(512).address, 599);
        QCOMPARE(driver.condList.at(512).count, 1);
    }
};

QTEST_APPLESS_MAIN(FullQueuesTest)
#include "tst_full_queues.moc"
