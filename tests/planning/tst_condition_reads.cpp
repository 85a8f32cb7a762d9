#include "planning/condition_reads.h"
#include "planning/range_text.h"
#include "support/driver_fixture.h"

#include "driver/job_queue.h"

#include <QtTest/QTest>

namespace
{

const int COUNTED_IN_BITS = -1;
const int COUNTED_IN_WORDS = 0;

void ask(const QString& range, int bitIndex, int kind = 3)
{
    KEY_ADDRESS asked = ranges(range).at(0);
    asked.bitIndex = bitIndex;
    QCOMPARE(intf_addConditionRead(asked, kind), 1);
}

// A target that no request here asks for.
void queueSomethingAtTheHead()
{
    driver.condList << job(9, "D", 9, 9);
}

} // namespace

class ConditionReadsTest : public QObject
{
    Q_OBJECT

private slots:
    void splits_data();
    void splits();
    void keepsTheKindAndLeavesTheRequestAlone();
    void aWaitingRequestIsNotQueuedTwice();
    void aRequestAtTheHeadIsQueuedAgain();
    void requestsOfAnotherTargetAreAppended_data();
    void requestsOfAnotherTargetAreAppended();
    void theQueueEndsAtFiveHundredAndThirteen();
    void aFullQueueStillReplacesAWaitingRequest();
    void manyPiecesAreFiledLikeOneByOne();
    void theLongestRangeIsFiledAtOnce();
    void touchesNothingElse();
};

void ConditionReadsTest::splits_data()
{
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("range");
    QTest::addColumn<int>("bitIndex");
    QTest::addColumn<QString>("jobs");
    QTest::addColumn<QString>("last");
    const auto row = [](const char* name, int maxWords, const char* range, int bitIndex,
                        const char* jobs, const char* last) {
        QTest::newRow(name) << maxWords << QString(range) << bitIndex << QString(jobs)
                            << QString(last);
    };
    const int bits = COUNTED_IN_BITS;
    const int words = COUNTED_IN_WORDS;
    row("words with a remainder", 10, "1 D 0 x25", words, "1 D 0 x10, 1 D 10 x10, 1 D 20 x5",
        "1 D 20 x5");
    row("words without", 10, "1 D 5 x20", words, "1 D 5 x10, 1 D 15 x10", "1 D 15 x10");
    row("words as many as the limit", 10, "1 D 5 x10", words, "1 D 5 x10", "1 D 5 x10");
    row("words one more", 10, "1 D 5 x11", words, "1 D 5 x10, 1 D 15 x1", "1 D 15 x1");
    row("any other bit index counts words", 10, "1 M 0 x11", 7, "1 M 0 x10, 1 M 10 x1",
        "1 M 10 x1");
    row("a bit index below -1 too", 10, "1 M 0 x11", -2, "1 M 0 x10, 1 M 10 x1", "1 M 10 x1");
    row("bits as many as the limit", 10, "1 M 0 x80", bits, "1 M 0 x80", "1 M 0 x80");
    row("bits one more", 10, "1 M 0 x81", bits, "1 M 0 x80, 1 M 80 x1", "1 M 80 x1");
    row("the bit index decides, not the type", 10, "1 D 0 x80", bits, "1 D 0 x80", "1 D 0 x80");
    row("32CV advances by registers", 10, "1 32CV 200 x12", words, "1 32CV 200 x10, 1 32CV 210 x2",
        "1 32CV 210 x2");
    row("nothing is one piece", 10, "1 D 5 x0", words, "1 D 5 x0", "1 D 5 x0");
    row("less than nothing is one piece", 10, "1 D 5 x-4", words, "1 D 5 x-4", "1 D 5 x-4");
    row("a limit of 0 leaves it whole", 0, "1 D 5 x25", words, "1 D 5 x25", "1 D 5 x25");
    row("a limit of 0 bits leaves it whole", 0, "1 M 5 x25", bits, "1 M 5 x25", "1 M 5 x25");
    row("unknown type", 10, "1 Q 0 x11", words, "1 Q 0 x10, 1 Q 10 x1", "1 Q 10 x1");
    row("station 0", 10, "0 D 0 x1", words, "0 D 0 x1", "0 D 0 x1");
}

void ConditionReadsTest::splits()
{
    QFETCH(int, maxWords);
    QFETCH(QString, range);
    QFETCH(int, bitIndex);
    QFETCH(QString, jobs);
    QFETCH(QString, last);
    DriverFixture runtime(QByteArray("1#0#0#3#" + QByteArray::number(maxWords)).constData());
    ask(range, bitIndex);
    QCOMPARE(textOf(driver.condList), jobs);
    QCOMPARE(textOf(driver.condVar), last);
}

void ConditionReadsTest::keepsTheKindAndLeavesTheRequestAlone()
{
    DriverFixture runtime("1#0#0#3#10");
    KEY_ADDRESS asked = key(1, "D", 0, 25);
    asked.keyName = "name";
    QCOMPARE(intf_addConditionRead(asked, 77), 1);
    QCOMPARE(driver.condList.at(0).kind, 77);
    QCOMPARE(driver.condList.at(2).kind, 77);
    QCOMPARE(driver.condVar.kind, 77);
    QCOMPARE(asked.address, 0);
    QCOMPARE(asked.count, 25);
    QCOMPARE(asked.keyName, QString("name"));
}

void ConditionReadsTest::aWaitingRequestIsNotQueuedTwice()
{
    DriverFixture runtime("1#0#0#3#10");
    queueSomethingAtTheHead();
    ask("1 D 0 x5", COUNTED_IN_WORDS, 3);
    ask("1 D 50 x5", COUNTED_IN_WORDS, 3);
    ask("1 D 0 x5", COUNTED_IN_WORDS, 8);
    QCOMPARE(textOf(driver.condList), QString("9 D 9 x9, 1 D 0 x5, 1 D 50 x5"));
    QCOMPARE(driver.condList.at(1).kind, 8);
    QCOMPARE(driver.condList.at(2).kind, 3);
    QCOMPARE(textOf(driver.condVar), QString("1 D 0 x5"));
    QCOMPARE(driver.condVar.kind, 8);
}

void ConditionReadsTest::aRequestAtTheHeadIsQueuedAgain()
{
    DriverFixture runtime("1#0#0#3#10");
    ask("1 D 0 x5", COUNTED_IN_WORDS, 3);
    ask("1 D 0 x5", COUNTED_IN_WORDS, 8);
    QCOMPARE(textOf(driver.condList), QString("1 D 0 x5, 1 D 0 x5"));
    QCOMPARE(driver.condList.at(0).kind, 3);
    QCOMPARE(driver.condList.at(1).kind, 8);
    ask("1 D 0 x5", COUNTED_IN_WORDS, 9);
    QCOMPARE(textOf(driver.condList), QString("1 D 0 x5, 1 D 0 x5"));
    QCOMPARE(driver.condList.at(1).kind, 9);
}

void ConditionReadsTest::requestsOfAnotherTargetAreAppended_data()
{
    QTest::addColumn<QString>("range");
    QTest::newRow("another station") << "2 D 0 x5";
    QTest::newRow("another type") << "1 SD 0 x5";
    QTest::newRow("another address") << "1 D 1 x5";
    QTest::newRow("another count") << "1 D 0 x4";
}

void ConditionReadsTest::requestsOfAnotherTargetAreAppended()
{
    QFETCH(QString, range);
    DriverFixture runtime("1#0#0#3#10");
    queueSomethingAtTheHead();
    ask("1 D 0 x5", COUNTED_IN_WORDS);
    ask(range, COUNTED_IN_WORDS);
    QCOMPARE(textOf(driver.condList), "9 D 9 x9, 1 D 0 x5, " + range);
}

void ConditionReadsTest::theQueueEndsAtFiveHundredAndThirteen()
{
    DriverFixture runtime("1#0#0#3#10");
    for (int i = 0; i < 600; ++i) {
        ask(QString("1 D %1 x1").arg(10 * i), COUNTED_IN_WORDS);
        QCOMPARE(static_cast<int>(driver.condList.size()), i < 513 ? i + 1 : 513);
        QCOMPARE(driver.condList.last().address, 10 * i);
        QCOMPARE(driver.condVar.address, 10 * i);
    }
    QCOMPARE(driver.condList.at(0).address, 0);
    QCOMPARE(driver.condList.at(511).address, 5110);
    QCOMPARE(driver.condList.at(512).address, 5990);
}

void ConditionReadsTest::aFullQueueStillReplacesAWaitingRequest()
{
    DriverFixture runtime("1#0#0#3#10");
    for (int i = 0; i < 513; ++i)
        ask(QString("1 D %1 x1").arg(10 * i), COUNTED_IN_WORDS);
    ask("1 D 30 x1", COUNTED_IN_WORDS, 8);
    QCOMPARE(driver.condList.size(), 513);
    QCOMPARE(driver.condList.at(3).kind, 8);
    QCOMPARE(driver.condList.at(512).address, 5120);
    QCOMPARE(driver.condVar.address, 30);
}

void ConditionReadsTest::manyPiecesAreFiledLikeOneByOne()
{
    DriverFixture runtime("1#0#0#3#2");
    // Waiting jobs that match a piece in the middle, the last and the first of those that
    // find the queue full, and that match none, before, between and behind the pieces.
    for (const int address : {7, 4000, 9998, 2048, 4001, -4, -2, 10000})
        ask(QString("1 D %1 x2").arg(address), COUNTED_IN_WORDS, 8);
    ask("1 D 4002 x1", COUNTED_IN_WORDS, 8);
    // Twice in a queue that was changed from outside: the later one is renewed.
    driver.condList << job(1, "D", 4004, 2) << job(1, "D", 4004, 2);
    QList<VARIABLE> expected = driver.condList;
    for (int piece = 0; piece < 5000; ++piece) {
        VARIABLE one = job(1, "D", 2 * piece, 2);
        one.kind = 3;
        addVarToList(expected, one);
    }
    ask("1 D 0 x10000", COUNTED_IN_WORDS, 3);
    QCOMPARE(textOf(driver.condList), textOf(expected));
    QList<int> kinds;
    for (int i = 0; i < 12; ++i)
        kinds << driver.condList.at(i).kind;
    QCOMPARE(kinds, QList<int>({8, 3, 3, 3, 8, 8, 8, 8, 8, 0, 3, 3}));
}

// Two milliseconds. Its two thousand million pieces one by one would take most of an
// hour, so that a driver that files them so does not come back within a test's time.
void ConditionReadsTest::theLongestRangeIsFiledAtOnce()
{
    DriverFixture runtime("1#0#0#3#1");
    ask("1 D 0 x2147483647", COUNTED_IN_WORDS);
    QCOMPARE(driver.condList.size(), 513);
    QCOMPARE(driver.condList.at(511).address, 511);
    QCOMPARE(driver.condList.at(512).address, 2147483646);
    QCOMPARE(driver.condVar.address, 2147483646);
}

void ConditionReadsTest::touchesNothingElse()
{
    DriverFixture runtime("1#0#0#3#10");
    QList<KEY_ADDRESS> watched = ranges("1 D 0 x5");
    intf_addrMerge(watched);
    ask("1 D 3 x5", COUNTED_IN_WORDS);
    QCOMPARE(textOf(driver.readList), QString("1 D 0 x5"));
    QCOMPARE(driver.writeList.size(), 0);
    QCOMPARE(driver.dataAreas.size(), 5);
    QCOMPARE(runtime.reports.size(), 0);
}

QTEST_APPLESS_MAIN(ConditionReadsTest)
#include "tst_condition_reads.moc"
