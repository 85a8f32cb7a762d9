// A recipe download asks for values that nobody gave: nothing may be sent for it.

#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

_RCP_VAR_PRO block(const char* type, int address, int count, int bufferOffset)
{
    return variable(1, QString::fromLatin1(type), address, count, bufferOffset);
}

} // namespace

class RecipeWithoutValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void theDownloadEndsAndTheNextJobGoes_data();
    void theDownloadEndsAndTheNextJobGoes();
    void withNothingElseToSendThereIsNothing_data();
    void withNothingElseToSendThereIsNothing();
    void aRequestedUploadGoesInstead_data();
    void aRequestedUploadGoesInstead();
    void itEndsAtTheBlockThatLacksThem_data();
    void itEndsAtTheBlockThatLacksThem();
    void theNextDownloadIsWhole();
    void itsFrameGoesOutAgainWhileNoReplyCame();
    void withoutAMutexItEndsAllTheSame();
    void uploadsGoOnAsBefore_data();
    void uploadsGoOnAsBefore();
    void downloadsThatHaveTheirValuesGo_data();
    void downloadsThatHaveTheirValuesGo();
    void withoutABlockTheCurrentJobIsBuiltAgain();
};

void RecipeWithoutValuesTest::theDownloadEndsAndTheNextJobGoes_data()
{
    QTest::addColumn<bool>("hasBuffer");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("bufferOffset");
    QTest::newRow("no recipe buffer, one register") << false << "D" << 1 << 0;
    QTest::newRow("no recipe buffer, registers") << false << "D" << 2 << 3;
    QTest::newRow("no recipe buffer, a double word") << false << "32CV" << 2 << 0;
    QTest::newRow("no recipe buffer, one coil") << false << "M" << 1 << 0;
    QTest::newRow("no recipe buffer, coils") << false << "M" << 3 << 0;
    QTest::newRow("no recipe buffer, no such type") << false << "Q" << 1 << 0;
    QTest::newRow("the word before the buffer") << true << "D" << 1 << -1;
    QTest::newRow("from before the buffer into it") << true << "D" << 3 << -2;
    QTest::newRow("coils before the buffer") << true << "M" << 3 << -2;
    QTest::newRow("a double word before the buffer") << true << "32CV" << 2 << -1;
    QTest::newRow("the lowest offset") << true << "D" << 1 << INT_MIN;
    QTest::newRow("a count that would wrap back into the buffer") << true << "D" << INT_MAX << -2;
    QTest::newRow("one coil more than a payload holds") << true << "M" << 1025 << 0;
    QTest::newRow("the most coils that a request may carry") << true << "M" << 1968 << 0;
    QTest::newRow("the most coils of a frame") << true << "M" << 8120 << 0;
}

void RecipeWithoutValuesTest::theDownloadEndsAndTheNextJobGoes()
{
    QFETCH(bool, hasBuffer);
    QFETCH(QString, type);
    QFETCH(int, count);
    QFETCH(int, bufferOffset);
    DriverFixture runtime;
    driver.rcpVars << variable(1, type, 200, count, bufferOffset) << block("D", 9, 1, 0);
    if (!hasBuffer)
        driver.recipeBuffer = nullptr;
    driver.writeList << job(1, "Y", 5, 1, "01");
    driver.readList << job(1, "D", 0, 1);
    runtime.requestRecipeWrite();

    QCOMPARE(runtime.poll(), withCrc("01"   // station
                                     "05"   // write single coil: the waiting write
                                     "0005" // coil 5
                                     "FF00" // on
                                     ));
    QCOMPARE(driver.currentKind, 2);
    QCOMPARE(driver.burstCount, 1);
    QCOMPARE(driver.rcpIndex, 0);
    QCOMPARE(int(runtime.shared[60115]), 0);
    QCOMPARE(driver.commFailed, 0);
    QCOMPARE(static_cast<int>(driver.rcpVars.size()), 2);
    QVERIFY(runtime.mutex.tryLock());
    runtime.mutex.unlock();

    QCOMPARE(runtime.deal(withCrc("01 05 0005 FF00")), 1);
    QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
}

void RecipeWithoutValuesTest::withNothingElseToSendThereIsNothing_data()
{
    theDownloadEndsAndTheNextJobGoes_data();
}

void RecipeWithoutValuesTest::withNothingElseToSendThereIsNothing()
{
    QFETCH(bool, hasBuffer);
    QFETCH(QString, type);
    QFETCH(int, count);
    QFETCH(int, bufferOffset);
    DriverFixture runtime;
    driver.rcpVars << variable(1, type, 200, count, bufferOffset);
    if (!hasBuffer)
        driver.recipeBuffer = nullptr;
    driver.currentJob = job(1, "D", 77, 1, "3412"); // no job of before goes out again
    driver.currentKind = RECIPE_WRITE_JOB;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), QByteArray());
    QCOMPARE(driver.currentKind, 0);
    QCOMPARE(driver.rcpIndex, 0);
    QCOMPARE(int(runtime.shared[60115]), 0);
    QVERIFY(driver.frameList.isEmpty());
    QCOMPARE(runtime.poll(), QByteArray());
}

void RecipeWithoutValuesTest::aRequestedUploadGoesInstead_data()
{
    QTest::addColumn<bool>("hasBuffer");
    QTest::addColumn<int>("bufferOffset");
    QTest::newRow("no recipe buffer") << false << 0;
    QTest::newRow("the word before the buffer") << true << -1;
}

void RecipeWithoutValuesTest::aRequestedUploadGoesInstead()
{
    QFETCH(bool, hasBuffer);
    QFETCH(int, bufferOffset);
    DriverFixture runtime;
    driver.rcpVars << block("D", 100, 2, bufferOffset);
    if (!hasBuffer)
        driver.recipeBuffer = nullptr;
    driver.writeList << job(1, "Y", 5, 1, "01");
    runtime.requestRecipeWrite();
    runtime.requestRecipeRead();
    QCOMPARE(runtime.poll(), withCrc("01"   // station
                                     "03"   // read holding registers
                                     "0064" // register 100
                                     "0002" // two registers
                                     ));
    QCOMPARE(driver.currentKind, 6);
    QCOMPARE(int(runtime.shared[60115]), 0);
    QCOMPARE(int(runtime.shared[60116]), 1);
}

void RecipeWithoutValuesTest::itEndsAtTheBlockThatLacksThem_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("bufferOffset");
    QTest::addColumn<bool>("losesBuffer");
    QTest::newRow("before the buffer") << 2 << -1 << false;
    QTest::newRow("more coils than a payload holds") << 1025 << 0 << false;
    QTest::newRow("the buffer is gone") << 2 << 1 << true;
}

// The first block was sent; the third, which has its values, is not.
void RecipeWithoutValuesTest::itEndsAtTheBlockThatLacksThem()
{
    QFETCH(int, count);
    QFETCH(int, bufferOffset);
    QFETCH(bool, losesBuffer);
    DriverFixture runtime;
    driver.rcpVars << block("D", 100, 1, 4) << block("M", 0, count, bufferOffset)
                   << block("D", 300, 1, 4);
    driver.readList << job(1, "D", 0, 1);
    runtime.recipe[4] = 0x1234;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), withCrc("01 06 0064 1234"));
    QCOMPARE(runtime.deal(withCrc("01 06 0064 1234")), 1);
    QCOMPARE(driver.rcpIndex, 1);
    QCOMPARE(int(runtime.shared[60115]), 1);

    if (losesBuffer)
        driver.recipeBuffer = nullptr;
    QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
    QCOMPARE(driver.currentKind, 4);
    QCOMPARE(driver.rcpIndex, 0);
    QCOMPARE(int(runtime.shared[60115]), 0);
    QCOMPARE(runtime.deal(withCrc("01 03 02 0000")), 1);
    QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
}

void RecipeWithoutValuesTest::theNextDownloadIsWhole()
{
    DriverFixture runtime;
    driver.rcpVars << block("D", 100, 1, 4) << block("D", 300, 1, -1);
    runtime.recipe[4] = 0x1234;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), withCrc("01 06 0064 1234"));
    QCOMPARE(runtime.deal(withCrc("01 06 0064 1234")), 1);
    QCOMPARE(runtime.poll(), QByteArray());

    driver.rcpVars[1].bufOffset = 5;
    runtime.recipe[5] = 0x5678;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), withCrc("01 06 0064 1234"));
    QCOMPARE(runtime.deal(withCrc("01 06 0064 1234")), 1);
    QCOMPARE(runtime.poll(), withCrc("01 06 012C 5678"));
    QCOMPARE(runtime.deal(withCrc("01 06 012C 5678")), 1);
    QCOMPARE(int(runtime.shared[60115]), 0);
}

// Its values were taken when the frame was built.
void RecipeWithoutValuesTest::itsFrameGoesOutAgainWhileNoReplyCame()
{
    DriverFixture runtime;
    driver.rcpVars << block("D", 100, 1, 4);
    runtime.recipe[4] = 0x1234;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), withCrc("01 06 0064 1234"));
    driver.recipeBuffer = nullptr;
    QCOMPARE(runtime.poll(), withCrc("01 06 0064 1234"));
    QCOMPARE(int(runtime.shared[60115]), 1);
}

void RecipeWithoutValuesTest::withoutAMutexItEndsAllTheSame()
{
    DriverFixture runtime;
    driver.rcpVars << block("D", 100, 1, 0);
    driver.recipeBuffer = nullptr;
    driver.hostMutex = nullptr;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), QByteArray());
    QCOMPARE(int(runtime.shared[60115]), 0);
}

void RecipeWithoutValuesTest::uploadsGoOnAsBefore_data()
{
    QTest::addColumn<bool>("hasBuffer");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("bufferOffset");
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("no recipe buffer")
        << false << QByteArray("D") << 2 << 0 << withCrc("01 03 0064 0002");
    QTest::newRow("before the buffer")
        << true << QByteArray("D") << 2 << -1 << withCrc("01 03 0064 0002");
    QTest::newRow("more coils than a payload holds")
        << true << QByteArray("Y") << 1025 << 0 << withCrc("01 01 0064 0401");
}

void RecipeWithoutValuesTest::uploadsGoOnAsBefore()
{
    QFETCH(bool, hasBuffer);
    QFETCH(QByteArray, type);
    QFETCH(int, count);
    QFETCH(int, bufferOffset);
    DriverFixture runtime;
    driver.rcpVars << block(type.constData(), 100, count, bufferOffset);
    if (!hasBuffer)
        driver.recipeBuffer = nullptr;
    runtime.requestRecipeRead();
    QTEST(runtime.poll(), "frame");
    QCOMPARE(int(runtime.shared[60116]), 1);
}

void RecipeWithoutValuesTest::downloadsThatHaveTheirValuesGo_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("sendLen");
    QTest::newRow("as many coils as a payload holds") << QByteArray("Y") << 1024 << 137;
    // Not whole, so that no runtime transmits it: 1016 bytes of coils beside 9 others.
    QTest::newRow("more coils than a frame holds") << QByteArray("M") << 8121 << 1025;
    QTest::newRow("as many registers as a payload holds") << QByteArray("D") << 512 << 1033;
    QTest::newRow("more registers: the frame is not whole") << QByteArray("D") << 1025 << 2059;
    QTest::newRow("no register") << QByteArray("D") << 0 << 9;
    QTest::newRow("fewer than no register") << QByteArray("D") << -100 << -191;
}

void RecipeWithoutValuesTest::downloadsThatHaveTheirValuesGo()
{
    QFETCH(QByteArray, type);
    QFETCH(int, count);
    DriverFixture runtime;
    runtime.recipe.assign(4096, 0x0101);
    driver.recipeBuffer = runtime.recipe.data();
    driver.rcpVars << block(type.constData(), 0, count, 0);
    runtime.requestRecipeWrite();
    FRAME_PRO out = FRAME_PRO();
    QCOMPARE(intf_getSendFrame(&out), 1);
    QTEST(out.sendLen, "sendLen");
    QCOMPARE(out.job.count, count);
    QCOMPARE(int(out.job.data[1023]), count >= 512 ? 1 : 0);
    QCOMPARE(int(runtime.shared[60115]), 1);
}

// Whatever the buffer: there is no block whose values could be missing.
void RecipeWithoutValuesTest::withoutABlockTheCurrentJobIsBuiltAgain()
{
    DriverFixture runtime;
    driver.recipeBuffer = nullptr;
    driver.currentJob = job(1, "D", 9, 1);
    driver.currentKind = CYCLIC_READ_JOB;
    runtime.requestRecipeWrite();
    QCOMPARE(runtime.poll(), withCrc("01 03 0009 0001"));
    QCOMPARE(int(runtime.shared[60115]), 1);
}

QTEST_APPLESS_MAIN(RecipeWithoutValuesTest)
#include "tst_recipe_without_values.moc"
