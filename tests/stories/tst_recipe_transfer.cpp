#include "stories/slave.h"

#include <QtTest/QTest>

#include <algorithm>
#include <iterator>

namespace
{

// Three blocks: D10 to D12, D100, and the two counters 32CV200 and 32CV201.
void planThreeBlocks()
{
    QCOMPARE(planRecipe({{"D", 100, 1, 3},
                         {"D", 10, 2, 0},
                         {"D", 12, 1, 2},
                         {"32CV", 200, 2, 4},
                         {"32CV", 201, 2, 6}}),
             5);
    QCOMPARE(static_cast<int>(driver.rcpVars.size()), 3);
}

void fill(DriverFixture& runtime)
{
    const unsigned short values[] = {0x0A0A, 0x0B0B, 0x0C0C, 0x0D0D,
                                     0x5678, 0x1234, 0x86A0, 0x0001};
    std::copy(std::begin(values), std::end(values), runtime.recipe.begin());
}

} // namespace

class RecipeTransferTest : public QObject
{
    Q_OBJECT

private slots:
    void download()
    {
        DriverFixture runtime;
        planThreeBlocks();
        fill(runtime);
        driver.readList << job(1, "D", 5, 1);
        setValues(1, "Y", 0, 1, "01");
        runtime.reports.clear();
        runtime.requestRecipeWrite();

        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "10"   // write multiple registers
                                       "000A" // register 10
                                       "0003" // three registers
                                       "06"   // six bytes
                                       "0A0A" // word 0
                                       "0B0B" // word 1
                                       "0C0C" // word 2
                                       "28 E8"));
        QCOMPARE(runtime.deal(bytes("01 10 000A 0003 A0 0A")), 1);
        QCOMPARE(int(runtime.shared[60115]), 1);
        QCOMPARE(runtime.poll(), bytes("01"   // station
                                       "06"   // write single register
                                       "0064" // register 100
                                       "0D0D" // word 3
                                       "0D 40"));
        QCOMPARE(runtime.deal(bytes("01 06 0064 0D0D 0D 40")), 1);
        QCOMPARE(driver.rcpIndex, 2);
        QCOMPARE(runtime.poll(), bytes("01"       // station
                                       "10"       // write multiple registers
                                       "25E4"     // register 9700
                                       "0004"     // two values
                                       "08"       // eight bytes
                                       "12345678" // words 5 and 4
                                       "000186A0" // words 7 and 6
                                       "DC DC"));
        QCOMPARE(runtime.deal(bytes("01 10 25E4 0004 8A F1")), 1);

        QCOMPARE(int(runtime.shared[60115]), 0);
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(serve(runtime, 2), QStringList() << "Y 0 1"
                                                  << "D 5 1");
    }

    void upload()
    {
        DriverFixture runtime;
        planThreeBlocks();
        runtime.requestRecipeRead();
        QCOMPARE(runtime.poll(), withCrc("01 03 000A 0003"));
        QCOMPARE(runtime.deal(withCrc("01 03 06 0A0A 0B0B 0C0C")), 1);
        QCOMPARE(runtime.poll(), withCrc("01 03 0064 0001"));
        QCOMPARE(runtime.deal(withCrc("01 03 02 0D0D")), 1);
        QCOMPARE(runtime.poll(), withCrc("01 03 25E4 0004"));
        QCOMPARE(int(runtime.shared[60116]), 1);
        QCOMPARE(runtime.deal(withCrc("01 03 08 12345678 000186A0")), 1);
        QCOMPARE(int(runtime.shared[60116]), 0);

        // D10 covers two registers, of which the first is taken. The counters go
        // where variable 2 (D100) lies: their position counts blocks, not variables.
        QCOMPARE(runtime.reports, QList<Report>() << recipeWord(0) << recipeWord(2) << recipeWord(3)
                                                  << recipeWord(3) << recipeWord(4) << recipeWord(5)
                                                  << recipeWord(6));
        const unsigned short expected[] = {0x0A0A, 0, 0x0C0C, 0x5678, 0x1234, 0x86A0, 0x0001, 0};
        for (size_t i = 0; i < 8; ++i)
            QCOMPARE(int(runtime.recipe[i]), int(expected[i]));
        QCOMPARE(DriverFixture::data(1, "D", 10, 3, 6), bytes("0A0A 0B0B 0C0C"));
        QVERIFY(runtime.poll().isEmpty());
    }

    void bothRequestsAtOnceDownloadFirst()
    {
        DriverFixture runtime;
        planThreeBlocks();
        runtime.requestRecipeWrite();
        runtime.requestRecipeRead();
        QCOMPARE(serve(runtime, 3), QStringList() << "D 10 3"
                                                  << "D 100 1"
                                                  << "32CV 200 4");
        QCOMPARE(driver.currentKind, 5);
        QCOMPARE(int(runtime.shared[60115]), 0);
        QCOMPARE(int(runtime.shared[60116]), 1);
        QCOMPARE(serve(runtime, 4), QStringList() << "D 10 3"
                                                  << "D 100 1"
                                                  << "32CV 200 4"
                                                  << "-");
    }

    void aFailureInTheMiddle_data()
    {
        QTest::addColumn<bool>("download");
        QTest::newRow("download") << true;
        QTest::newRow("upload") << false;
    }

    void aFailureInTheMiddle()
    {
        QFETCH(bool, download);
        DriverFixture runtime;
        planThreeBlocks();
        driver.readList << job(1, "D", 5, 1);
        const size_t flag = download ? 60115 : 60116;
        runtime.shared[flag] = 1;
        QCOMPARE(serve(runtime, 1), QStringList() << "D 10 3");
        QCOMPARE(failRequest(runtime), QList<int>() << 8 << 8 << 2);
        QCOMPARE(runtime.lastError(), QString("0,1,100,D"));
        QCOMPARE(int(runtime.shared[flag]), 0);
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 5 1");

        // The next transfer starts from the first block.
        runtime.shared[flag] = 1;
        QCOMPARE(serve(runtime, 4), QStringList() << "D 10 3"
                                                  << "D 100 1"
                                                  << "32CV 200 4"
                                                  << "D 5 1");
    }

    void aRetryRepeatsTheBlock()
    {
        DriverFixture runtime;
        planThreeBlocks();
        runtime.requestRecipeWrite();
        const QByteArray first = runtime.poll();
        runtime.recipe[0] = 0x1111; // too late: the frame is built
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QCOMPARE(runtime.poll(), first);
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(serve(runtime, 3), QStringList() << "D 10 3"
                                                  << "D 100 1"
                                                  << "32CV 200 4");
    }

    void aRecipeWaitsForTheFrameOnTheWire()
    {
        DriverFixture runtime;
        planThreeBlocks();
        driver.readList << job(1, "D", 5, 1);
        runtime.poll();
        runtime.requestRecipeWrite();
        QCOMPARE(serve(runtime, 2), QStringList() << "D 5 1"
                                                  << "D 10 3");
    }

    void anEmptyRecipeRepeatsTheCurrentRead()
    {
        DriverFixture runtime;
        driver.readList << job(1, "D", 5, 1) << job(1, "D", 6, 1);
        runtime.requestRecipeWrite();
        QCOMPARE(serve(runtime, 1), QStringList() << "-"); // nothing was current yet
        runtime.shared[60115] = 0;
        QCOMPARE(serve(runtime, 1), QStringList() << "D 5 1");
        runtime.requestRecipeWrite();
        QCOMPARE(serve(runtime, 2), QStringList() << "D 5 1"
                                                  << "D 5 1");
        QCOMPARE(int(runtime.shared[60115]), 1); // the runtime takes it back itself
    }

    // The last condition read is done, a recipe without blocks builds it again.
    void aConditionReadThatIsBuiltAgainReportsNothing()
    {
        DriverFixture runtime;
        addCondition(1, "D", 100, 1);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 100 1");
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
        runtime.requestRecipeRead();
        QCOMPARE(serve(runtime, 1), QStringList() << "D 100 1");
        QCOMPARE(failRequest(runtime), QList<int>() << 8 << 8 << 2);
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }
};

QTEST_APPLESS_MAIN(RecipeTransferTest)
#include "tst_recipe_transfer.moc"
