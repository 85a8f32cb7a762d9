#include "kxhost/views/recipe_progress.h"

#include <QtTest/QTest>

using namespace kx;

class TestRecipeProgress : public QObject
{
    Q_OBJECT

private slots:
    void barGrowsWithTheBlocks_data();
    void barGrowsWithTheBlocks();
};

void TestRecipeProgress::barGrowsWithTheBlocks_data()
{
    QTest::addColumn<int>("done");
    QTest::addColumn<int>("blocks");
    QTest::addColumn<QString>("bar");

    QTest::newRow("nothing") << 0 << 3 << "[........................................] 0/3 blocks";
    QTest::newRow("rounded down") << 1 << 3
                                  << "[#############...........................] 1/3 blocks";
    QTest::newRow("all") << 3 << 3 << "[########################################] 3/3 blocks";
    QTest::newRow("more blocks than characters")
        << 1 << 100 << "[........................................] 1/100 blocks";
}

void TestRecipeProgress::barGrowsWithTheBlocks()
{
    QFETCH(int, done);
    QFETCH(int, blocks);
    QTEST(recipeBar(done, blocks), "bar");
}

QTEST_GUILESS_MAIN(TestRecipeProgress)
#include "tst_recipe_progress.moc"
