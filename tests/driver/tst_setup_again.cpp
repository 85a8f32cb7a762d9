#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

int initialise(const char* parameters)
{
    int status = 0;
    return intf_initProperty(nullptr, nullptr, nullptr, &status, parameters, nullptr);
}

void fillQueues()
{
    driver.readList << job(1, "D", 0, 1);
    driver.writeList << job(1, "D", 0, 1);
    driver.condList << job(1, "D", 0, 1);
    driver.dataAreas << _DATA_();
    driver.frameList << FRAME_PRO();
}

void verifyQueuesAreEmpty()
{
    QCOMPARE(driver.readList.size(), 0);
    QCOMPARE(driver.writeList.size(), 0);
    QCOMPARE(driver.condList.size(), 0);
    QCOMPARE(driver.dataAreas.size(), 0);
    QCOMPARE(driver.frameList.size(), 0);
}

void upsetCounters()
{
    driver.currentKind = 4;
    driver.burstCount = 3;
    driver.aux1 = 9;
    driver.errorCount = 2;
    driver.maxBitsPerJob = 1;
    driver.maxWordsPerJob = 1;
    driver.commFailed = 1;
    driver.aux2 = 9;
    driver.aux3 = 9;
}

void verifyCountersAreReset()
{
    QCOMPARE(driver.currentKind, 0);
    QCOMPARE(driver.burstCount, 0);
    QCOMPARE(driver.aux1, 0);
    QCOMPARE(driver.errorCount, 0);
    QCOMPARE(driver.maxBitsPerJob, 256);
    QCOMPARE(driver.maxWordsPerJob, 32);
    QCOMPARE(driver.commFailed, 0);
    QCOMPARE(driver.aux2, 0);
    QCOMPARE(driver.aux3, 1);
}

} // namespace

class SetupAgainTest : public QObject
{
    Q_OBJECT

private slots:
    void discardsJobsFramesAndCachedValues();
    void discardsThemWithTooFewItemsToo();
    void resetsTheCounters();
    void recipeAndCallBackSurvive();
};

void SetupAgainTest::discardsJobsFramesAndCachedValues()
{
    DriverFixture runtime;
    fillQueues();
    initialise("1#0#0#3#32");
    verifyQueuesAreEmpty();
}

void SetupAgainTest::discardsThemWithTooFewItemsToo()
{
    DriverFixture runtime("9#0#0#3#32");
    fillQueues();
    upsetCounters();
    initialise("1#0#0#0");
    verifyQueuesAreEmpty();
    verifyCountersAreReset();
    QCOMPARE(driver.linkId, 9);
    QCOMPARE(driver.retryLimit, 3);
}

void SetupAgainTest::resetsTheCounters()
{
    DriverFixture runtime;
    upsetCounters();
    initialise("1#0#0#3#32");
    verifyCountersAreReset();
}

void SetupAgainTest::recipeAndCallBackSurvive()
{
    DriverFixture runtime;
    const ValueChangeCallBack callBack = driver.valueChangeCallBack;
    driver.rcpIndex = 3;
    driver.rcpVars << _RCP_VAR_PRO();
    driver.rcpVarsA << _RCP_VAR_PRO() << _RCP_VAR_PRO();
    driver.intList << 0 << 2;
    driver.condVar = job(1, "D", 40, 4);
    driver.currentJob = job(2, "M", 50, 5);
    const QList<QString> names = driver.regNames;
    initialise("1#0#0#3#32");
    QCOMPARE(driver.rcpIndex, 3);
    QCOMPARE(driver.rcpVars.size(), 1);
    QCOMPARE(driver.rcpVarsA.size(), 2);
    QCOMPARE(driver.intList, QList<int>({0, 2}));
    QCOMPARE(driver.condVar.address, 40);
    QCOMPARE(driver.currentJob.address, 50);
    QCOMPARE(driver.regNames, names);
    QCOMPARE(driver.regNames.size(), 13);
    QVERIFY(driver.valueChangeCallBack == callBack);
}

QTEST_APPLESS_MAIN(SetupAgainTest)
#include "tst_setup_again.moc"
