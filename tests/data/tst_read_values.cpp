#include "data/cached_record.h"

#include <QtTest/QTest>

namespace
{

// Sends one cyclic read and hands over the reply given without its CRC.
int answer(DriverFixture& runtime, const char* type, int address, int count, const char* hex)
{
    driver.readList.clear();
    driver.readList << job(1, type, address, count);
    runtime.poll();
    return runtime.deal(withCrc(hex));
}

QByteArray bits(const char* type, int address, int count)
{
    return DriverFixture::data(1, type, address, count, count);
}

} // namespace

class ReadValuesTest : public QObject
{
    Q_OBJECT

private slots:
    // The two data bytes and the CRC (low 0xB8, high 0x6C) are what each address
    // is compared with.
    void sixteenCoils()
    {
        DriverFixture runtime;
        driver.readList << job(1, "M", 0, 16);
        runtime.poll();
        QCOMPARE(runtime.deal(bytes("01" // station
                                    "01" // read coils
                                    "02" // two bytes
                                    "01" // M0
                                    "00" // none of M8 to M15
                                    "B8 6C")),
                 1);
        QCOMPARE(bits("M", 0, 16), bytes("01000000000000000000000000000000"));
        QCOMPARE(runtime.reports, reportsOf("M", {0, 2, 3}));
    }

    void coilsAreReportedAtEveryPoll()
    {
        DriverFixture runtime;
        answer(runtime, "M", 0, 2, "01 01 01 03"); // packed byte 3 is neither 0 nor 1
        runtime.reports.clear();
        answer(runtime, "M", 0, 2, "01 01 01 03");
        QVERIFY(runtime.reports.contains(Report{1, 1, "M", 0}));
        QCOMPARE(bits("M", 0, 2), bytes("0101"));
    }

    void aSingleCoilIsReportedWhenItChanges()
    {
        DriverFixture runtime;
        answer(runtime, "M", 7, 1, "01 01 01 01");
        answer(runtime, "M", 7, 1, "01 01 01 01");
        QCOMPARE(runtime.reports, reportsOf("M", {7}));
        answer(runtime, "M", 7, 1, "01 01 01 00");
        QCOMPARE(runtime.reports, reportsOf("M", {7, 7}));
    }

    void bitTypes_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"X", "Y", "M", "S", "SM", "T", "C"})
            QTest::newRow(type) << type;
    }

    void bitTypes()
    {
        QFETCH(QString, type);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        DriverFixture runtime;
        QCOMPARE(answer(runtime, name, 10, 10, "01 01 02 A5 02"), 1);
        QCOMPARE(bits(name, 10, 10), bytes("01000100000100010001"));
        QCOMPARE(cachedCount(), 10);
        QVERIFY(runtime.reports.contains(Report{1, 1, type, 10})); // not watched
    }

    // Compared with 0x01: equal, so the pending write stays; with 0x03: not.
    void aReportedCoilLosesItsPendingWrite()
    {
        DriverFixture runtime;
        setReadValue(1, "M", 7, bytes("01"));
        record(1, "M", 7).writePending = 1;
        answer(runtime, "M", 7, 1, "01 01 01 01");
        QVERIFY(isPending(1, "M", 7));
        answer(runtime, "M", 7, 1, "01 01 01 03");
        QVERIFY(!isPending(1, "M", 7));
        QCOMPARE(readValue(1, "M", 7), bytes("01000000"));
    }

    void wordTypes_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"D", "SD", "TV", "CV", "Z"})
            QTest::newRow(type) << type;
    }

    void wordTypes()
    {
        QFETCH(QString, type);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        DriverFixture runtime;
        record(1, name, 5).monitorFlags = 1;
        record(1, name, 7).monitorFlags = 1;
        QCOMPARE(answer(runtime, name, 5, 3, "01 03 06 1234 5678 0000"), 1);
        QCOMPARE(DriverFixture::data(1, name, 5, 3, 6), bytes("3412 7856 0000"));
        QCOMPARE(readValue(1, name, 5), bytes("34120000"));
        QCOMPARE(runtime.reports, reportsOf(name, {5})); // 6 unwatched, 7 unchanged
        QCOMPARE(cachedCount(), 3);
    }

    void oneChangedByteOfAWordIsEnough()
    {
        DriverFixture runtime;
        record(1, "D", 5).monitorFlags = 1;
        answer(runtime, "D", 5, 1, "01 03 02 1234");
        answer(runtime, "D", 5, 1, "01 03 02 1235");
        answer(runtime, "D", 5, 1, "01 03 02 1335");
        answer(runtime, "D", 5, 1, "01 03 02 1335");
        QCOMPARE(runtime.reports, reportsOf("D", {5, 5, 5}));
    }

    // From 0x0003 to 0x8001: bits 1 and 15 change.
    void oldAndNewWordReachTheBitMarks()
    {
        DriverFixture runtime;
        answer(runtime, "D", 5, 1, "01 03 02 0003");
        record(1, "D", 5).bitMonitorMask = 0xFFFF;
        answer(runtime, "D", 5, 1, "01 03 02 8001");
        QCOMPARE(runtime.reports, reportsOf("D_bit", {81, 95}));
    }

    void aWordReplyAndAPendingWrite()
    {
        DriverFixture runtime;
        answer(runtime, "D", 5, 1, "01 03 02 1234");
        setValues(1, "D", 5, 1, "78 56");
        driver.writeList.clear();
        answer(runtime, "D", 5, 1, "01 03 02 1234"); // as cached: the write stays
        QVERIFY(isPending(1, "D", 5));
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("7856"));
        answer(runtime, "D", 5, 1, "01 03 02 1235"); // the device's value wins
        QVERIFY(!isPending(1, "D", 5));
        QCOMPARE(DriverFixture::data(1, "D", 5, 1, 2), bytes("3512"));
    }

    void aReservedFieldKeepsThePendingWriteOfAWord()
    {
        DriverFixture runtime;
        setValues(1, "D", 5, 1, "78 56");
        driver.writeList.clear();
        record(1, "D", 5).reserved = 1;
        answer(runtime, "D", 5, 1, "01 03 02 1234");
        QVERIFY(isPending(1, "D", 5));
        QCOMPARE(readValue(1, "D", 5), bytes("34120000"));
        QCOMPARE(cached(1, "D", 5).reserved, 1);
    }

    void doubleWords()
    {
        DriverFixture runtime;
        record(1, "32CV", 200).monitorFlags = 1;
        QCOMPARE(answer(runtime, "32CV", 200, 4, "01 03 08 000186A0 12345678"), 1);
        QCOMPARE(readValue(1, "32CV", 200), bytes("A0860100")); // 100000
        QCOMPARE(readValue(1, "32CV", 201), bytes("78563412"));
        QCOMPARE(runtime.reports, reportsOf("32CV", {200}));
        QCOMPARE(cachedCount(), 2);
    }

    void anyChangedByteOfADoubleWordIsEnough()
    {
        DriverFixture runtime;
        record(1, "32CV", 200).monitorFlags = 1;
        const char* const replies[] = {"01 03 04 00000001", "01 03 04 00000101",
                                       "01 03 04 00010101", "01 03 04 01010101",
                                       "01 03 04 01010101"};
        for (const char* reply : replies)
            answer(runtime, "32CV", 200, 2, reply);
        QCOMPARE(runtime.reports, reportsOf("32CV", {200, 200, 200, 200}));
    }

    void aDoubleWordReplyAndAPendingWrite()
    {
        DriverFixture runtime;
        setValues(1, "32CV", 200, 2, "01 00 00 00");
        driver.writeList.clear();
        record(1, "32CV", 200).reserved = 1; // kept for words only
        answer(runtime, "32CV", 200, 2, "01 03 04 00000000");
        QVERIFY(isPending(1, "32CV", 200));
        answer(runtime, "32CV", 200, 2, "01 03 04 00000002");
        QVERIFY(!isPending(1, "32CV", 200));
        QCOMPARE(DriverFixture::data(1, "32CV", 200, 2, 4), bytes("02000000"));
    }

    void halfADoubleWordAndAnUnknownTypeAreNotDecoded()
    {
        DriverFixture runtime;
        QCOMPARE(answer(runtime, "32CV", 200, 3, "01 03 06 000186A0 1234"), 1);
        QCOMPARE(cachedCount(), 1);
        QCOMPARE(answer(runtime, "32CV", 210, 1, "01 03 02 1234"), 1);
        QCOMPARE(answer(runtime, "Q", 5, 1, "01 03 02 1234"), 1);
        QCOMPARE(cachedCount(), 1);
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void aGoodReplyClearsTheErrorMark_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("reply");
        QTest::newRow("coil, unchanged") << "M" << 1 << "01 01 01 00";
        QTest::newRow("coil, changed") << "M" << 1 << "01 01 01 01";
        QTest::newRow("word, unchanged") << "D" << 1 << "01 03 02 0000";
        QTest::newRow("word, changed") << "D" << 1 << "01 03 02 1234";
        QTest::newRow("32CV, unchanged") << "32CV" << 2 << "01 03 04 00000000";
        QTest::newRow("32CV, changed") << "32CV" << 2 << "01 03 04 00000001";
    }

    void aGoodReplyClearsTheErrorMark()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QString, reply);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        record(1, name.constData(), 5).commError = 1;
        record(1, name.constData(), 5).monitorFlags = 1;
        bool clearedFirst = true;
        runtime.onReport = [&](const Report&) {
            clearedFirst = cached(1, name.constData(), 5).commError == 0;
        };
        answer(runtime, name.constData(), 5, count, reply.toLatin1().constData());
        QCOMPARE(int(cached(1, name.constData(), 5).commError), 0);
        QVERIFY(clearedFirst);
    }
};

QTEST_APPLESS_MAIN(ReadValuesTest)
#include "tst_read_values.moc"
