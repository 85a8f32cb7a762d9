// Parameters and fields that mean something only at a few values: each counts whole.

#include "data/cached_record.h"
#include "stories/far_off_codes.h"

#include <QtTest/QTest>

namespace
{

QByteArray parameters(const char* before, int code, const char* behind)
{
    return before + QByteArray::number(code) + behind;
}

} // namespace

class FarOffFieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void kindsOfJobs_data() { addOthersThan({}); }
    void kindsOfJobs();
    void localWrites_data() { addOthersThan({0}); }
    void localWrites();
    void retryLimits_data() { addOthersThan({2}); }
    void retryLimits();
    void reservedFields_data() { addOthersThan({0}); }
    void reservedFields();
};

// The runtime's kinds are carried; what a job is, the queue says in which it waits.
void FarOffFieldsTest::kindsOfJobs()
{
    QFETCH(int, code);
    DriverFixture runtime;
    unsigned char value[2] = {0x34, 0x12};
    intf_setData(1, "D", 5, 1, value, code);
    KEY_ADDRESS wanted = key(1, "D", 5, 1);
    intf_addConditionRead(wanted, code);
    const QByteArray write = runtime.poll();
    QCOMPARE(write, withCrc("01 06 0005 1234"));
    QCOMPARE(runtime.polled().job.kind, code);
    QCOMPARE(driver.currentKind, 2);
    QCOMPARE(runtime.deal(write), 1);
    QVERIFY(!isPending(1, "D", 5) && driver.writeList.isEmpty());
    QCOMPARE(runtime.poll(), withCrc("01 03 0005 0001"));
    QCOMPARE(runtime.polled().job.kind, code);
    QCOMPARE(driver.condVar.kind, code);
    QCOMPARE(driver.currentKind, 3);
    QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
    QVERIFY(driver.condList.isEmpty());
}

void FarOffFieldsTest::localWrites()
{
    QFETCH(int, code);
    DriverFixture runtime(parameters("1#", code, "#0#3#32").constData());
    setValues(1, "D", 5, 1, "34 12");
    QVERIFY(driver.writeList.isEmpty());
    QCOMPARE(writtenValue(1, "D", 5), bytes("34120000"));
}

// Above 2 a second bad reply is not the last one, below it already the first one is.
void FarOffFieldsTest::retryLimits()
{
    QFETCH(int, code);
    DriverFixture runtime(parameters("1#0#0#", code, "#32").constData());
    driver.readList << job(1, "D", 5, 1);
    runtime.poll();
    QCOMPARE(runtime.deal(QByteArray()), code > 2 ? 8 : 2);
    QCOMPARE(runtime.deal(QByteArray()), code > 2 ? 8 : 0);
}

void FarOffFieldsTest::reservedFields()
{
    QFETCH(int, code);
    DriverFixture runtime("1#1#0#3#32");
    setValues(1, "D", 5, 1, "34 12");
    record(1, "D", 5).reserved = code;
    driver.readList << job(1, "D", 5, 1);
    runtime.poll();
    QCOMPARE(runtime.deal(withCrc("01 03 02 0001")), 1);
    QVERIFY(isPending(1, "D", 5));
    QCOMPARE(cached(1, "D", 5).reserved, code);
}

QTEST_APPLESS_MAIN(FarOffFieldsTest)
#include "tst_far_off_fields.moc"
