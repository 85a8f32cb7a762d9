// Replies to writes, and what the value-change function sees from inside.

#include "data/cached_record.h"

#include <QtTest/QTest>

namespace
{

struct Moment {
    int commFailed;
    int errorCount;
    int frames;
    int writes;
    QByteArray value;
};

Moment now(const char* type, int address, int count, int size)
{
    return {driver.commFailed, driver.errorCount, static_cast<int>(driver.frameList.size()),
            static_cast<int>(driver.writeList.size()),
            DriverFixture::data(1, type, address, count, size)};
}

} // namespace

class WriteRepliesTest : public QObject
{
    Q_OBJECT

private slots:
    void aConfirmedWriteIsSettledBeforeItIsRetired()
    {
        DriverFixture runtime;
        setValues(1, "D", 5, 1, "34 12");
        const QByteArray request = runtime.poll();
        driver.commFailed = 1;
        driver.errorCount = 2;
        Moment seen = {};
        runtime.onReport = [&](const Report&) { seen = now("D", 5, 1, 2); };
        QCOMPARE(runtime.deal(request), 1);

        QCOMPARE(runtime.reports, reportsOf("D", {5}));
        QCOMPARE(seen.value, bytes("3412"));
        QCOMPARE(seen.frames, 1);
        QCOMPARE(seen.writes, 1);
        QCOMPARE(seen.commFailed, 1); // cleared once the write is settled
        QCOMPARE(driver.commFailed, 0);
        QCOMPARE(driver.errorCount, 0);
        QVERIFY(driver.frameList.isEmpty());
        QVERIFY(driver.writeList.isEmpty());
        QCOMPARE(readValue(1, "D", 5), bytes("34120000"));
    }

    void aFailedWriteIsSettledBeforeItIsRetired()
    {
        DriverFixture runtime;
        setReadValue(1, "D", 5, bytes("0300"));
        setValues(1, "D", 5, 1, "07 00");
        record(1, "D", 5).monitorFlags = 1;
        runtime.poll();
        Moment seen = {};
        runtime.onReport = [&](const Report&) { seen = now("D", 5, 1, 2); };
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QCOMPARE(runtime.deal(QByteArray()), 8);
        QVERIFY(isPending(1, "D", 5)); // untouched while retries remain
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(runtime.deal(bytes("01 86 02 C3 A1")), 2);

        QCOMPARE(runtime.lastError(), QString("5,1,5,D"));
        QCOMPARE(runtime.reports, reportsOf("D", {5}));
        QCOMPARE(seen.value, bytes("0300"));
        QCOMPARE(seen.frames, 1);
        QCOMPARE(seen.writes, 1);
        QCOMPARE(seen.commFailed, 1);
        QCOMPARE(seen.errorCount, 3);
        QVERIFY(driver.writeList.isEmpty());
        QCOMPARE(int(cached(1, "D", 5).commError), 0); // a failed write marks nothing
    }

    void aFailedUnwatchedWordFallsBackSilently()
    {
        DriverFixture runtime("1#0#0#1#32");
        setReadValue(1, "D", 5, bytes("0300"));
        setValues(1, "D", 5, 1, "07 00");
        runtime.poll();
        runtime.deal(QByteArray());
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("0300"));
    }

    void failedCoilsAreAllReported()
    {
        DriverFixture runtime("1#0#0#1#32");
        setValues(1, "Y", 10, 3, "01 00 01");
        runtime.reports.clear();
        runtime.poll();
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.reports, reportsOf("Y", {10, 11, 12}));
        QCOMPARE(DriverFixture::data(1, "Y", 10, 3, 3), bytes("000000"));
    }

    void aConfirmed32CVWriteSettlesBothValues()
    {
        DriverFixture runtime;
        setValues(1, "32CV", 200, 4, "01000000 02000000");
        runtime.poll();
        QCOMPARE(runtime.deal(bytes("01"   // station
                                    "10"   // write multiple registers
                                    "25E4" // register 9700
                                    "0004" // four registers
                                    "8A F1")),
                 1);
        QCOMPARE(readValue(1, "32CV", 200), bytes("01000000"));
        QCOMPARE(readValue(1, "32CV", 201), bytes("02000000"));
        QVERIFY(!isPending(1, "32CV", 201));
    }

    void aRecipeWriteSettlesNothing_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<int>("result");
        QTest::newRow("confirmed") << bytes("01 06 0005 1234 94 BC") << 1;
        QTest::newRow("failed") << QByteArray() << 2;
    }

    void aRecipeWriteSettlesNothing()
    {
        QFETCH(QByteArray, reply);
        DriverFixture runtime("1#1#0#1#32"); // writes stay local
        setValues(1, "D", 5, 1, "07 00");
        _RCP_VAR_PRO block = _RCP_VAR_PRO();
        block.station = 1;
        block.regType = "D";
        block.address = 5;
        block.count = 1;
        driver.rcpVars << block;
        runtime.requestRecipeWrite();
        runtime.poll();
        QTEST(runtime.deal(reply), "result");
        QVERIFY(isPending(1, "D", 5));
        QCOMPARE(readValue(1, "D", 5), bytes("00000000"));
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(int(runtime.shared[60115]), 0);
    }

    // What a changed read shows from inside: the value before, no pending write.
    void aChangedReadIsReportedBeforeItIsStored_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("coil") << "M" << 1 << withCrc("01 01 01 03") << bytes("00") << bytes("01");
        QTest::newRow("word") << "D" << 1 << withCrc("01 03 02 1234") << bytes("0000")
                              << bytes("3412");
        QTest::newRow("32CV") << "32CV" << 2 << withCrc("01 03 04 000186A0") << bytes("00000000")
                              << bytes("A0860100");
    }

    void aChangedReadIsReportedBeforeItIsStored()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QByteArray, reply);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        const int size = static_cast<int>(after.size());
        DriverFixture runtime("1#1#0#3#32");
        record(1, name, 5).monitorFlags = 1;
        setValues(1, name, 5, count, "77777777");
        driver.commFailed = 1;
        driver.readList << job(1, name, 5, count);
        runtime.poll();
        Moment seen = {};
        bool locked = true;
        runtime.onReport = [&](const Report&) {
            seen = now(name, 5, count, size);
            locked = !runtime.mutex.tryLock();
            runtime.mutex.unlock();
        };
        QCOMPARE(runtime.deal(reply), 1);
        QCOMPARE(seen.value, before);
        QCOMPARE(seen.commFailed, 0);
        QCOMPARE(seen.frames, 1);
        QVERIFY(!locked);
        QCOMPARE(DriverFixture::data(1, name, 5, count, size), after);
    }

    void theEndOfAConditionReadSeesItsValues()
    {
        DriverFixture runtime;
        KEY_ADDRESS wanted = key(1, "D", 5, 1);
        intf_addConditionRead(wanted, 3);
        runtime.poll();
        driver.errorCount = 2;
        Moment seen = {};
        runtime.onReport = [&](const Report&) { seen = now("D", 5, 1, 2); };
        runtime.deal(withCrc("01 03 02 1234"));
        QCOMPARE(runtime.reports, QList<Report>() << (Report{-1, -1, "-1", 0}));
        QCOMPARE(seen.value, bytes("3412"));
        QCOMPARE(seen.frames, 0);
        QCOMPARE(seen.errorCount, 2); // the count starts again after the report
        QCOMPARE(driver.errorCount, 0);
    }

    void theFailureOfAConditionReadSeesItsMarks()
    {
        DriverFixture runtime("1#0#0#1#32");
        KEY_ADDRESS wanted = key(1, "D", 5, 1);
        intf_addConditionRead(wanted, 3);
        runtime.poll();
        Moment seen = {};
        int marked = 0;
        runtime.onReport = [&](const Report&) {
            seen = now("D", 5, 1, 2);
            marked = cached(1, "D", 5).commError;
        };
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.reports, QList<Report>() << (Report{-1, -1, "-1", -1}));
        QCOMPARE(seen.frames, 0);
        QCOMPARE(seen.errorCount, 0);
        QCOMPARE(seen.commFailed, 1);
        QCOMPARE(marked, 1);
    }
};

QTEST_APPLESS_MAIN(WriteRepliesTest)
#include "tst_write_replies.moc"
