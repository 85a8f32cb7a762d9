// The conversion of a recipe block into a job.

#include "registers/recipe_addresses.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <cstring>
#include <numeric>

namespace
{

_RCP_VAR_PRO block(int count, int bufOffset)
{
    return {1, 3, "D", 77, count, bufOffset, {}};
}

// Every payload byte is 0xEE before.
VARIABLE converted(const _RCP_VAR_PRO& block, int withData)
{
    VARIABLE made = job(9, "M", 9, 9);
    made.kind = 6;
    std::memset(made.data, 0xEE, sizeof made.data);
    rcpAddrToVar(block, made, withData);
    return made;
}

QByteArray payload(const VARIABLE& job, int from, int length)
{
    return QByteArray(reinterpret_cast<const char*>(job.data) + from, length);
}

} // namespace

class RecipeJobsTest : public QObject
{
    Q_OBJECT

private slots:
    void copiesTheTargetAndKeepsTheKind();
    void withoutDataThePayloadIsZero();
    void copiesWordsLowByteFirst_data();
    void copiesWordsLowByteFirst();
    void copiesAtMostAWholePayload();
    void aBlockAcrossAGapReachesPastItsVariables();
    void wordsBeforeTheBufferStayZero();
    void withoutABufferThePayloadIsZero();
};

void RecipeJobsTest::copiesTheTargetAndKeepsTheKind()
{
    DriverFixture runtime;
    for (const int withData : {0, 1}) {
        const VARIABLE made = converted(block(2, 3), withData);
        QCOMPARE(made.kind, 6);
        QCOMPARE(made.station, 3);
        QCOMPARE(made.regType, QString("D"));
        QCOMPARE(made.address, 77);
        QCOMPARE(made.count, 2);
    }
}

void RecipeJobsTest::withoutDataThePayloadIsZero()
{
    DriverFixture runtime;
    runtime.recipe.assign(4096, 0x1234);
    const VARIABLE made = converted(block(2, 3), 0);
    QCOMPARE(payload(made, 0, 1024), QByteArray(1024, 0));
}

void RecipeJobsTest::copiesWordsLowByteFirst_data()
{
    QTest::addColumn<int>("withData");
    QTest::newRow("data asked for with 1") << 1;
    QTest::newRow("data asked for with any nonzero value") << -5;
}

void RecipeJobsTest::copiesWordsLowByteFirst()
{
    QFETCH(int, withData);
    DriverFixture runtime;
    runtime.recipe[2] = 0x4455;
    runtime.recipe[3] = 0x6677;
    runtime.recipe[4] = 0x8899;
    runtime.recipe[5] = 0xAABB;
    const VARIABLE made = converted(block(2, 3), withData);
    QCOMPARE(payload(made, 0, 4), bytes("7766 9988"));
    QCOMPARE(payload(made, 4, 1020), QByteArray(1020, 0));
}

void RecipeJobsTest::copiesAtMostAWholePayload()
{
    DriverFixture runtime;
    std::iota(runtime.recipe.begin(), runtime.recipe.end(), static_cast<unsigned short>(0));
    const VARIABLE whole = converted(block(512, 1), 1);
    QCOMPARE(payload(whole, 0, 2), bytes("01 00"));
    QCOMPARE(payload(whole, 1022, 2), bytes("00 02")); // word 512
    const VARIABLE longer = converted(block(600, 1), 1);
    QCOMPARE(longer.count, 600);
    QCOMPARE(payload(longer, 0, 1024), payload(whole, 0, 1024));
    QCOMPARE(payload(converted(block(-1, 1), 1), 0, 1024), QByteArray(1024, 0));
}

// 32CV200 and 32CV202 are joined, with the two registers of 32CV201 between them. The
// block takes six words, although the variables' values lie in four.
void RecipeJobsTest::aBlockAcrossAGapReachesPastItsVariables()
{
    DriverFixture runtime;
    std::iota(runtime.recipe.begin(), runtime.recipe.end(), static_cast<unsigned short>(1));
    QVector<_RCP_VAR_PRO> variables = {{1, 1, "32CV", 200, 2, 0, {}},
                                       {1, 1, "32CV", 202, 2, 2, {}}};
    intf_setRcpAddress(variables);
    QCOMPARE(driver.rcpVars.size(), 1);
    const VARIABLE made = converted(driver.rcpVars.first(), 1);
    QCOMPARE(made.count, 6);
    QCOMPARE(payload(made, 0, 14), bytes("0100 0200 0300 0400 0500 0600 0000"));
}

void RecipeJobsTest::wordsBeforeTheBufferStayZero()
{
    DriverFixture runtime;
    runtime.recipe[0] = 0x2211;
    runtime.recipe[1] = 0x4433;
    const VARIABLE made = converted(block(4, -2), 1);
    QCOMPARE(payload(made, 0, 8), bytes("00 00 00 00 11 22 33 44"));
    QCOMPARE(payload(made, 8, 1016), QByteArray(1016, 0));
    QCOMPARE(payload(converted(block(4, -4), 1), 0, 1024), QByteArray(1024, 0));
}

void RecipeJobsTest::withoutABufferThePayloadIsZero()
{
    DriverFixture runtime;
    driver.recipeBuffer = nullptr;
    QCOMPARE(payload(converted(block(4, 0), 1), 0, 1024), QByteArray(1024, 0));
}

QTEST_APPLESS_MAIN(RecipeJobsTest)
#include "tst_recipe_jobs.moc"
