// A recipe of one variable has two identical blocks: it is transferred twice.

#include "stories/slave.h"

#include <QtTest/QTest>

class SingleVariableRecipeTest : public QObject
{
    Q_OBJECT

private slots:
    void download()
    {
        DriverFixture runtime;
        QCOMPARE(planRecipe({{"D", 100, 1, 7}}), 1);
        runtime.recipe[7] = 0x1234;
        runtime.requestRecipeWrite();
        const QByteArray request = bytes("01"   // station
                                         "06"   // write single register
                                         "0064" // register 100
                                         "1234" // word 7
                                         "C5 62");
        QCOMPARE(runtime.poll(), request);
        QCOMPARE(runtime.deal(request), 1);
        QCOMPARE(int(runtime.shared[60115]), 1);
        runtime.recipe[7] = 0x4321; // the second block takes its value anew
        QCOMPARE(runtime.poll(), withCrc("01 06 0064 4321"));
        QCOMPARE(runtime.deal(request), 1);
        QCOMPARE(int(runtime.shared[60115]), 0);
        QVERIFY(runtime.poll().isEmpty());
    }

    void upload()
    {
        DriverFixture runtime;
        QCOMPARE(planRecipe({{"D", 100, 2, 7}}), 1);
        runtime.requestRecipeRead();
        QCOMPARE(runtime.poll(), withCrc("01 03 0064 0002"));
        QCOMPARE(runtime.deal(withCrc("01 03 04 1234 5678")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << recipeWord(7));
        QCOMPARE(runtime.poll(), withCrc("01 03 0064 0002"));
        QCOMPARE(runtime.deal(withCrc("01 03 04 9999 5678")), 1);

        // The second block has no start of its own: it fills the cache only.
        QCOMPARE(runtime.reports, QList<Report>() << recipeWord(7));
        QCOMPARE(int(runtime.recipe[7]), 0x1234);
        QCOMPARE(DriverFixture::data(1, "D", 100, 1, 2), bytes("9999"));
        QCOMPARE(int(runtime.shared[60116]), 0);
        QCOMPARE(driver.rcpIndex, 0);
    }

    void uploadOfACounter()
    {
        DriverFixture runtime;
        QCOMPARE(planRecipe({{"32CV", 200, 2, 7}}), 1);
        runtime.requestRecipeRead();
        for (const char* reply : {"01 03 04 12345678", "01 03 04 99999999"}) {
            QCOMPARE(runtime.poll(), withCrc("01 03 25E4 0002"));
            QCOMPARE(runtime.deal(withCrc(reply)), 1);
        }
        QCOMPARE(runtime.reports, QList<Report>() << recipeWord(7) << recipeWord(8));
        QCOMPARE(int(runtime.recipe[7]), 0x5678);
        QCOMPARE(int(runtime.recipe[8]), 0x1234);
        QCOMPARE(DriverFixture::data(1, "32CV", 200, 2, 4), bytes("99999999"));
        QCOMPARE(int(runtime.shared[60116]), 0);
    }
};

QTEST_APPLESS_MAIN(SingleVariableRecipeTest)
#include "tst_single_variable_recipe.moc"
