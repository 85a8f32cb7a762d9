// The value-change function calls back into the driver, from a report of each
// kind. Whatever it does there, the call it came from ends well.

#include "data/reentry_steps.h"

#include <QtTest/QTest>

class ReentryTest : public QObject
{
    Q_OBJECT

private slots:
    void everyActionInEverySituation_data()
    {
        QTest::addColumn<int>("situation");
        QTest::addColumn<int>("action");
        for (int s = 0; s < int(situations().size()); ++s) {
            for (int a = 0; a < int(reentries().size()); ++a)
                QTest::newRow(QByteArray(situations().at(s).name) + ": " + reentries().at(a).name)
                    << s << a;
        }
    }

    void everyActionInEverySituation()
    {
        QFETCH(int, situation);
        QFETCH(int, action);
        DriverFixture runtime("1#0#0#3#32");
        watchEverything();
        int depth = 0;
        int calls = 0;
        bool locked = false;
        runtime.onReport = [&](const Report&) {
            const bool free = runtime.mutex.tryLock();
            if (free)
                runtime.mutex.unlock();
            locked = locked || !free;
            if (depth > 0)
                return;
            ++calls;
            ++depth;
            reentries().at(action).step(runtime);
            --depth;
        };
        situations().at(situation).step(runtime);
        QVERIFY(calls > 0);
        QVERIFY(!locked);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(driver.errorCount, 0);
        QVERIFY(driver.condList.size() <= 513);

        // The exchange goes on as if nothing had happened.
        runtime.onReport = nullptr;
        runtime.shared.assign(runtime.shared.size(), 0);
        driver.writeList.clear();
        driver.condList.clear();
        driver.readList.clear();
        driver.readList << job(1, "D", 7, 1);
        QCOMPARE(runtime.poll(), withCrc("01 03 0007 0001"));
        QCOMPARE(runtime.deal(withCrc("01 03 02 4321")), 1);
        QCOMPARE(DriverFixture::data(1, "D", 7, 1, 2), bytes("2143"));
    }

    // A nested write of the same address comes first; the outer one ends on top.
    void theOuterWriteEndsOnTop()
    {
        DriverFixture runtime;
        bool nested = false;
        runtime.onReport = [&](const Report&) {
            if (nested)
                return;
            nested = true;
            setValues(1, "Y", 0, 1, "05");
        };
        setValues(1, "Y", 0, 1, "07");
        QCOMPARE(writtenValue(1, "Y", 0), bytes("07000000"));
        QCOMPARE(static_cast<int>(driver.writeList.size()), 2);
    }

    void aConditionReadAskedForAtTheEndOfAnotherIsKept()
    {
        DriverFixture runtime;
        addCondition(5);
        runtime.onReport = [](const Report&) { addCondition(6); };
        exchange(runtime, "01 03 02 0000");
        QCOMPARE(static_cast<int>(driver.condList.size()), 1);
        QCOMPARE(driver.condList.first().address, 6);
    }

    void aConditionReadAskedForAfterAFailureIsDroppedWithTheRest()
    {
        DriverFixture runtime;
        addCondition(5);
        runtime.onReport = [](const Report&) { addCondition(6); };
        fail(runtime);
        QVERIFY(driver.condList.isEmpty());
    }
};

QTEST_APPLESS_MAIN(ReentryTest)
#include "tst_reentry.moc"
