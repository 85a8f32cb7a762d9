#include "kxhost/views/recipe_progress.h"

#include <QtTest/QTest>

using namespace kx;

class RecipeProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void barGrowsWithTheBlocks_data();
    void barGrowsWithTheBlocks();
};

void RecipeProgressTest::barGrowsWithTheBlocks_data()
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

void RecipeProgressTest::barGrowsWithTheBlocks()
{
    QFETCH(int, done);
    QFETCH(int, blocks);
    QTEST(recipeBar(done, blocks), "bar");
}

QTEST_GUILESS_MAIN(RecipeProgressTest)
#include "tst_recipe_progress.moc"
