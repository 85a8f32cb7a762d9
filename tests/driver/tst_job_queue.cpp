#include "driver/job_queue.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <algorithm>

namespace
{

QList<VARIABLE> queueOf(int size)
{
    QList<VARIABLE> queue;
    for (int i = 0; i < size; ++i)
        queue << job(1, "D", 10 * i, 1);
    return queue;
}

QList<int> addressesOf(const QList<VARIABLE>& queue)
{
    QList<int> addresses;
    for (const VARIABLE& waiting : queue)
        addresses << waiting.address;
    return addresses;
}

} // namespace

class JobQueueTest : public QObject
{
    Q_OBJECT

private slots:
    void appendsToAnEmptyQueue();
    void aJobOfTheSameTargetReplacesThePendingOne();
    void theReplacementCoversTheWholePayload();
    void theLastOfSeveralEqualJobsIsReplaced();
    void theHeadIsNeverReplaced();
    void jobsOfAnotherTargetAreAppended_data();
    void jobsOfAnotherTargetAreAppended();
    void growsToFiveHundredAndThirteenJobs();
    void aFullQueueReplacesItsLastJob();
    void aFullQueueStillReplacesAMatchInPlace();
    void aLongerQueueReplacesTheJobAtIndex512();
    void leavesTheOfferedJobAlone();
};

void JobQueueTest::appendsToAnEmptyQueue()
{
    QList<VARIABLE> queue;
    VARIABLE offered = job(3, "M", 7, 2, "01 00");
    offered.kind = 2;
    addVarToList(queue, offered);
    QCOMPARE(queue.size(), 1);
    QCOMPARE(queue.at(0).kind, 2);
    QCOMPARE(queue.at(0).station, 3);
    QCOMPARE(queue.at(0).regType, QString("M"));
    QCOMPARE(queue.at(0).address, 7);
    QCOMPARE(queue.at(0).count, 2);
    QCOMPARE(int(queue.at(0).data[0]), 1);
}

void JobQueueTest::aJobOfTheSameTargetReplacesThePendingOne()
{
    QList<VARIABLE> queue = queueOf(4); // D0, D10, D20, D30
    VARIABLE newer = job(1, "D", 10, 1, "34 12");
    newer.kind = 9;
    addVarToList(queue, newer);
    QCOMPARE(addressesOf(queue), QList<int>({0, 10, 20, 30}));
    QCOMPARE(queue.at(1).kind, 9);
    QCOMPARE(int(queue.at(1).data[0]), 0x34);
    QCOMPARE(int(queue.at(1).data[1]), 0x12);
}

void JobQueueTest::theReplacementCoversTheWholePayload()
{
    QList<VARIABLE> queue = queueOf(2);
    std::fill(queue[1].data, queue[1].data + 1024, static_cast<unsigned char>(0xAA));
    VARIABLE newer = job(1, "D", 10, 1);
    newer.data[1023] = 0x55;
    addVarToList(queue, newer);
    QCOMPARE(queue.size(), 2);
    QCOMPARE(int(queue.at(1).data[0]), 0);
    QCOMPARE(int(queue.at(1).data[1022]), 0);
    QCOMPARE(int(queue.at(1).data[1023]), 0x55);
}

void JobQueueTest::theLastOfSeveralEqualJobsIsReplaced()
{
    QList<VARIABLE> queue = {job(1, "D", 5, 1), job(1, "D", 5, 1), job(1, "D", 5, 1)};
    VARIABLE newer = job(1, "D", 5, 1, "01");
    addVarToList(queue, newer);
    QCOMPARE(queue.size(), 3);
    QCOMPARE(int(queue.at(1).data[0]), 0);
    QCOMPARE(int(queue.at(2).data[0]), 1);
}

void JobQueueTest::theHeadIsNeverReplaced()
{
    QList<VARIABLE> queue = queueOf(1);
    VARIABLE same = job(1, "D", 0, 1, "07");
    addVarToList(queue, same);
    QCOMPARE(addressesOf(queue), QList<int>({0, 0}));
    QCOMPARE(int(queue.at(0).data[0]), 0);
    QCOMPARE(int(queue.at(1).data[0]), 7);

    VARIABLE newer = job(1, "D", 0, 1, "08");
    addVarToList(queue, newer);
    QCOMPARE(addressesOf(queue), QList<int>({0, 0}));
    QCOMPARE(int(queue.at(0).data[0]), 0);
    QCOMPARE(int(queue.at(1).data[0]), 8);
}

void JobQueueTest::jobsOfAnotherTargetAreAppended_data()
{
    QTest::addColumn<int>("station");
    QTest::addColumn<QByteArray>("regType");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("count");
    QTest::newRow("another station") << 2 << QByteArray("D") << 10 << 1;
    QTest::newRow("another type") << 1 << QByteArray("SD") << 10 << 1;
    QTest::newRow("another letter case") << 1 << QByteArray("d") << 10 << 1;
    QTest::newRow("another address") << 1 << QByteArray("D") << 11 << 1;
    QTest::newRow("another count") << 1 << QByteArray("D") << 10 << 2;
}

void JobQueueTest::jobsOfAnotherTargetAreAppended()
{
    QFETCH(int, station);
    QFETCH(QByteArray, regType);
    QFETCH(int, address);
    QFETCH(int, count);
    QList<VARIABLE> queue = queueOf(3); // D0, D10, D20
    VARIABLE offered = job(station, regType.constData(), address, count);
    addVarToList(queue, offered);
    QCOMPARE(queue.size(), 4);
    QCOMPARE(queue.at(1).address, 10);
    QCOMPARE(queue.at(1).regType, QString("D"));
    QCOMPARE(queue.at(3).address, address);
}

void JobQueueTest::growsToFiveHundredAndThirteenJobs()
{
    QList<VARIABLE> queue = queueOf(512);
    VARIABLE offered = job(1, "D", 7777, 1);
    addVarToList(queue, offered);
    QCOMPARE(queue.size(), 513);
    QCOMPARE(queue.at(511).address, 5110);
    QCOMPARE(queue.at(512).address, 7777);
}

void JobQueueTest::aFullQueueReplacesItsLastJob()
{
    QList<VARIABLE> queue = queueOf(513);
    VARIABLE offered = job(1, "D", 7777, 1);
    addVarToList(queue, offered);
    QCOMPARE(queue.size(), 513);
    QCOMPARE(queue.at(0).address, 0);
    QCOMPARE(queue.at(511).address, 5110);
    QCOMPARE(queue.at(512).address, 7777);
}

void JobQueueTest::aFullQueueStillReplacesAMatchInPlace()
{
    QList<VARIABLE> queue = queueOf(513);
    VARIABLE newer = job(1, "D", 30, 1, "01");
    addVarToList(queue, newer);
    QCOMPARE(queue.size(), 513);
    QCOMPARE(int(queue.at(3).data[0]), 1);
    QCOMPARE(queue.at(512).address, 5120);
}

void JobQueueTest::aLongerQueueReplacesTheJobAtIndex512()
{
    QList<VARIABLE> queue = queueOf(515);
    VARIABLE offered = job(1, "D", 7777, 1);
    addVarToList(queue, offered);
    QCOMPARE(queue.size(), 515);
    QCOMPARE(queue.at(512).address, 7777);
    QCOMPARE(queue.at(513).address, 5130);
    QCOMPARE(queue.at(514).address, 5140);
}

void JobQueueTest::leavesTheOfferedJobAlone()
{
    QList<VARIABLE> queue = queueOf(2);
    VARIABLE offered = job(1, "D", 10, 1, "34 12");
    offered.kind = 2;
    addVarToList(queue, offered);
    queue[1].data[0] = 0;
    QCOMPARE(offered.kind, 2);
    QCOMPARE(offered.address, 10);
    QCOMPARE(int(offered.data[0]), 0x34);
}

QTEST_APPLESS_MAIN(JobQueueTest)
#include "tst_job_queue.moc"
