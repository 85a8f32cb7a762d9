// Replies that bring what is there: what may and what may not be passed over.
#include "data/cached_record.h"

#include <QtTest/QTest>

#include <utility>

namespace
{

// D0 to D7 hold 0x1100 to 0x1107.
const char* const EIGHT_WORDS = "01 03 10 1100 1101 1102 1103 1104 1105 1106 1107";

int answer(DriverFixture& runtime, const char* type, int address, int count, const char* hex)
{
    driver.readList.clear();
    driver.readList << job(1, type, address, count);
    runtime.poll();
    return runtime.deal(withCrc(hex));
}

int answerEightWords(DriverFixture& runtime)
{
    return answer(runtime, "D", 0, 8, EIGHT_WORDS);
}

QByteArray words(int address, int count)
{
    return DriverFixture::data(1, "D", address, count, 2 * count);
}

QList<int> cachedAddresses()
{
    QList<int> addresses;
    for (const _DATA_& area : driver.dataAreas)
        addresses << area.address;
    return addresses;
}

void watch(const char* type, int address, int count)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = 1;
    key.regType = QString::fromLatin1(type);
    key.address = address;
    key.count = count;
    QList<KEY_ADDRESS> keys = {key};
    intf_addrMerge(keys);
}

void appendCopyOf(int record)
{
    _DATA_ copy = driver.dataAreas.at(record);
    copy.regType = QString(copy.regType.constData(), copy.regType.size());
    driver.dataAreas.append(copy);
}

// The runtime empties the cache and writes D7 when it is told of D2.
void emptyTheCacheOnD2(int, int, QString, int address)
{
    if (address != 2)
        return;
    driver.dataAreas.clear();
    unsigned char seven[] = {7, 0};
    intf_setData(1, QString::fromLatin1("D"), 7, 1, seven, WRITE_JOB);
}

} // namespace

class UnchangedRunTest : public QObject
{
    Q_OBJECT

private slots:
    void theSameReplyAgainReportsNothing()
    {
        DriverFixture runtime;
        watch("D", 0, 8);
        QCOMPARE(answerEightWords(runtime), 1);
        QCOMPARE(runtime.reports, reportsOf("D", {0, 1, 2, 3, 4, 5, 6, 7}));
        runtime.reports.clear();
        QCOMPARE(answerEightWords(runtime), 1);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(words(0, 8), bytes("0011 0111 0211 0311 0411 0511 0611 0711"));
        QCOMPARE(cachedAddresses(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7}));
    }

    void oneChangedWord_data()
    {
        QTest::addColumn<int>("changed");
        QTest::newRow("the first") << 0;
        QTest::newRow("in the middle") << 3;
        QTest::newRow("the last") << 7;
    }

    void oneChangedWord()
    {
        QFETCH(int, changed);
        DriverFixture runtime;
        watch("D", 0, 8);
        answerEightWords(runtime);
        setReadValue(1, "D", changed, bytes("EEFF"));
        runtime.reports.clear();
        answerEightWords(runtime);
        QCOMPARE(runtime.reports, reportsOf("D", {changed}));
        QCOMPARE(words(0, 8), bytes("0011 0111 0211 0311 0411 0511 0611 0711"));
    }

    // D3 holds 0x1103's bytes the wrong way round.
    void aWordWithItsBytesExchanged()
    {
        DriverFixture runtime;
        watch("D", 0, 8);
        answerEightWords(runtime);
        setReadValue(1, "D", 3, bytes("1103"));
        runtime.reports.clear();
        answerEightWords(runtime);
        QCOMPARE(runtime.reports, reportsOf("D", {3}));
        QCOMPARE(readValue(1, "D", 3), bytes("03110000"));
    }

    // What is compared is the value read before, not the one written: D3 was 0 until the
    // reply brought what the runtime wrote.
    void aWrittenWordThatTheReplyBrings()
    {
        DriverFixture runtime;
        watch("D", 0, 8);
        answerEightWords(runtime);
        setReadValue(1, "D", 3, bytes("0000"));
        unsigned char written[] = {0x03, 0x11};
        intf_setData(1, QString::fromLatin1("D"), 3, 1, written, WRITE_JOB);
        driver.writeList.clear();
        runtime.reports.clear();
        answerEightWords(runtime);
        QCOMPARE(runtime.reports, reportsOf("D", {3}));
        QCOMPARE(readValue(1, "D", 3), bytes("03110000"));
        QVERIFY(!isPending(1, "D", 3));
    }

    // A written word stays in sight while the reply brings what was read before.
    void aWrittenWordIsPassedOver()
    {
        DriverFixture runtime;
        watch("D", 0, 8);
        answerEightWords(runtime);
        unsigned char written[] = {0x34, 0x12};
        intf_setData(1, QString::fromLatin1("D"), 3, 1, written, WRITE_JOB);
        driver.writeList.clear();
        runtime.reports.clear();
        answerEightWords(runtime);
        QCOMPARE(runtime.reports, QList<Report>());
        QVERIFY(isPending(1, "D", 3));
        QCOMPARE(words(3, 1), bytes("3412"));
    }

    void anErrorMarkInTheMiddleIsTakenOff()
    {
        DriverFixture runtime;
        answerEightWords(runtime);
        for (const int address : {0, 4, 7})
            record(1, "D", address).commError = 1;
        answerEightWords(runtime);
        for (int address = 0; address < 8; ++address)
            QCOMPARE(int(cached(1, "D", address).commError), 0);
    }

    void aPendingWriteOfAnUnchangedWordStays()
    {
        DriverFixture runtime;
        answerEightWords(runtime);
        setValues(1, "D", 3, 1, "9900");
        driver.writeList.clear();
        answerEightWords(runtime);
        QVERIFY(isPending(1, "D", 3));
        QCOMPARE(words(3, 1), bytes("9900"));
    }

    // Cached in the order D0, D1, D5, D2, D3, D4, D6, D7.
    void recordsOutOfOrder()
    {
        DriverFixture runtime;
        for (const int address : {0, 1, 5, 2})
            record(1, "D", address);
        answerEightWords(runtime);
        QCOMPARE(cachedAddresses(), QList<int>({0, 1, 5, 2, 3, 4, 6, 7}));
        for (int round = 0; round < 3; ++round)
            answerEightWords(runtime);
        QCOMPARE(cachedAddresses(), QList<int>({0, 1, 5, 2, 3, 4, 6, 7}));
        QCOMPARE(words(0, 8), bytes("0011 0111 0211 0311 0411 0511 0611 0711"));
    }

    // Another station or type at the next address is another record.
    void neighboursOfAnotherKind()
    {
        DriverFixture runtime;
        record(1, "D", 0);
        record(2, "D", 1);
        record(1, "SD", 2);
        answerEightWords(runtime);
        answerEightWords(runtime);
        QCOMPARE(cachedAddresses(), QList<int>({0, 1, 2, 1, 2, 3, 4, 5, 6, 7}));
        QCOMPARE(readValue(2, "D", 1), bytes("00000000"));
        QCOMPARE(readValue(1, "SD", 2), bytes("00000000"));
    }

    void aNeighbourOfAnotherKindThatHoldsTheSameValue_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("address");
        QTest::newRow("of another station") << 2 << "D" << 1;
        QTest::newRow("of another type") << 1 << "SD" << 1;
        QTest::newRow("of another address") << 1 << "D" << 9;
    }

    void aNeighbourOfAnotherKindThatHoldsTheSameValue()
    {
        QFETCH(int, station);
        QFETCH(QString, type);
        QFETCH(int, address);
        DriverFixture runtime;
        record(1, "D", 0).value[1] = 0x11; // 0x1100
        _DATA_& neighbour = record(station, qPrintable(type), address);
        neighbour.value[0] = 0x01; // 0x1101
        neighbour.value[1] = 0x11;
        answerEightWords(runtime);
        QCOMPARE(words(0, 8), bytes("0011 0111 0211 0311 0411 0511 0611 0711"));
        QCOMPARE(cachedAddresses(), QList<int>({0, address, 1, 2, 3, 4, 5, 6, 7}));
    }

    void aShorterCacheIsFilledUp()
    {
        DriverFixture runtime;
        answer(runtime, "D", 0, 4, "01 03 08 1100 1101 1102 1103");
        answerEightWords(runtime);
        QCOMPARE(cachedAddresses(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7}));
    }

    // Appended from outside, under a name that is a copy: the first one counts.
    void aRecordThatIsThereTwice()
    {
        DriverFixture runtime;
        watch("D", 0, 8);
        answerEightWords(runtime);
        appendCopyOf(2);
        driver.dataAreas[2].value[0] = 0xFF;
        runtime.reports.clear();
        answerEightWords(runtime);
        QCOMPARE(runtime.reports, reportsOf("D", {2}));
        QCOMPARE(int(driver.dataAreas.at(2).value[0]), 2);
        driver.dataAreas[8].value[0] = 0xEE;
        answerEightWords(runtime);
        QCOMPARE(int(driver.dataAreas.at(8).value[0]), 0xEE);
        QCOMPARE(cachedCount(), 9);
    }

    void aCacheRefilledInAnotherOrder()
    {
        DriverFixture runtime;
        answerEightWords(runtime);
        std::swap(driver.dataAreas[2], driver.dataAreas[5]);
        answer(runtime, "D", 0, 8, "01 03 10 1100 1101 2222 1103 1104 5555 1106 1107");
        QCOMPARE(cachedAddresses(), QList<int>({0, 1, 5, 3, 4, 2, 6, 7}));
        QCOMPARE(readValue(1, "D", 2), bytes("22220000"));
        QCOMPARE(readValue(1, "D", 5), bytes("55550000"));
    }

    void theCacheEmptiedFromInside()
    {
        DriverFixture runtime;
        watch("D", 0, 8);
        answerEightWords(runtime);
        setReadValue(1, "D", 2, bytes("EEFF"));
        intf_setAddrValueChangeCallBack(emptyTheCacheOnD2);
        answerEightWords(runtime);
        // D7 by the write from inside, then D2, whose value is stored after the
        // call, then the words behind it.
        QCOMPARE(cachedAddresses(), QList<int>({7, 2, 3, 4, 5, 6}));
        QCOMPARE(readValue(1, "D", 2), bytes("02110000"));
        QCOMPARE(readValue(1, "D", 7), bytes("07110000"));
        QVERIFY(!isPending(1, "D", 7));
    }

    // Both coils are on. M0 is compared with the data byte 03; M1 with the low
    // byte of the CRC. Neither equals a stored 1, so both are reported again.
    void coilsThatAreOnAreNotPassedOver()
    {
        DriverFixture runtime;
        answer(runtime, "M", 0, 2, "01 01 01 03");
        runtime.reports.clear();
        answer(runtime, "M", 0, 2, "01 01 01 03");
        QCOMPARE(runtime.reports, reportsOf("M", {0, 1}));
    }

    // M0 off equals the data byte 02's packed bit, but not the byte itself.
    void aCoilWhoseByteDiffersIsReported()
    {
        DriverFixture runtime;
        answer(runtime, "M", 0, 1, "01 01 01 02");
        answer(runtime, "M", 0, 1, "01 01 01 02");
        QCOMPARE(runtime.reports, reportsOf("M", {0, 0}));
        QCOMPARE(readValue(1, "M", 0), bytes("00000000"));
    }

    // M3's byte, the third behind the data, is past the end of the reply and counts
    // as 0, while its packed bit is 1: stored without a report.
    void aCoilWhoseBitDiffersIsStored()
    {
        DriverFixture runtime;
        answer(runtime, "M", 0, 4, "01 01 01 00");
        runtime.reports.clear();
        answer(runtime, "M", 0, 4, "01 01 01 08");
        QVERIFY(!runtime.reports.contains(Report{1, 1, "M", 3}));
        QCOMPARE(readValue(1, "M", 3), bytes("01000000"));
    }

    void doubleWordsThatStayTheSame()
    {
        DriverFixture runtime;
        watch("32CV", 200, 4);
        const char* const two = "01 03 08 000186A0 FFFFFFFE";
        answer(runtime, "32CV", 200, 4, two);
        QCOMPARE(runtime.reports, reportsOf("32CV", {200, 201}));
        answer(runtime, "32CV", 200, 4, two);
        QCOMPARE(runtime.reports, reportsOf("32CV", {200, 201}));
        answer(runtime, "32CV", 200, 4, "01 03 08 000186A0 FFFFFFFF");
        QCOMPARE(runtime.reports, reportsOf("32CV", {200, 201, 201}));
        QCOMPARE(readValue(1, "32CV", 200), bytes("A0860100"));
        QCOMPARE(readValue(1, "32CV", 201), bytes("FFFFFFFF"));
    }
};

QTEST_APPLESS_MAIN(UnchangedRunTest)
#include "tst_unchanged_run.moc"
