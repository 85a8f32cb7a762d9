#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

void addCyclicReads(int count)
{
    for (int i = 0; i < count; ++i)
        driver.readList.append(job(1, "D", i, 1));
}

void addWrites(int count)
{
    for (int i = 0; i < count; ++i)
        driver.writeList.append(job(1, "Y", i, 1, "01"));
}

void addConditionReads(int count)
{
    for (int i = 0; i < count; ++i)
        driver.condList.append(job(1, "TV", i, 1));
}

// W: write, C: condition read, R: cyclic read, by the job's register type.
QString orderOfFrames(DriverFixture& runtime, int polls)
{
    QString order;
    for (int i = 0; i < polls; ++i) {
        if (runtime.poll().isEmpty())
            return order + QLatin1Char('-');
        const QString type = runtime.polled().job.regType;
        order += QLatin1Char(type == "Y" ? 'W' : type == "TV" ? 'C' : 'R');
        runtime.deal(runtime.polled().recvLen == 8 ? runtime.poll() : withCrc("01 03 02 0000"));
    }
    return order;
}

} // namespace

class SendScheduleTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingToSend()
    {
        DriverFixture runtime;
        driver.currentKind = WRITE_JOB;
        driver.burstCount = 4;
        QCOMPARE(runtime.poll(), QByteArray());
        QCOMPARE(driver.currentKind, 0);
        QCOMPARE(driver.burstCount, 0);
        QVERIFY(driver.frameList.isEmpty());
    }

    void leavesTheRecordAloneWhenThereIsNothingToSend()
    {
        DriverFixture runtime;
        FRAME_PRO out = FRAME_PRO();
        out.sendLen = 77;
        QCOMPARE(intf_getSendFrame(&out), 0);
        QCOMPARE(out.sendLen, 77);
    }

    void orderOfPreference_data()
    {
        QTest::addColumn<int>("writes");
        QTest::addColumn<int>("conditionReads");
        QTest::addColumn<int>("cyclicReads");
        QTest::addColumn<QString>("order");
        QTest::newRow("cyclic only") << 0 << 0 << 2 << "RRRRR";
        QTest::newRow("one write") << 1 << 0 << 2 << "WRRRR";
        QTest::newRow("eight writes") << 8 << 0 << 1 << "WWWWWRWWWR";
        QTest::newRow("four condition reads") << 0 << 4 << 1 << "CCCRCR";
        QTest::newRow("three and three") << 3 << 3 << 1 << "WWWRCCCR";
        QTest::newRow("two and two") << 2 << 2 << 1 << "WWCRCR";
        QTest::newRow("five and one: a read comes first") << 5 << 1 << 1 << "WWWWWRCR";
        QTest::newRow("six and four") << 6 << 4 << 1 << "WWWWWRWCCRCCR";
        QTest::newRow("nothing cyclic: the counter starts again") << 6 << 0 << 0 << "WWWWW-";
        QTest::newRow("nothing at all") << 0 << 0 << 0 << "-";
    }

    void orderOfPreference()
    {
        QFETCH(int, writes);
        QFETCH(int, conditionReads);
        QFETCH(int, cyclicReads);
        QFETCH(QString, order);
        DriverFixture runtime;
        addWrites(writes);
        addConditionReads(conditionReads);
        addCyclicReads(cyclicReads);
        QCOMPARE(orderOfFrames(runtime, static_cast<int>(order.size())), order);
    }

    // The poll that finds nothing resets the counter, so the sixth write follows.
    void anIdlePollEndsTheRun()
    {
        DriverFixture runtime;
        addWrites(6);
        QCOMPARE(orderOfFrames(runtime, 6), QString("WWWWW-"));
        QCOMPARE(driver.burstCount, 0);
        QCOMPARE(orderOfFrames(runtime, 2), QString("W-"));
    }

    void countsTheRun()
    {
        DriverFixture runtime;
        addWrites(1);
        addConditionReads(1);
        addCyclicReads(1);
        runtime.poll();
        QCOMPARE(driver.currentKind, 2);
        QCOMPARE(driver.burstCount, 1);
        runtime.deal(runtime.poll());
        runtime.poll();
        QCOMPARE(driver.currentKind, 3);
        QCOMPARE(driver.burstCount, 2);
        runtime.deal(withCrc("01 03 02 0000"));
        runtime.poll();
        QCOMPARE(driver.currentKind, 4);
        QCOMPARE(driver.burstCount, 0);
    }

    void theWaitingFrameIsHandedOutAgain()
    {
        DriverFixture runtime;
        addCyclicReads(2);
        addWrites(1);
        const QByteArray first = runtime.poll();
        addConditionReads(1);
        runtime.requestRecipeWrite();
        QCOMPARE(runtime.poll(), first);
        QCOMPARE(runtime.poll(), first);
        QCOMPARE(driver.burstCount, 1);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 1);
        QCOMPARE(static_cast<int>(driver.writeList.size()), 1);
    }

    void theWholeRecordIsCopied()
    {
        DriverFixture runtime;
        driver.writeList.append(job(3, "D", 9, 1, "34 12"));
        driver.writeList.first().kind = 2;
        driver.writeList.first().data[1023] = 0xAB;
        runtime.poll();
        driver.frameList.first().reserved = 4711;
        driver.frameList.first().frame[1023] = 0xCD;
        FRAME_PRO out = FRAME_PRO();
        QCOMPARE(intf_getSendFrame(&out), 1);
        QCOMPARE(QByteArray(reinterpret_cast<char*>(out.frame), 8),
                 bytes("03"   // station
                       "06"   // write single register
                       "0009" // register 9
                       "1234" // value
                       "55 5D"));
        QCOMPARE(int(out.frame[1023]), 0xCD);
        QCOMPARE(out.sendLen, 8);
        QCOMPARE(out.recvLen, 8);
        QCOMPARE(out.frameFunc, 0);
        QCOMPARE(out.dataLen, 0);
        QCOMPARE(out.reserved, 4711);
        QCOMPARE(out.job.kind, 2);
        QCOMPARE(out.job.regType, QString("D"));
        QCOMPARE(int(out.job.data[1023]), 0xAB);
        QCOMPARE(driver.currentJob.address, 9);
    }

    void aRefusedJobStaysAndIsTriedAgain()
    {
        DriverFixture runtime;
        driver.readList << job(0, "D", 0, 1) << job(1, "D", 1, 1);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(runtime.poll(), QByteArray());
            QCOMPARE(driver.readList.first().station, 0);
            QCOMPARE(driver.currentKind, 4);
        }
        QCOMPARE(runtime.deal(QByteArray()), 0);
        QCOMPARE(driver.readList.first().station, 0);
    }

    void aWriteOfAnUnknownTypeStaysAndCountsEachTry()
    {
        DriverFixture runtime;
        driver.writeList << job(1, "Q", 0, 1);
        addCyclicReads(1);
        for (int i = 1; i <= 5; ++i) {
            QCOMPARE(runtime.poll(), QByteArray());
            QCOMPARE(driver.burstCount, i);
        }
        QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
        QCOMPARE(static_cast<int>(driver.writeList.size()), 1);
    }

    void aWaitingFrameNeedsNoLock()
    {
        DriverFixture runtime;
        addCyclicReads(1);
        runtime.poll();
        runtime.mutex.lock();
        QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
        runtime.mutex.unlock();
    }

    void leavesTheMutexUnlocked()
    {
        DriverFixture runtime;
        addCyclicReads(1);
        runtime.poll();
        QVERIFY(runtime.mutex.tryLock());
        runtime.mutex.unlock();
    }
};

QTEST_APPLESS_MAIN(SendScheduleTest)
#include "tst_send_schedule.moc"
