// Which pending writes are merged, and where the queue ends.

#include "data/cached_record.h"
#include "driver/job_queue.h"

#include <QtTest/QTest>

namespace
{

QList<int> kinds()
{
    QList<int> result;
    for (const VARIABLE& job : driver.writeList)
        result << job.kind;
    return result;
}

// Queues one register write of station 1 that carries its own number as kind.
void queue(int address, int kind)
{
    VARIABLE write = job(1, "D", address, 1);
    write.kind = kind;
    addVarToList(driver.writeList, write);
}

} // namespace

class WriteQueueTest : public QObject
{
    Q_OBJECT

private slots:
    void theHeadIsNeverOverwritten()
    {
        DriverFixture runtime;
        queue(100, 1);
        queue(100, 2);
        QCOMPARE(kinds(), QList<int>() << 1 << 2);
        queue(100, 3); // now a match behind the head
        QCOMPARE(kinds(), QList<int>() << 1 << 3);
    }

    void aMatchBehindTheHeadKeepsItsPlace()
    {
        DriverFixture runtime;
        queue(0, 1);
        queue(100, 2);
        queue(200, 3);
        queue(100, 4);
        QCOMPARE(kinds(), QList<int>() << 1 << 4 << 3);
    }

    void theLastOfSeveralMatchesIsOverwritten()
    {
        DriverFixture runtime;
        queue(0, 1);
        driver.writeList << job(1, "D", 100, 1) << job(1, "D", 100, 1);
        queue(100, 4);
        QCOMPARE(kinds(), QList<int>() << 1 << 0 << 4);
    }

    void theWholeJobIsOverwritten()
    {
        DriverFixture runtime;
        queue(0, 1);
        VARIABLE older = job(1, "D", 100, 1, "11 11");
        older.data[1023] = 0x11;
        VARIABLE newer = job(1, "D", 100, 1, "22 22");
        newer.kind = 5;
        newer.data[1023] = 0x22;
        addVarToList(driver.writeList, older);
        addVarToList(driver.writeList, newer);
        QCOMPARE(static_cast<int>(driver.writeList.size()), 2);
        QCOMPARE(driver.writeList.last().kind, 5);
        QCOMPARE(int(driver.writeList.last().data[0]), 0x22);
        QCOMPARE(int(driver.writeList.last().data[1023]), 0x22);
    }

    void everyPartOfTheTargetCounts_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("size");
        QTest::newRow("same") << 1 << "D" << 100 << 1 << 2;
        QTest::newRow("other station") << 2 << "D" << 100 << 1 << 3;
        QTest::newRow("other type") << 1 << "SD" << 100 << 1 << 3;
        QTest::newRow("other address") << 1 << "D" << 101 << 1 << 3;
        QTest::newRow("other count") << 1 << "D" << 100 << 2 << 3;
    }

    void everyPartOfTheTargetCounts()
    {
        QFETCH(int, station);
        QFETCH(QString, type);
        QFETCH(int, address);
        QFETCH(int, count);
        DriverFixture runtime;
        queue(0, 1);
        queue(100, 2);
        VARIABLE write = job(station, type.toLatin1().constData(), address, count);
        addVarToList(driver.writeList, write);
        QTEST(static_cast<int>(driver.writeList.size()), "size");
    }

    void aFullQueueReplacesItsLastJob()
    {
        DriverFixture runtime;
        for (int i = 0; i < 513; ++i)
            queue(i, i);
        QCOMPARE(static_cast<int>(driver.writeList.size()), 513);
        QCOMPARE(driver.writeList.last().kind, 512);
        queue(1000, 1000);
        queue(1001, 1001);
        QCOMPARE(static_cast<int>(driver.writeList.size()), 513);
        QCOMPARE(driver.writeList.at(511).kind, 511);
        QCOMPARE(driver.writeList.at(512).kind, 1001);
        queue(7, 2000); // a match is still overwritten in place
        QCOMPARE(driver.writeList.at(7).kind, 2000);
        QCOMPARE(driver.writeList.at(512).kind, 1001);
        queue(0, 3000); // the head is no match
        QCOMPARE(driver.writeList.at(0).kind, 0);
        QCOMPARE(driver.writeList.at(512).kind, 3000);
    }

    void aSecondWriteOfTheRuntimeReplacesTheFirst()
    {
        DriverFixture runtime;
        setValues(1, "D", 0, 1, "01 00");
        setValues(1, "D", 100, 1, "11 11");
        setValues(1, "D", 100, 1, "22 22");
        QCOMPARE(static_cast<int>(driver.writeList.size()), 2);
        QCOMPARE(int(driver.writeList.last().data[1]), 0x22);
        setValues(1, "D", 0, 1, "02 00"); // the head may be on the wire
        QCOMPARE(static_cast<int>(driver.writeList.size()), 3);
        QCOMPARE(int(driver.writeList.first().data[0]), 1);
        QCOMPARE(int(driver.writeList.last().data[0]), 2);
    }
};

QTEST_APPLESS_MAIN(WriteQueueTest)
#include "tst_write_queue.moc"
