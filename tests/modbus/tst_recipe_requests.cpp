#include "modbus/mutex_wait.h"
#include "modbus/recipe_requests.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

class RecipeRequestsTest : public QObject
{
    Q_OBJECT

private slots:
    void readsTheTwoBytes_data()
    {
        QTest::addColumn<int>("writeByte");
        QTest::addColumn<int>("readByte");
        QTest::addColumn<bool>("write");
        QTest::addColumn<bool>("read");
        QTest::newRow("none") << 0 << 0 << false << false;
        QTest::newRow("write") << 1 << 0 << true << false;
        QTest::newRow("read") << 0 << 1 << false << true;
        QTest::newRow("both") << 1 << 1 << true << true;
        QTest::newRow("only 1 requests") << 2 << 255 << false << false;
    }

    void readsTheTwoBytes()
    {
        QFETCH(int, writeByte);
        QFETCH(int, readByte);
        DriverFixture runtime;
        runtime.shared[60115] = static_cast<unsigned char>(writeByte);
        runtime.shared[60116] = static_cast<unsigned char>(readByte);
        QTEST(recipeRequests().write, "write");
        QTEST(recipeRequests().read, "read");
        QCOMPARE(int(runtime.shared[60115]), writeByte);
        QCOMPARE(int(runtime.shared[60116]), readByte);
    }

    void clearsOneByteEach()
    {
        DriverFixture runtime;
        runtime.shared.assign(runtime.shared.size(), 1);
        clearRecipeWriteRequest();
        QCOMPARE(int(runtime.shared[60114]), 1);
        QCOMPARE(int(runtime.shared[60115]), 0);
        QCOMPARE(int(runtime.shared[60116]), 1);
        clearRecipeReadRequest();
        QCOMPARE(int(runtime.shared[60116]), 0);
        QCOMPARE(int(runtime.shared[60114]), 1);
    }

    void holdsTheMutexWhileItReadsOrClears()
    {
        DriverFixture runtime;
        runtime.requestRecipeWrite();
        runtime.requestRecipeRead();
        QVERIFY(waitsForTheMutex(runtime.mutex, [] { recipeRequests(); }));
        QVERIFY(waitsForTheMutex(runtime.mutex, [] { clearRecipeWriteRequest(); }));
        QVERIFY(waitsForTheMutex(runtime.mutex, [] { clearRecipeReadRequest(); }));
        QCOMPARE(int(runtime.shared[60115]), 0);
        QCOMPARE(int(runtime.shared[60116]), 0);
    }

    void leavesTheMutexUnlocked()
    {
        DriverFixture runtime;
        recipeRequests();
        clearRecipeWriteRequest();
        clearRecipeReadRequest();
        QVERIFY(runtime.mutex.tryLock());
        runtime.mutex.unlock();
    }

    void withoutASharedBlockNothingIsRequested()
    {
        DriverFixture runtime;
        driver.hostShared = nullptr;
        QVERIFY(!recipeRequests().write);
        QVERIFY(!recipeRequests().read);
        clearRecipeWriteRequest();
        clearRecipeReadRequest();
    }

    void withoutAMutexTheBytesAreUsedAllTheSame()
    {
        DriverFixture runtime;
        driver.hostMutex = nullptr;
        runtime.requestRecipeWrite();
        runtime.requestRecipeRead();
        QVERIFY(recipeRequests().write);
        clearRecipeWriteRequest();
        clearRecipeReadRequest();
        QCOMPARE(int(runtime.shared[60115]), 0);
        QCOMPARE(int(runtime.shared[60116]), 0);
    }
};

QTEST_APPLESS_MAIN(RecipeRequestsTest)
#include "tst_recipe_requests.moc"
