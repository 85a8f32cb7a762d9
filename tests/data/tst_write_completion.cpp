#include "data/cached_record.h"
#include "data/write_completion.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

const int CONFIRMED = 1;
const int FAILED = 0;

void settle(const char* type, int address, int count, int success)
{
    _write_FailOrSuc(1, QString::fromLatin1(type), address, count, success);
}

// A value read and another one written over it, not settled yet.
void prepare(const char* type, int address, const char* read, const char* written)
{
    setReadValue(1, type, address, bytes(read));
    _DATA_& area = record(1, type, address);
    const QByteArray value = bytes(written);
    for (int i = 0; i < value.size(); ++i)
        area.writeValue[i] = static_cast<unsigned char>(value.at(i));
    area.writePending = 1;
}

} // namespace

class WriteCompletionTest : public QObject
{
    Q_OBJECT

private slots:
    void confirmedBits_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"X", "Y", "M", "S", "SM", "T", "C"})
            QTest::newRow(type) << type;
    }

    void confirmedBits()
    {
        QFETCH(QString, type);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        DriverFixture runtime;
        prepare(name, 10, "00", "01");
        prepare(name, 11, "01", "01");
        settle(name, 10, 2, CONFIRMED);
        QCOMPARE(runtime.reports, reportsOf(name, {10, 11})); // changed or not
        QCOMPARE(readValue(1, name, 10), bytes("01000000"));
        QVERIFY(!isPending(1, name, 10));
        QVERIFY(!isPending(1, name, 11));
    }

    void failedBits_data() { confirmedBits_data(); }

    void failedBits()
    {
        QFETCH(QString, type);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        DriverFixture runtime;
        for (int address = 10; address < 13; ++address)
            prepare(name, address, "00", "01");
        settle(name, 10, 3, FAILED);
        QCOMPARE(runtime.reports, reportsOf(name, {10, 11, 12}));
        QCOMPARE(readValue(1, name, 10), bytes("00000000"));
        QCOMPARE(DriverFixture::data(1, name, 10, 3, 3), bytes("000000"));
        QVERIFY(!isPending(1, name, 12));
    }

    void confirmedWords_data()
    {
        QTest::addColumn<QString>("type");
        for (const char* type : {"D", "SD", "TV", "CV", "Z"})
            QTest::newRow(type) << type;
    }

    void confirmedWords()
    {
        QFETCH(QString, type);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        DriverFixture runtime;
        prepare(name, 5, "00 00", "34 12");
        prepare(name, 6, "01 00", "01 00");
        settle(name, 5, 2, CONFIRMED);
        QCOMPARE(runtime.reports, reportsOf(name, {5, 6})); // without marks, changed or not
        QCOMPARE(readValue(1, name, 5), bytes("34120000"));
        QVERIFY(!isPending(1, name, 5));
    }

    void failedWords_data() { confirmedWords_data(); }

    void failedWords()
    {
        QFETCH(QString, type);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        DriverFixture runtime;
        prepare(name, 5, "03 00", "07 00"); // watched and different
        prepare(name, 6, "03 00", "07 00"); // not watched
        prepare(name, 7, "07 00", "07 00"); // watched, equal
        record(1, name, 5).monitorFlags = 1;
        record(1, name, 7).monitorFlags = 1;
        settle(name, 5, 3, FAILED);
        QCOMPARE(runtime.reports, reportsOf(name, {5}));
        QCOMPARE(DriverFixture::data(1, name, 5, 3, 6), bytes("0300 0300 0700"));
        QVERIFY(!isPending(1, name, 6));
        QVERIFY(!isPending(1, name, 7));
    }

    void aFailedWordReportsTheBitsInWhichItDiffers()
    {
        DriverFixture runtime;
        prepare("D", 5, "03 00", "06 80");
        record(1, "D", 5).bitMonitorMask = 0xFFFF;
        record(1, "D", 5).monitorFlags = 7;
        settle("D", 5, 1, FAILED);
        QCOMPARE(runtime.reports,
                 reportsOf("D_bit", {80, 82, 95}) + reportsOf("D", {5}) + reportsOf("D32", {5, 4}));
    }

    void doubleWordsReportByTheirMarks_data()
    {
        QTest::addColumn<int>("success");
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("confirmed") << CONFIRMED << bytes("A0860100");
        QTest::newRow("failed") << FAILED << bytes("01020304");
    }

    void doubleWordsReportByTheirMarks()
    {
        QFETCH(int, success);
        QFETCH(QByteArray, value);
        DriverFixture runtime;
        prepare("32CV", 200, "01020304", "A0860100");
        prepare("32CV", 201, "01020304", "A0860100");
        prepare("32CV", 202, "01020304", "A0860100"); // beyond the job
        record(1, "32CV", 201).monitorFlags = 1;
        settle("32CV", 200, 4, success);
        QCOMPARE(runtime.reports, reportsOf("32CV", {201}));
        QCOMPARE(DriverFixture::data(1, "32CV", 200, 2, 4), value);
        QCOMPARE(DriverFixture::data(1, "32CV", 201, 2, 4), value);
        QVERIFY(!isPending(1, "32CV", 200));
        QVERIFY(!isPending(1, "32CV", 201));
        QVERIFY(isPending(1, "32CV", 202));
    }

    void anyOtherSuccessIsAFailure()
    {
        for (const int success : {2, -1, 256}) {
            DriverFixture runtime;
            prepare("D", 5, "03 00", "07 00");
            settle("D", 5, 1, success);
            QCOMPARE(readValue(1, "D", 5), bytes("03000000"));
            QCOMPARE(runtime.reports, QList<Report>());
        }
    }

    void nothingToSettle_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::newRow("no bits") << "Y" << 0;
        QTest::newRow("negative words") << "D" << -5;
        QTest::newRow("fewest words") << "D" << INT_MIN;
        QTest::newRow("half a 32CV value") << "32CV" << 1;
        QTest::newRow("unknown type") << "Q" << 3;
    }

    void nothingToSettle()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        DriverFixture runtime;
        settle(type.toLatin1().constData(), 5, count, CONFIRMED);
        settle(type.toLatin1().constData(), 5, count, FAILED);
        QCOMPARE(cachedCount(), 0);
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void anAddressNeverWrittenGetsARecord()
    {
        DriverFixture runtime;
        settle("D", 5, 1, CONFIRMED);
        QVERIFY(isCached(1, "D", 5));
        QCOMPARE(runtime.reports, reportsOf("D", {5}));
    }

    void everythingIsSettledWhenItIsReported_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("success");
        QTest::addColumn<QByteArray>("seen");
        QTest::newRow("bit confirmed") << "Y" << CONFIRMED << bytes("07");
        QTest::newRow("bit failed") << "Y" << FAILED << bytes("03");
        QTest::newRow("word confirmed") << "D" << CONFIRMED << bytes("0700");
        QTest::newRow("word failed") << "D" << FAILED << bytes("0300");
        QTest::newRow("32CV confirmed") << "32CV" << CONFIRMED << bytes("07000000");
        QTest::newRow("32CV failed") << "32CV" << FAILED << bytes("03000000");
    }

    void everythingIsSettledWhenItIsReported()
    {
        QFETCH(QString, type);
        QFETCH(int, success);
        QFETCH(QByteArray, seen);
        const QByteArray latin = type.toLatin1();
        const char* const name = latin.constData();
        const int count = type == "32CV" ? 2 : 1;
        DriverFixture runtime;
        prepare(name, 5, "03", "07");
        record(1, name, 5).monitorFlags = 1;
        QByteArray value;
        bool pending = true;
        runtime.onReport = [&](const Report&) {
            value = DriverFixture::data(1, name, 5, count, static_cast<int>(seen.size()));
            pending = isPending(1, name, 5);
        };
        settle(name, 5, count, success);
        QCOMPARE(value, seen);
        QVERIFY(!pending);
    }
};

QTEST_APPLESS_MAIN(WriteCompletionTest)
#include "tst_write_completion.moc"
