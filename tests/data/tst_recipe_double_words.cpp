#include "data/recipe_plan.h"

#include <QtTest/QTest>

class RecipeDoubleWordsTest : public QObject
{
    Q_OBJECT

private slots:
    void doubleWordsAreCopiedLowWordFirst()
    {
        DriverFixture runtime;
        plan({variable("32CV", 200, 2, 10), variable("32CV", 201, 2, 12)});
        setReadValue(1, "32CV", 201, bytes("A0860100")); // unchanged values are copied too
        QList<int> seen;
        runtime.onReport = [&](const Report&) { seen << runtime.recipe[10] << runtime.recipe[11]; };
        QCOMPARE(answer(runtime, "01 03 08 12345678 000186A0"), 1);
        QCOMPARE(int(runtime.recipe[10]), 0x5678);
        QCOMPARE(int(runtime.recipe[11]), 0x1234);
        QCOMPARE(int(runtime.recipe[12]), 0x86A0);
        QCOMPARE(int(runtime.recipe[13]), 0x0001);
        QCOMPARE(runtime.reports, words({10, 11, 12, 13}));
        QCOMPARE(seen.mid(0, 2), QList<int>() << 0x5678 << 0x1234); // both before the first report
        QCOMPARE(readValue(1, "32CV", 200), bytes("78563412"));
    }

    // The second block begins with variable 2, yet position 1 names variable 1.
    void doubleWordsTakeTheOffsetOfThePositionItself()
    {
        DriverFixture runtime;
        plan({variable("32CV", 200, 2, 10), variable("32CV", 201, 2, 20),
              variable("32CV", 210, 2, 30)});
        QCOMPARE(driver.intList, QList<int>() << 0 << 2);
        answer(runtime, "01 03 08 00000001 00000002");
        runtime.reports.clear();
        answer(runtime, "01 03 04 12345678");
        QCOMPARE(runtime.reports, words({20, 21}));
        QCOMPARE(int(runtime.recipe[20]), 0x5678);
        QCOMPARE(int(runtime.recipe[30]), 0);
    }

    // So a recipe buffer has room for the longest block from each offset on.
    void aLongBlockReachesPastTheVariableOfItsPosition()
    {
        DriverFixture runtime;
        plan({variable("32CV", 200, 2, 20), variable("32CV", 201, 2, 22),
              variable("32CV", 220, 8, 0)});
        answer(runtime, "01 03 08 00000001 00000002");
        runtime.reports.clear();
        answer(runtime, "01 03 10 00000003 00000004 00000005 00000006");
        QCOMPARE(runtime.reports, words({22, 23, 24, 25, 26, 27, 28, 29}));
        QCOMPARE(int(runtime.recipe[28]), 6);
    }

    void halvesOfADoubleWordBeforeTheBufferAreSkipped()
    {
        DriverFixture runtime;
        plan({variable("32CV", 200, 2, -1)});
        answer(runtime, "01 03 04 12345678");
        QCOMPARE(runtime.reports, words({0}));
        QCOMPARE(int(runtime.recipe[0]), 0x1234);
    }

    void aDoubleWordBeforeTheBufferIsSkipped()
    {
        DriverFixture runtime;
        plan({variable("32CV", 200, 2, -2)});
        answer(runtime, "01 03 04 12345678");
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(int(runtime.recipe[0]), 0);
        QCOMPARE(readValue(1, "32CV", 200), bytes("78563412"));
    }
};

QTEST_APPLESS_MAIN(RecipeDoubleWordsTest)
#include "tst_recipe_double_words.moc"
