#include "stories/slave.h"

#include <QtTest/QTest>

namespace
{

void watchD5()
{
    QList<KEY_ADDRESS> watched;
    watched << key(1, "D", 5, 1);
    intf_addrMerge(watched);
}

/// The one-off read of D100 still waits, goes out and ends well.
void expectD100Done(DriverFixture& runtime)
{
    QCOMPARE(addresses(driver.condList), QList<int>() << 100);
    QCOMPARE(runtime.reports, QList<Report>());
    QCOMPARE(serve(runtime, 1), QStringList() << "D 100 1");
    QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    QVERIFY(driver.condList.isEmpty());
}

} // namespace

class ConditionReadsOnTheLineTest : public QObject
{
    Q_OBJECT

private slots:
    void splitAndCompleted()
    {
        DriverFixture runtime("1#0#0#3#2");
        addCondition(1, "D", 100, 5);
        QCOMPARE(addresses(driver.condList), QList<int>() << 100 << 102 << 104);
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "03"   // read holding registers
                                       "0064" // register 100
                                       "0002" // the limit
                                       "85 D4"));
        QCOMPARE(runtime.deal(withCrc("01 03 04 0001 0002")), 1);
        QCOMPARE(runtime.poll(), withCrc("01 03 0066 0002"));
        QCOMPARE(runtime.deal(withCrc("01 03 04 0003 0004")), 1);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(runtime.poll(), withCrc("01 03 0068 0001")); // the rest
        QCOMPARE(runtime.deal(withCrc("01 03 02 0005")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
        QCOMPARE(DriverFixture::data(1, "D", 100, 5, 10), bytes("0100 0200 0300 0400 0500"));
        QVERIFY(runtime.poll().isEmpty());
    }

    void splitCoilsAndCompleted()
    {
        DriverFixture runtime("1#0#0#3#1"); // one register, eight bits
        addCondition(1, "M", 0, 9);
        QCOMPARE(runtime.poll(), bytes("01 01"
                                       "07D0" // coil 2000
                                       "0008" // eight coils
                                       "3D 41"));
        QCOMPARE(runtime.deal(withCrc("01 01 01 80")), 1);
        QVERIFY(!runtime.reports.contains(CONDITION_DONE));
        QCOMPARE(runtime.poll(), bytes("01 01"
                                       "07D8" // coil 2008
                                       "0001" // the rest
                                       "7C 85"));
        QCOMPARE(runtime.deal(withCrc("01 01 01 01")), 1);
        QCOMPARE(runtime.reports.last(), CONDITION_DONE);
        QCOMPARE(static_cast<int>(runtime.reports.count(CONDITION_DONE)), 1);
        QCOMPARE(DriverFixture::data(1, "M", 0, 9, 9), bytes("000000000000000101"));
        QVERIFY(runtime.poll().isEmpty());
    }

    void theFirstPieceFails()
    {
        DriverFixture runtime("1#0#0#3#2");
        addCondition(1, "D", 100, 5);
        QCOMPARE(failRequest(runtime), QList<int>() << 8 << 8 << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,100,D"));
        QCOMPARE(runtime.reports, QList<Report>()); // only the last piece reports
        QVERIFY(driver.condList.isEmpty());
        QVERIFY(runtime.poll().isEmpty());
    }

    void theLastPieceFails()
    {
        DriverFixture runtime("1#0#0#3#2");
        addCondition(1, "D", 100, 3);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 100 2");
        QCOMPARE(failRequest(runtime), QList<int>() << 8 << 8 << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,102,D"));
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_FAILED);
        QVERIFY(driver.condList.isEmpty());
    }

    void aFailureDropsTheOthersToo()
    {
        DriverFixture runtime("1#0#0#1#32");
        watchD5();
        addCondition(1, "D", 100, 1);
        addCondition(1, "D", 200, 1);
        QCOMPARE(failRequest(runtime), QList<int>() << 2);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(serve(runtime, 2), QStringList() << "D 5 1"
                                                  << "D 5 1");
    }

    void itOutlivesAFailedWrite()
    {
        DriverFixture runtime("1#0#0#1#32");
        setValues(1, "D", 7, 1, "0100");
        addCondition(1, "D", 100, 1);
        QCOMPARE(failRequest(runtime), QList<int>() << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,7,D"));
        expectD100Done(runtime);
    }

    void itOutlivesAFailedCyclicRead()
    {
        DriverFixture runtime("1#0#0#1#32");
        watchD5();
        QCOMPARE(runtime.poll(), withCrc("01 03 0005 0001"));
        addCondition(1, "D", 100, 1); // while the cyclic read is on the wire
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.lastError(), QString("0,1,5,D"));
        expectD100Done(runtime);
    }

    void itOutlivesAFailedRecipeWrite()
    {
        DriverFixture runtime("1#0#0#1#32");
        QCOMPARE(planRecipe({{"D", 20, 1, 0}}), 1);
        runtime.requestRecipeWrite();
        addCondition(1, "D", 100, 1);
        QCOMPARE(failRequest(runtime), QList<int>() << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,20,D"));
        expectD100Done(runtime);
    }

    void itOutlivesAFailedRecipeRead()
    {
        DriverFixture runtime("1#0#0#1#32");
        QCOMPARE(planRecipe({{"D", 20, 1, 0}}), 1);
        runtime.requestRecipeRead();
        addCondition(1, "D", 100, 1);
        QCOMPARE(failRequest(runtime), QList<int>() << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,20,D"));
        expectD100Done(runtime);
    }

    void onlyTheRequestAskedLastIsReported()
    {
        DriverFixture runtime;
        watchD5();
        addCondition(1, "D", 100, 1);
        addCondition(1, "D", 200, 1);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 100 1");
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(serve(runtime, 1), QStringList() << "D 200 1");
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 5 1");
    }

    // The one on the wire and the one behind it have the same target: both report.
    void theSameRequestWhileTheFirstIsServed()
    {
        DriverFixture runtime;
        watchD5();
        addCondition(1, "D", 100, 1);
        runtime.poll();
        addCondition(1, "D", 100, 1);
        addCondition(1, "D", 100, 1); // merged with the waiting one
        QCOMPARE(serve(runtime, 3), QStringList() << "D 100 1"
                                                  << "D 100 1"
                                                  << "D 5 1");
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE << CONDITION_DONE);
    }

    void aRetryDoesNotReport()
    {
        DriverFixture runtime;
        addCondition(1, "D", 100, 1);
        runtime.poll();
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(serve(runtime, 1), QStringList() << "D 100 1");
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }

    void withALimitOf0TheRequestStaysWhole()
    {
        DriverFixture runtime("1#0#0#3#0");
        addCondition(1, "D", 100, 7);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 100 7");
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }

    void aCountOf0IsOnePiece()
    {
        DriverFixture runtime;
        addCondition(1, "D", 100, 0);
        QCOMPARE(runtime.poll(), withCrc("01 03 0064 0000"));
        QCOMPARE(runtime.deal(withCrc("01 03 00")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }
};

QTEST_APPLESS_MAIN(ConditionReadsOnTheLineTest)
#include "tst_condition_reads_on_the_line.moc"
