#include "data/cached_record.h"
#include "data/written_values.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

void store(const char* type, int address, int count, const char* hex)
{
    QByteArray values = bytes(hex);
    write_saveDataToArea(1, QString::fromLatin1(type), address, count,
                         reinterpret_cast<unsigned char*>(values.data()));
}

} // namespace

class WrittenValuesTest : public QObject
{
    Q_OBJECT

private slots:
    void bitTypes_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"X", "Y", "M", "S", "SM", "T", "C"})
            QTest::newRow(type) << type;
    }

    void bitTypes()
    {
        QFETCH(QString, type);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime;
        store(name.constData(), 5, 3, "01 00 01");
        QCOMPARE(runtime.reports, reportsOf(name.constData(), {5, 7}));
        QCOMPARE(cachedCount(), 3);
        QCOMPARE(writtenValue(1, name.constData(), 5), bytes("01000000"));
        QCOMPARE(writtenValue(1, name.constData(), 6), bytes("00000000"));
        QCOMPARE(writtenValue(1, name.constData(), 7), bytes("01000000"));
        QVERIFY(isPending(1, name.constData(), 6));
        QCOMPARE(readValue(1, name.constData(), 7), bytes("00000000"));
    }

    void aBitByteIsStoredAsItIs()
    {
        DriverFixture runtime;
        store("Y", 5, 1, "7F");
        QCOMPARE(writtenValue(1, "Y", 5), bytes("7F000000"));
    }

    void theSameBitIsReportedOnce()
    {
        DriverFixture runtime;
        store("Y", 5, 1, "01");
        store("Y", 5, 1, "01");
        QCOMPARE(runtime.reports, reportsOf("Y", {5}));
        store("Y", 5, 1, "00");
        QCOMPARE(runtime.reports, reportsOf("Y", {5, 5}));
    }

    void bitsAreReportedWithoutMarksAndWordsOnlyWithMarks()
    {
        DriverFixture runtime;
        store("Y", 5, 1, "01");
        store("D", 5, 1, "01 00");
        store("32CV", 205, 2, "01 00 00 00");
        QCOMPARE(runtime.reports, reportsOf("Y", {5}));
        QVERIFY(isPending(1, "D", 5));
        QVERIFY(isPending(1, "32CV", 205));
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
        for (int address = 5; address < 8; ++address)
            record(1, name, address).monitorFlags = 1;
        store(name, 5, 3, "34 12 00 00 00 80");
        QCOMPARE(runtime.reports, reportsOf(name, {5, 7}));
        QCOMPARE(writtenValue(1, name, 5), bytes("34120000"));
        QCOMPARE(writtenValue(1, name, 6), bytes("00000000"));
        QCOMPARE(writtenValue(1, name, 7), bytes("00800000"));
        QCOMPARE(readValue(1, name, 5), bytes("00000000"));
        QVERIFY(isPending(1, name, 5));
        QVERIFY(isPending(1, name, 6));
        QCOMPARE(cachedCount(), 3);
    }

    void aChangedHighByteOfAWordIsAChange()
    {
        DriverFixture runtime;
        setReadValue(1, "D", 5, bytes("34 12"));
        record(1, "D", 5).monitorFlags = 1;
        store("D", 5, 1, "34 12");
        QCOMPARE(runtime.reports, QList<Report>());
        store("D", 5, 1, "34 13");
        QCOMPARE(runtime.reports, reportsOf("D", {5}));
    }

    // From 0x0000 to 0x1234: bits 2, 4, 5, 9 and 12 change.
    void oldAndNewWordReachTheBitMarks()
    {
        DriverFixture runtime;
        record(1, "D", 5).bitMonitorMask = 0xFFFF;
        store("D", 5, 1, "34 12");
        QCOMPARE(runtime.reports, reportsOf("D_bit", {82, 84, 85, 89, 92}));
    }

    void aPendingWriteIsWhatTheNewValueIsComparedWith()
    {
        DriverFixture runtime;
        record(1, "D", 5).bitMonitorMask = 0xFFFF;
        store("D", 5, 1, "01 00");
        store("D", 5, 1, "03 00");
        store("D", 5, 1, "00 00"); // equal to the read value, yet a change
        QCOMPARE(runtime.reports, reportsOf("D_bit", {80, 81, 80, 81}));
    }

    void doubleWords()
    {
        DriverFixture runtime;
        record(1, "32CV", 200).monitorFlags = 1;
        record(1, "32CV", 201).monitorFlags = 1;
        store("32CV", 200, 4, "A0 86 01 00 78 56 34 12");
        QCOMPARE(runtime.reports, reportsOf("32CV", {200, 201}));
        QCOMPARE(writtenValue(1, "32CV", 200), bytes("A0860100"));
        QCOMPARE(writtenValue(1, "32CV", 201), bytes("78563412"));
        QCOMPARE(readValue(1, "32CV", 200), bytes("00000000"));
        QVERIFY(isPending(1, "32CV", 201));
        store("32CV", 200, 4, "A0 86 01 00 78 56 34 13");
        QCOMPARE(runtime.reports, reportsOf("32CV", {200, 201, 201}));
    }

    void nothingToStore_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::newRow("no bits") << "Y" << 0;
        QTest::newRow("negative bits") << "Y" << -1;
        QTest::newRow("no words") << "D" << 0;
        QTest::newRow("negative words") << "D" << INT_MIN;
        QTest::newRow("half a 32CV value") << "32CV" << 1;
        QTest::newRow("no 32CV value") << "32CV" << 0;
        QTest::newRow("negative 32CV") << "32CV" << -3;
        QTest::newRow("unknown type") << "Q" << 1;
        QTest::newRow("lower case") << "d" << 1;
        QTest::newRow("empty type") << "" << 1;
    }

    void nothingToStore()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        DriverFixture runtime;
        store(type.toLatin1().constData(), 5, count, "01 01 01 01");
        QCOMPARE(cachedCount(), 0);
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void anOdd32CVCountStoresWholeValuesOnly()
    {
        DriverFixture runtime;
        store("32CV", 200, 3, "01 02 03 04 05 06");
        QCOMPARE(cachedCount(), 1);
        QCOMPARE(writtenValue(1, "32CV", 200), bytes("01020304"));
    }

    void theReportComesBeforeTheValue_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("first");
        QTest::addColumn<QByteArray>("second");
        QTest::newRow("bit") << "M" << 1 << bytes("01") << bytes("00");
        QTest::newRow("word") << "D" << 1 << bytes("3412") << bytes("7856");
        QTest::newRow("32CV") << "32CV" << 2 << bytes("78563412") << bytes("A0860100");
    }

    void theReportComesBeforeTheValue()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, second);
        const QByteArray name = type.toLatin1();
        const int size = static_cast<int>(first.size());
        DriverFixture runtime;
        record(1, name.constData(), 5).monitorFlags = 1;
        QList<QByteArray> seen;
        runtime.onReport = [&](const Report&) {
            seen << DriverFixture::data(1, name.constData(), 5, count, size);
        };
        store(name.constData(), 5, count, first.toHex().constData());
        store(name.constData(), 5, count, second.toHex().constData());
        QCOMPARE(seen, QList<QByteArray>() << QByteArray(size, '\0') << first);
        QCOMPARE(DriverFixture::data(1, name.constData(), 5, count, size), second);
    }

    void earlierAddressesAreStoredWhenALaterOneIsReported()
    {
        DriverFixture runtime;
        QList<QByteArray> seen;
        runtime.onReport = [&](const Report&) { seen << DriverFixture::data(1, "Y", 0, 3, 3); };
        store("Y", 0, 3, "01 01 01");
        QCOMPARE(seen, QList<QByteArray>()
                           << bytes("000000") << bytes("010000") << bytes("010100"));
    }
};

QTEST_APPLESS_MAIN(WrittenValuesTest)
#include "tst_written_values.moc"
