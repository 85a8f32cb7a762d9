#include "data/recipe_plan.h"

#include <QtTest/QTest>

class RecipeValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void theFirstRegisterOfEachVariableIsCopied()
    {
        DriverFixture runtime("1#0#0#3#32");
        plan({variable("D", 100, 2, 10), variable("D", 102, 1, 20), variable("D", 103, 3, 5)});
        runtime.recipe[11] = 0xAAAA;
        runtime.recipe[6] = 0xBBBB;
        QCOMPARE(answer(runtime, "01 03 0C 1234 5678 9ABC DEF0 1111 2222"), 1);
        QCOMPARE(int(runtime.recipe[10]), 0x1234);
        QCOMPARE(int(runtime.recipe[20]), 0x9ABC);
        QCOMPARE(int(runtime.recipe[5]), 0xDEF0);
        QCOMPARE(int(runtime.recipe[11]), 0xAAAA); // second register: not copied
        QCOMPARE(int(runtime.recipe[6]), 0xBBBB);
        QCOMPARE(runtime.reports, words({10, 20, 5}));
        QCOMPARE(DriverFixture::data(1, "D", 105, 1, 2), bytes("2222")); // all reach the cache
    }

    void theReportComesAfterTheBufferAndTheCache()
    {
        DriverFixture runtime;
        plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
        QList<int> seen;
        QByteArray cachedValues;
        bool locked = false;
        runtime.onReport = [&](const Report& report) {
            seen << runtime.recipe[static_cast<size_t>(report.address)] << runtime.recipe[11];
            cachedValues = DriverFixture::data(1, "D", 100, 2, 4);
            locked = locked || !runtime.mutex.tryLock();
            runtime.mutex.unlock();
        };
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(seen, QList<int>() << 0x1234 << 0 << 0x5678 << 0x5678);
        QCOMPARE(cachedValues, bytes("3412 7856"));
        QVERIFY(!locked);
    }

    void changesAreReportedBeforeTheBufferWords()
    {
        DriverFixture runtime("1#0#0#3#32");
        plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
        record(1, "D", 101).monitorFlags = 1;
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(runtime.reports, reportsOf("D", {101}) + words({10, 11}));
    }

    void unchangedValuesAreCopiedToo()
    {
        DriverFixture runtime;
        plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
        setReadValue(1, "D", 100, bytes("3412"));
        setReadValue(1, "D", 101, bytes("7856"));
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(int(runtime.recipe[10]), 0x1234);
        QCOMPARE(runtime.reports, words({10, 11}));
    }

    void eachBlockTakesItsOwnVariables()
    {
        DriverFixture runtime;
        plan({variable("D", 10, 1, 0), variable("D", 11, 1, 1), variable("D", 100, 1, 2),
              variable("D", 101, 1, 3)});
        QCOMPARE(driver.intList, QList<int>() << 0 << 2);
        answer(runtime, "01 03 04 1111 2222");
        QCOMPARE(runtime.reports, words({0, 1}));
        answer(runtime, "01 03 04 3333 4444");
        QCOMPARE(runtime.reports, words({0, 1, 2, 3}));
        QCOMPARE(int(runtime.recipe[2]), 0x3333);
        QCOMPARE(int(runtime.recipe[3]), 0x4444);
    }

    void wordTypesAreCopied_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"D", "SD", "TV", "CV", "Z"})
            QTest::newRow(type) << type;
    }

    void wordTypesAreCopied()
    {
        QFETCH(QString, type);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        plan({variable(name.constData(), 4, 1, 7), variable(name.constData(), 5, 1, 8)});
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(int(runtime.recipe[7]), 0x1234);
        QCOMPARE(int(runtime.recipe[8]), 0x5678);
        QCOMPARE(runtime.reports, words({7, 8}));
    }

    void bitsReachOnlyTheCache()
    {
        DriverFixture runtime;
        plan({variable("M", 4, 1, 7), variable("M", 5, 1, 8)});
        QCOMPARE(answer(runtime, "01 01 01 03"), 1);
        QCOMPARE(DriverFixture::data(1, "M", 4, 2, 2), bytes("0101"));
        QCOMPARE(int(runtime.recipe[7]), 0);
        QVERIFY(!runtime.reports.contains(Report{0, -1, "RWI", 7}));
    }

    void theTypeOfTheBlockDecidesNotTheVariables()
    {
        DriverFixture runtime;
        plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
        driver.rcpVarsA[1].regType = "M";
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(runtime.reports, words({10, 11}));
    }

    void registersBeyondTheReplyAreZero()
    {
        DriverFixture runtime;
        plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
        driver.rcpVarsA[1].address = 5000;
        runtime.recipe[11] = 0xAAAA;
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(int(runtime.recipe[11]), 0);
        driver.rcpVarsA[1].address = -2000000000;
        runtime.recipe[11] = 0xAAAA;
        driver.rcpIndex = 0;
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(int(runtime.recipe[11]), 0);
    }

    void aPositionWithoutBlockStartFillsTheCacheOnly_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("reply");
        QTest::newRow("word") << "D" << 1 << "01 03 02 1234";
        QTest::newRow("32CV") << "32CV" << 2 << "01 03 04 00001234";
    }

    void aPositionWithoutBlockStartFillsTheCacheOnly()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QString, reply);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        plan({variable(name.constData(), 200, count, 10)}); // two identical blocks, one start
        driver.rcpIndex = 1;
        QCOMPARE(answer(runtime, reply.toLatin1().constData()), 1);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(int(runtime.recipe[10]), 0);
        QCOMPARE(readValue(1, name.constData(), 200), bytes("34120000"));
        QCOMPARE(driver.rcpIndex, 0);
        QCOMPARE(int(runtime.shared[60116]), 0);
    }

    // A first variable longer than the limit opens two blocks, both at variable 0.
    void aBlockWithoutVariablesFillsTheCacheOnly()
    {
        DriverFixture runtime("1#0#0#3#2");
        plan({variable("D", 100, 3, 10), variable("D", 200, 1, 20)});
        QCOMPARE(driver.intList, QList<int>() << 0 << 0 << 1);
        answer(runtime, "01 03 06 1111 2222 3333");
        QCOMPARE(runtime.reports, QList<Report>());
        answer(runtime, "01 03 06 1111 2222 3333");
        QCOMPARE(runtime.reports, words({10}));
        answer(runtime, "01 03 02 4444");
        QCOMPARE(runtime.reports, words({10, 20}));
    }

    // The runtime may have moved the position since the request was built.
    void aPositionBeforeTheStartFillsTheCacheOnly_data()
    {
        aPositionWithoutBlockStartFillsTheCacheOnly_data();
    }

    void aPositionBeforeTheStartFillsTheCacheOnly()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QString, reply);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        plan({variable(name.constData(), 200, count, 10)});
        runtime.requestRecipeRead();
        runtime.poll();
        driver.rcpIndex = -1;
        QCOMPARE(runtime.deal(withCrc(reply.toLatin1().constData())), 1);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(int(runtime.recipe[10]), 0);
        QCOMPARE(readValue(1, name.constData(), 200), bytes("34120000"));
        QCOMPARE(driver.rcpIndex, 0);
    }

    void withoutABufferNothingIsReported()
    {
        DriverFixture runtime;
        plan({variable("D", 100, 1, 10), variable("D", 101, 1, 11)});
        driver.recipeBuffer = nullptr;
        QCOMPARE(answer(runtime, "01 03 04 1234 5678"), 1);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(DriverFixture::data(1, "D", 101, 1, 2), bytes("7856"));
    }

    void wordsBeforeTheBufferAreSkipped()
    {
        DriverFixture runtime;
        plan({variable("D", 100, 1, -1), variable("D", 101, 1, 0)});
        answer(runtime, "01 03 04 1234 5678");
        QCOMPARE(runtime.reports, words({0}));
        QCOMPARE(int(runtime.recipe[0]), 0x5678);
    }

    void otherReadsLeaveTheBufferAlone_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("cyclic");
        QTest::newRow("words, cyclic") << "D" << true;
        QTest::newRow("words, one-off") << "D" << false;
        QTest::newRow("32CV, cyclic") << "32CV" << true;
        QTest::newRow("32CV, one-off") << "32CV" << false;
    }

    void otherReadsLeaveTheBufferAlone()
    {
        QFETCH(QString, type);
        QFETCH(bool, cyclic);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        plan({variable(name.constData(), 200, 2, 10), variable(name.constData(), 202, 2, 12)});
        (cyclic ? driver.readList : driver.condList) << job(1, name.constData(), 200, 2);
        runtime.poll();
        QCOMPARE(runtime.deal(withCrc("01 03 04 1234 5678")), 1);
        QCOMPARE(int(runtime.recipe[10]), 0);
        QCOMPARE(runtime.reports, QList<Report>());
    }
};

QTEST_APPLESS_MAIN(RecipeValuesTest)
#include "tst_recipe_values.moc"
