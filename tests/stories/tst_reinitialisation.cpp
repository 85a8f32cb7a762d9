#include "stories/slave.h"

#include <QtTest/QTest>

class ReinitialisationTest : public QObject
{
    Q_OBJECT

private slots:
    void everythingQueuedIsDropped()
    {
        DriverFixture runtime;
        QList<KEY_ADDRESS> watched;
        watched << key(1, "D", 5, 1);
        intf_addrMerge(watched);
        setValues(1, "Y", 0, 1, "01");
        addCondition(1, "TV", 0, 1);
        runtime.poll();
        runtime.deal(QByteArray());
        runtime.initialise("1#0#0#3#32");
        QCOMPARE(runtime.deal(withCrc("01 05 0000 FF00")), 0); // a reply that comes too late
        QVERIFY(runtime.poll().isEmpty());
        QCOMPARE(driver.errorCount, 0);
        QCOMPARE(DriverFixture::data(1, "Y", 0, 1, 1), bytes("00"));
        intf_addrMerge(watched);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 5 1");
    }

    void aRecipeGoesOnWhereItWas_data()
    {
        QTest::addColumn<bool>("download");
        QTest::addColumn<int>("kind");
        QTest::newRow("download") << true << 5;
        QTest::newRow("upload") << false << 6;
    }

    void aRecipeGoesOnWhereItWas()
    {
        QFETCH(bool, download);
        QFETCH(int, kind);
        DriverFixture runtime;
        planRecipe({{"D", 10, 1, 0}, {"D", 50, 1, 1}, {"D", 90, 1, 2}});
        const size_t flag = download ? 60115 : 60116;
        runtime.shared[flag] = 1;
        QCOMPARE(serve(runtime, 1), QStringList() << "D 10 1");
        runtime.poll(); // the second block is on the wire
        runtime.initialise("1#0#0#3#32");
        QCOMPARE(driver.rcpIndex, 1);
        QCOMPARE(int(runtime.shared[flag]), 1);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(driver.currentKind, 0);

        QCOMPARE(serve(runtime, 2), QStringList() << "D 50 1"
                                                  << "D 90 1");
        QCOMPARE(driver.currentKind, kind);
        QCOMPARE(int(runtime.shared[flag]), 0);
        QCOMPARE(driver.rcpIndex, 0);
    }

    void aRecipeTakenBackKeepsItsPositionForTheNext()
    {
        DriverFixture runtime;
        planRecipe({{"D", 10, 1, 0}, {"D", 50, 1, 1}, {"D", 90, 1, 2}});
        runtime.requestRecipeWrite();
        serve(runtime, 2);
        runtime.shared[60115] = 0;
        runtime.initialise("1#0#0#3#32");
        QVERIFY(runtime.poll().isEmpty());
        runtime.requestRecipeRead();
        QCOMPARE(serve(runtime, 2), QStringList() << "D 90 1"
                                                  << "-");
        QCOMPARE(runtime.reports, QList<Report>() << recipeWord(2));
    }

    void aShorterRecipePlannedInMidTransferEndsAtItsNextReply()
    {
        DriverFixture runtime;
        planRecipe({{"D", 10, 1, 0}, {"D", 50, 1, 1}, {"D", 90, 1, 2}});
        runtime.requestRecipeRead();
        serve(runtime, 2);
        runtime.poll(); // the third block
        planRecipe({{"D", 10, 1, 0}});
        runtime.reports.clear();
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        QCOMPARE(runtime.reports, QList<Report>()); // position 2 has no block start any more
        QCOMPARE(int(runtime.shared[60116]), 0);
        QCOMPARE(driver.rcpIndex, 0);
    }

    void aFailureIsForgotten()
    {
        DriverFixture runtime("1#0#0#1#32");
        addCondition(1, "D", 5, 1);
        failRequest(runtime);
        QCOMPARE(driver.commFailed, 1);
        runtime.initialise("1#0#0#1#32");
        runtime.reports.clear();
        QCOMPARE(driver.commFailed, 0);
        addCondition(1, "D", 5, 1);
        QCOMPARE(serve(runtime, 1), QStringList() << "D 5 1");
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }

    void newParametersCountAtOnce()
    {
        DriverFixture runtime("1#0#0#3#32");
        runtime.initialise("9#1#0#1#2");
        setValues(1, "Y", 0, 1, "01");
        QCOMPARE(runtime.reports, QList<Report>() << (Report{9, 1, "Y", 0}));
        QVERIFY(runtime.poll().isEmpty()); // writes stay local
        addCondition(1, "D", 0, 3);
        QCOMPARE(runtime.poll(), withCrc("01 03 0000 0002"));
        QCOMPARE(runtime.deal(QByteArray()), 2); // the first bad reply is final
    }
};

QTEST_APPLESS_MAIN(ReinitialisationTest)
#include "tst_reinitialisation.moc"
