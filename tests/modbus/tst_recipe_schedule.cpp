// The scheduler while a recipe transfer is requested.

#include "modbus/mutex_wait.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

_RCP_VAR_PRO block(const char* type, int address, int count, int bufferOffset)
{
    _RCP_VAR_PRO block = _RCP_VAR_PRO();
    block.station = 1;
    block.regType = QString::fromLatin1(type);
    block.address = address;
    block.count = count;
    block.bufOffset = bufferOffset;
    return block;
}

void addEverythingElse()
{
    driver.writeList << job(1, "Y", 0, 1);
    driver.condList << job(1, "TV", 0, 1);
    driver.readList << job(1, "D", 0, 1);
}

} // namespace

class RecipeScheduleTest : public QObject
{
    Q_OBJECT

private slots:
    void aRecipeWriteComesBeforeAllElse()
    {
        DriverFixture runtime;
        addEverythingElse();
        driver.rcpVars << block("D", 100, 2, 3);
        runtime.recipe[3] = 0x1234;
        runtime.recipe[4] = 0x5678;
        runtime.requestRecipeWrite();
        runtime.requestRecipeRead();
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "10"   // write multiple registers
                                       "0064" // register 100
                                       "0002" // two registers
                                       "04"   // four bytes
                                       "1234" // word 3 of the buffer
                                       "5678" // word 4
                                       "8F 40"));
        QCOMPARE(driver.currentKind, 5);
        QCOMPARE(driver.burstCount, 0);
    }

    void aRecipeReadComesBeforeJobs()
    {
        DriverFixture runtime;
        addEverythingElse();
        driver.rcpVars << block("D", 100, 2, 3);
        runtime.recipe[3] = 0x1234;
        driver.currentJob = job(9, "M", 9, 9, "FFFF");
        runtime.requestRecipeRead();
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "03"   // read holding registers
                                       "0064" // register 100
                                       "0002" // two registers
                                       "85 D4"));
        QCOMPARE(driver.currentKind, 6);
        QCOMPARE(int(driver.currentJob.data[0]), 0);
        QCOMPARE(int(runtime.polled().job.data[0]), 0);
    }

    void theRecipeKeepsTheKindTagOfTheJobBefore()
    {
        DriverFixture runtime;
        driver.currentJob.kind = 42;
        driver.rcpVars << block("D", 100, 2, 0);
        runtime.requestRecipeRead();
        runtime.poll();
        QCOMPARE(runtime.polled().job.kind, 42);
    }

    void startsAtTheRecipePosition()
    {
        DriverFixture runtime;
        driver.rcpVars << block("D", 100, 1, 0) << block("D", 200, 1, 1);
        driver.rcpIndex = 1;
        runtime.requestRecipeRead();
        QCOMPARE(runtime.poll(), withCrc("01 03 00C8 0001"));
        QCOMPARE(driver.rcpIndex, 1);
    }

    void withoutABlockTheCurrentJobIsBuiltAgain_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("frame");
        const QByteArray written = bytes("01 06 0009 1234 54 BF");
        const QByteArray read = bytes("01 03 0009 0001 54 08");
        QTest::newRow("idle") << 0 << QByteArray();
        QTest::newRow("no such kind") << 1 << QByteArray();
        QTest::newRow("write") << 2 << written;
        QTest::newRow("condition read") << 3 << read;
        QTest::newRow("cyclic read") << 4 << read;
        QTest::newRow("recipe write") << 5 << written;
        QTest::newRow("recipe read") << 6 << read;
        QTest::newRow("past the last kind") << 7 << QByteArray();
    }

    void withoutABlockTheCurrentJobIsBuiltAgain()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, frame);
        for (const bool writing : {true, false}) {
            DriverFixture runtime;
            addEverythingElse();
            driver.currentJob = job(1, "D", 9, 1, "34 12");
            driver.currentKind = kind;
            driver.burstCount = 2;
            if (writing)
                runtime.requestRecipeWrite();
            else
                runtime.requestRecipeRead();
            QCOMPARE(runtime.poll(), frame);
            QCOMPARE(driver.currentKind, kind);
            QCOMPARE(driver.burstCount, 2);
        }
    }

    void aPositionPastTheBlocksBuildsTheCurrentJobAgain_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("one past the last") << 1;
        QTest::newRow("far past the last") << 1000000;
        QTest::newRow("below zero") << -1;
    }

    void aPositionPastTheBlocksBuildsTheCurrentJobAgain()
    {
        QFETCH(int, position);
        DriverFixture runtime;
        driver.rcpVars << block("D", 100, 1, 0);
        driver.rcpIndex = position;
        driver.currentJob = job(1, "D", 9, 1);
        driver.currentKind = CYCLIC_READ_JOB;
        runtime.requestRecipeRead();
        QCOMPARE(runtime.poll(), withCrc("01 03 0009 0001"));
        QCOMPARE(driver.currentKind, 4);
    }

    void aRefusedBlockHoldsEverythingUp()
    {
        DriverFixture runtime;
        addEverythingElse();
        driver.rcpVars << block("Q", 100, 1, 0);
        runtime.requestRecipeWrite();
        QCOMPARE(runtime.poll(), QByteArray());
        QCOMPARE(runtime.poll(), QByteArray());
        QCOMPARE(int(runtime.shared[60115]), 1);
        QCOMPARE(driver.rcpIndex, 0);
    }

    void theRequestBytesAreUsedUnderTheMutex()
    {
        DriverFixture runtime;
        driver.rcpVars << block("D", 100, 1, 0);
        runtime.requestRecipeRead();
        QVERIFY(waitsForTheMutex(runtime.mutex, [&] { runtime.poll(); }));
        QVERIFY(waitsForTheMutex(runtime.mutex, [&] { runtime.deal(withCrc("01 03 02 0000")); }));
        QCOMPARE(int(runtime.shared[60116]), 0);
    }

    void onlyOneIsARequest()
    {
        DriverFixture runtime;
        driver.rcpVars << block("D", 100, 1, 0);
        driver.readList << job(1, "D", 0, 1);
        runtime.shared[60115] = 2;
        runtime.shared[60116] = 255;
        QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
    }

    void withoutSharedBlockAndMutex()
    {
        DriverFixture runtime;
        driver.rcpVars << block("D", 100, 1, 0);
        driver.hostMutex = nullptr;
        runtime.requestRecipeWrite();
        QCOMPARE(runtime.poll(), withCrc("01 06 0064 0000"));
        driver.frameList.clear();
        driver.hostShared = nullptr;
        QCOMPARE(runtime.poll(), QByteArray());
    }

    // A word per coil is taken from the buffer, and of each word two coils are sent, that
    // of the low byte first.
    void coilsTakeTheBytesOfTheBuffer()
    {
        DriverFixture runtime;
        driver.rcpVars << block("M", 0, 3, 0);
        runtime.recipe[0] = 0x0001; // M0 on, M1 off
        runtime.recipe[1] = 0x0001; // M2 on
        runtime.requestRecipeWrite();
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "0F"   // write multiple coils
                                       "07D0" // coil 2000
                                       "0003" // three coils
                                       "01"   // one byte
                                       "05"   // M0 and M2
                                       "8F 31"));
    }

    void aBlockPastThePayloadIsCut()
    {
        DriverFixture runtime;
        driver.rcpVars << block("D", 0, 600, 0);
        runtime.recipe.assign(600, 0x1111);
        driver.recipeBuffer = runtime.recipe.data();
        runtime.requestRecipeWrite();
        FRAME_PRO out = FRAME_PRO();
        QCOMPARE(intf_getSendFrame(&out), 1);
        QCOMPARE(out.sendLen, 1209);
        QCOMPARE(int(out.frame[1023]), 0x11);
        QCOMPARE(int(out.job.data[1023]), 0x11);
    }
};

QTEST_APPLESS_MAIN(RecipeScheduleTest)
#include "tst_recipe_schedule.moc"
