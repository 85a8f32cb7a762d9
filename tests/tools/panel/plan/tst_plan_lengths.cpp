// Which maximum request length suits a list of addresses.

#include "panel/plan/plan_lengths.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

LengthResult result(int maxWords, qint64 duration, int unread = 0)
{
    LengthResult result;
    result.maxWords = maxWords;
    result.cost.duration = duration;
    result.unread = unread;
    return result;
}

QList<int> limitsOf(const QList<LengthResult>& results)
{
    QList<int> limits;
    for (const LengthResult& one : results)
        limits << one.maxWords;
    return limits;
}

PlannedRequest request(const char* type, int address, int count, int bytesExpected)
{
    PlannedRequest request;
    request.type = findRegisterType(QString::fromLatin1(type));
    request.address = address;
    request.count = count;
    request.bytesSent = 8;
    request.bytesExpected = bytesExpected;
    return request;
}

AddressRange range(const char* text)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(QString::fromLatin1(text), &range, &error))
        qFatal("%s", qPrintable(error));
    range.station = 1;
    return range;
}

} // namespace

class PlanLengthsTest : public QObject
{
    Q_OBJECT

private slots:
    void theBestReadsAllInTheShortestTime_data();
    void theBestReadsAllInTheShortestTime();
    void theTableShowsWhatTellsSomething_data();
    void theTableShowsWhatTellsSomething();
    void aPlanIsSummedUp();
    void requestsThatAreTooLongReadNothing();
};

using Results = QList<LengthResult>;
Q_DECLARE_METATYPE(LengthResult)

void PlanLengthsTest::theBestReadsAllInTheShortestTime_data()
{
    QTest::addColumn<Results>("results");
    QTest::addColumn<int>("best");
    QTest::newRow("none") << Results() << -1;
    QTest::newRow("the shortest cycle")
        << Results{result(1, 300), result(2, 100), result(3, 200)} << 1;
    QTest::newRow("the lowest of equal limits") << Results{result(1, 100), result(2, 100)} << 0;
    LengthResult needsLess = result(2, 100);
    needsLess.cost.needed = 90;
    LengthResult needsAll = result(1, 100);
    needsAll.cost.needed = 100;
    QTest::newRow("the one that leaves time of equal cycles")
        << Results{needsAll, needsLess, needsLess} << 1;
    QTest::newRow("a shorter cycle that leaves values unread loses")
        << Results{result(1, 300), result(2, 100, 1)} << 0;
    QTest::newRow("the least unread when all leave some")
        << Results{result(1, 100, 2), result(2, 300, 1)} << 1;
}

void PlanLengthsTest::theBestReadsAllInTheShortestTime()
{
    QFETCH(Results, results);
    QTEST(bestOf(results), "best");
}

void PlanLengthsTest::theTableShowsWhatTellsSomething_data()
{
    QTest::addColumn<Results>("results");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QList<int>>("shown");
    QTest::newRow("none") << Results() << 32 << QList<int>();
    QTest::newRow("first, improvements, last")
        << Results{result(1, 300), result(2, 300), result(3, 200), result(4, 200), result(5, 200)}
        << 9 << QList<int>{1, 3, 5};
    QTest::newRow("the limit in use")
        << Results{result(1, 300), result(2, 300), result(3, 200), result(4, 200), result(5, 200)}
        << 2 << QList<int>{1, 2, 3, 5};
    QTest::newRow("the first that is worse than the best, and no further one")
        << Results{result(1, 300), result(2, 100), result(3, 100),
                   result(4, 150), result(5, 160), result(6, 170)}
        << 9 << QList<int>{1, 2, 4, 6};
    QTest::newRow("one") << Results{result(1, 300)} << 1 << QList<int>{1};
}

void PlanLengthsTest::theTableShowsWhatTellsSomething()
{
    QFETCH(Results, results);
    QFETCH(int, limit);
    QTEST(limitsOf(worthShowing(results, limit)), "shown");
}

void PlanLengthsTest::aPlanIsSummedUp()
{
    Plan plan;
    plan.maxWords = 32;
    plan.requests << request("SM", 254, 4, 6) << request("D", 0, 10, 25);
    const LengthResult summed =
        resultOf(plan, WatchedRanges({range("SM254:4"), range("D0:10")}), PlanTiming());
    QCOMPARE(summed.maxWords, 32);
    QCOMPARE(summed.cost.requests, 2);
    QCOMPARE(summed.cost.bytesExpected, qint64(31));
    QCOMPARE(summed.unread, 4); // SM256 and SM257 spoil the request
}

void PlanLengthsTest::requestsThatAreTooLongReadNothing()
{
    Plan plan;
    plan.requests << request("D", 0, 126, 257);
    QCOMPARE(resultOf(plan, WatchedRanges({range("D0:100"), range("D125")}), PlanTiming()).unread,
             101);
}

QTEST_APPLESS_MAIN(PlanLengthsTest)
#include "tst_plan_lengths.moc"
