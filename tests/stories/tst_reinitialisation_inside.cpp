// The runtime initialises again from inside the value-change function, in any report
// of a long reply. What is left of the reply ends well.

#include "stories/restart.h"

#include <QtTest/QTest>

class ReinitialisationInsideTest : public QObject
{
    Q_OBJECT

private slots:
    void insideAnyReportOfARead_data();
    void insideAnyReportOfARead();
    void insideAnyReportOfAWrite_data();
    void insideAnyReportOfAWrite();
    void insideAnyReportOfARecipe();
};

void ReinitialisationInsideTest::insideAnyReportOfARead_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("values");
    QTest::addColumn<int>("reports");
    QTest::newRow("registers") << QByteArray("D") << 100 << 125 << 125 << 125;
    QTest::newRow("double words") << QByteArray("32CV") << 200 << 112 << 56 << 56;
    // Reported are as many coils as the reply has bytes from the first value on.
    QTest::newRow("coils") << QByteArray("M") << 0 << 100 << 100 << 15;
}

// The rest of the reply is stored in the emptied cache, and nothing is left over.
void ReinitialisationInsideTest::insideAnyReportOfARead()
{
    QFETCH(QByteArray, type);
    QFETCH(int, address);
    QFETCH(int, count);
    QFETCH(int, values);
    QFETCH(int, reports);
    for (int report = 0; report < reports; ++report) {
        DriverFixture runtime(PARAMETERS);
        watch(type.constData(), address, count);
        runtime.poll();
        int calls = 0;
        runtime.onReport = [&](const Report&) {
            if (calls++ == report)
                runtime.initialise(PARAMETERS);
        };
        const int dataBytes = runtime.polled().recvLen - 5;
        QCOMPARE(runtime.deal(replyWith(runtime, QByteArray(2 * dataBytes, '7').constData())), 1);
        QVERIFY(calls > report);
        QVERIFY(driver.readList.isEmpty() && driver.frameList.isEmpty());
        QCOMPARE(static_cast<int>(driver.dataAreas.size()), values - report);
        QCOMPARE(driver.errorCount, 0);
        runtime.onReport = nullptr;
        exchangesWell(runtime);
    }
}

void ReinitialisationInsideTest::insideAnyReportOfAWrite_data()
{
    QTest::addColumn<bool>("confirmed");
    QTest::newRow("confirmed") << true;
    QTest::newRow("failed") << false;
}

void ReinitialisationInsideTest::insideAnyReportOfAWrite()
{
    QFETCH(bool, confirmed);
    const int count = 100;
    for (int report = 0; report < count; ++report) {
        DriverFixture runtime("1#0#0#1#125");
        watch("D", 100, count);
        setValues(1, "D", 100, count, QByteArray(4 * count, '7').constData());
        runtime.poll();
        runtime.reports.clear();
        int calls = 0;
        runtime.onReport = [&](const Report&) {
            if (calls++ == report)
                runtime.initialise(PARAMETERS);
        };
        const QByteArray reply = confirmed ? goodReply(runtime) : QByteArray();
        QCOMPARE(runtime.deal(reply), confirmed ? 1 : 2);
        QCOMPARE(runtime.lastError(), confirmed ? QString() : QString("0,1,100,D"));
        // A confirmed write reports every address, a failed one those still watched.
        QCOMPARE(calls, confirmed ? count : report + 1);
        QVERIFY(driver.writeList.isEmpty() && driver.frameList.isEmpty());
        QCOMPARE(driver.errorCount, 0);
        runtime.onReport = nullptr;
        exchangesWell(runtime);
    }
}

void ReinitialisationInsideTest::insideAnyReportOfARecipe()
{
    for (int report = 0; report < RECIPE_BLOCKS; ++report) {
        DriverFixture runtime(PARAMETERS);
        planRecipeOfFourBlocks();
        runtime.requestRecipeRead();
        int calls = 0;
        runtime.onReport = [&](const Report&) {
            if (calls++ == report)
                runtime.initialise(PARAMETERS);
        };
        // The block during which the driver forgot what it was doing comes again.
        QCOMPARE(serve(runtime, RECIPE_BLOCKS + 1).last(), QString("D 730 1"));
        QCOMPARE(calls, RECIPE_BLOCKS + 1);
        QCOMPARE(int(runtime.shared[60116]), 0);
        runtime.onReport = nullptr;
        exchangesWell(runtime);
    }
}

QTEST_APPLESS_MAIN(ReinitialisationInsideTest)
#include "tst_reinitialisation_inside.moc"
