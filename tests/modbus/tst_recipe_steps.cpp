// How an answered or failed block moves a recipe transfer on.

#include "support/driver_fixture.h"

#include <QtTest/QTest>

class RecipeStepsTest : public QObject
{
    Q_OBJECT

private slots:
    void aRecipeStepsBlockByBlock_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("ownByte");
        QTest::addColumn<int>("otherByte");
        QTest::newRow("write") << 5 << 60115 << 60116;
        QTest::newRow("read") << 6 << 60116 << 60115;
    }

    void aRecipeStepsBlockByBlock()
    {
        QFETCH(int, kind);
        QFETCH(int, ownByte);
        QFETCH(int, otherByte);
        DriverFixture runtime;
        driver.rcpVars.resize(2);
        driver.currentKind = kind;
        runtime.requestRecipeRead();
        runtime.requestRecipeWrite();

        runtime.mutex.lock(); // between two blocks the bytes are not touched
        dealListWhenFinish();
        runtime.mutex.unlock();
        QCOMPARE(driver.rcpIndex, 1);
        QCOMPARE(int(runtime.shared[static_cast<size_t>(ownByte)]), 1);

        dealListWhenFinish();
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(int(runtime.shared[static_cast<size_t>(ownByte)]), 0);
        QCOMPARE(int(runtime.shared[static_cast<size_t>(otherByte)]), 1);
        QVERIFY(runtime.mutex.tryLock());
        runtime.mutex.unlock();
    }

    void aFailureEndsTheRecipe_data() { aRecipeStepsBlockByBlock_data(); }

    void aFailureEndsTheRecipe()
    {
        QFETCH(int, kind);
        QFETCH(int, ownByte);
        QFETCH(int, otherByte);
        DriverFixture runtime;
        driver.rcpVars.resize(5);
        driver.rcpIndex = 2;
        driver.currentKind = kind;
        driver.commFailed = 1;
        runtime.requestRecipeRead();
        runtime.requestRecipeWrite();
        dealListWhenFinish();
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(int(runtime.shared[static_cast<size_t>(ownByte)]), 0);
        QCOMPARE(int(runtime.shared[static_cast<size_t>(otherByte)]), 1);
        QCOMPARE(static_cast<int>(driver.rcpVars.size()), 5);
    }

    void aPositionPastTheBlocksEndsTheRecipe()
    {
        DriverFixture runtime;
        driver.rcpIndex = 9;
        driver.currentKind = RECIPE_READ_JOB;
        runtime.requestRecipeRead();
        dealListWhenFinish();
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(int(runtime.shared[60116]), 0);
    }

    void withoutASharedBlockTheRecipeEndsAllTheSame()
    {
        DriverFixture runtime;
        driver.hostShared = nullptr;
        driver.rcpIndex = 9;
        driver.currentKind = RECIPE_WRITE_JOB;
        dealListWhenFinish();
        QCOMPARE(driver.rcpIndex, 0);
    }
};

QTEST_APPLESS_MAIN(RecipeStepsTest)
#include "tst_recipe_steps.moc"
