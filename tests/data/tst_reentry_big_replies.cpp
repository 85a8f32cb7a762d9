// The value-change function reads and writes from inside each report of a reply, a
// confirmation or a failure that is as long as a frame allows.

#include "data/cached_record.h"

#include <QtTest/QTest>

#include <memory>

namespace
{

const int REGISTERS = 125;
const int FIRST = 100;
const int WRITTEN = 123; // the most that one write carries

void watch(const char* type, int address, int count)
{
    QList<KEY_ADDRESS> watched;
    watched << key(1, type, address, count);
    intf_addrMerge(watched);
}

QByteArray hexWords(int words, const char* word)
{
    return QByteArray(word).repeated(words);
}

/// A reply that brings `word` for all of the registers.
QByteArray registerReply(const char* word)
{
    return withCrc(("0103FA" + hexWords(REGISTERS, word)).constData());
}

/// Calls `step` in every report that does not come from a call that it makes.
void inEachReport(DriverFixture& runtime, const std::function<void(const Report&)>& step)
{
    auto inside = std::make_shared<bool>(false);
    runtime.onReport = [inside, step](const Report& report) {
        if (*inside)
            return;
        *inside = true;
        step(report);
        *inside = false;
    };
}

QByteArray word(int address)
{
    return DriverFixture::data(1, "D", address, 1, 2);
}

} // namespace

class ReentryBigRepliesTest : public QObject
{
    Q_OBJECT

private slots:
    void readsAndWritesInEveryReportOfARead();
    void writesTheReportedAddressItself();
    void fillsTheWriteQueueFromInside();
    void createsThousandsOfRecordsFromInside();
    void readsAndWritesInEveryReportOfCoils();
    void writesAgainInEveryReportOfAConfirmation();
    void writesAgainInEveryReportOfAFailure();
};

void ReentryBigRepliesTest::readsAndWritesInEveryReportOfARead()
{
    DriverFixture runtime("1#0#0#3#125");
    watch("D", FIRST, REGISTERS);
    runtime.poll();
    runtime.deal(registerReply("0001"));
    QList<int> reported;
    inEachReport(runtime, [&](const Report& report) {
        reported << report.address;
        QCOMPARE(word(report.address), bytes("0100")); // not stored yet
        if (report.address > FIRST)
            QCOMPARE(word(report.address - 1), bytes("2143")); // stored
        setValues(1, "D", 1000 + report.address, 1, "3412");
    });
    runtime.poll();
    QCOMPARE(runtime.deal(registerReply("4321")), 1);
    QCOMPARE(static_cast<int>(reported.size()), REGISTERS);
    QCOMPARE(static_cast<int>(driver.writeList.size()), REGISTERS);
    for (int i = 0; i < REGISTERS; ++i) {
        QCOMPARE(reported.at(i), FIRST + i);
        QCOMPARE(word(FIRST + i), bytes("2143"));
        QCOMPARE(driver.writeList.at(i).address, 1100 + i);
    }
}

// The value read is stored beside the one written, which stays in sight.
void ReentryBigRepliesTest::writesTheReportedAddressItself()
{
    DriverFixture runtime("1#0#0#3#125");
    watch("D", FIRST, REGISTERS);
    inEachReport(runtime,
                 [](const Report& report) { setValues(1, "D", report.address, 1, "7856"); });
    runtime.poll();
    QCOMPARE(runtime.deal(registerReply("4321")), 1);
    QCOMPARE(static_cast<int>(driver.writeList.size()), REGISTERS);
    for (int i = 0; i < REGISTERS; ++i) {
        QCOMPARE(word(FIRST + i), bytes("7856"));
        QCOMPARE(readValue(1, "D", FIRST + i), bytes("21430000"));
        QVERIFY(isPending(1, "D", FIRST + i));
    }
}

void ReentryBigRepliesTest::fillsTheWriteQueueFromInside()
{
    DriverFixture runtime("1#0#0#3#125");
    watch("D", FIRST, REGISTERS);
    inEachReport(runtime, [](const Report& report) {
        for (int i = 0; i < 5; ++i)
            setValues(1, "D", 1000 + 5 * report.address + i, 1, "3412");
    });
    runtime.poll();
    QCOMPARE(runtime.deal(registerReply("4321")), 1);
    QCOMPARE(static_cast<int>(driver.writeList.size()), 513);
    QCOMPARE(driver.writeList.at(511).address, 2011); // 1500, and 511 more
    QCOMPARE(driver.writeList.at(512).address, 2124); // the newest
    QCOMPARE(word(FIRST + REGISTERS - 1), bytes("2143"));
}

void ReentryBigRepliesTest::createsThousandsOfRecordsFromInside()
{
    DriverFixture runtime("1#0#0#3#125");
    watch("D", FIRST, REGISTERS);
    inEachReport(runtime, [](const Report& report) {
        QCOMPARE(DriverFixture::data(2, "M", 50 * (report.address - FIRST), 50, 50),
                 QByteArray(50, '\0'));
    });
    runtime.poll();
    QCOMPARE(runtime.deal(registerReply("4321")), 1);
    QCOMPARE(cachedCount(), REGISTERS + 50 * REGISTERS);
    for (int i = 0; i < REGISTERS; ++i)
        QCOMPARE(word(FIRST + i), bytes("2143"));
}

void ReentryBigRepliesTest::readsAndWritesInEveryReportOfCoils()
{
    DriverFixture runtime("1#0#0#3#2000");
    watch("M", 0, 2000);
    QList<int> reported;
    inEachReport(runtime, [&](const Report& report) {
        reported << report.address;
        QCOMPARE(DriverFixture::data(1, "M", report.address, 1, 1), bytes("00"));
        setValues(1, "Y", report.address % 256, 1, "01");
    });
    runtime.poll();
    const QByteArray reply = withCrc(("0101FA" + QByteArray("55").repeated(250)).constData());
    QCOMPARE(runtime.deal(reply), 1);
    // Reported are as many coils as the reply has bytes from the first value on.
    QCOMPARE(static_cast<int>(reported.size()), 252);
    QCOMPARE(reported.last(), 251);
    QCOMPARE(DriverFixture::data(1, "M", 0, 2000, 2000), QByteArray("\1\0", 2).repeated(1000));
    QCOMPARE(static_cast<int>(driver.writeList.size()), 252);
}

void ReentryBigRepliesTest::writesAgainInEveryReportOfAConfirmation()
{
    DriverFixture runtime("1#0#0#3#125");
    setValues(1, "D", FIRST, WRITTEN, hexWords(WRITTEN, "3412").constData());
    int calls = 0;
    inEachReport(runtime, [&](const Report& report) {
        QCOMPARE(report.address, FIRST + calls++);
        QCOMPARE(word(report.address), bytes("3412"));
        QVERIFY(!isPending(1, "D", report.address));
        setValues(1, "D", report.address, 1, "7856");
    });
    runtime.poll();
    QCOMPARE(runtime.deal(withCrc("01 10 0064 007B")), 1);
    QCOMPARE(calls, WRITTEN);
    QCOMPARE(static_cast<int>(driver.writeList.size()), WRITTEN); // the confirmed one is gone
    QCOMPARE(driver.writeList.first().count, 1);
    for (int i = 0; i < WRITTEN; ++i) {
        QCOMPARE(readValue(1, "D", FIRST + i), bytes("34120000"));
        QCOMPARE(word(FIRST + i), bytes("7856"));
    }
}

void ReentryBigRepliesTest::writesAgainInEveryReportOfAFailure()
{
    DriverFixture runtime("1#0#0#1#125");
    watch("D", FIRST, WRITTEN);
    setValues(1, "D", FIRST, WRITTEN, hexWords(WRITTEN, "3412").constData());
    int calls = 0;
    inEachReport(runtime, [&](const Report& report) {
        QCOMPARE(report.address, FIRST + calls++);
        QCOMPARE(word(report.address), bytes("0000")); // the value read last
        setValues(1, "D", report.address, 1, "7856");
    });
    runtime.poll();
    QCOMPARE(runtime.deal(QByteArray()), 2);
    QCOMPARE(runtime.lastError(), QString("0,1,100,D"));
    QCOMPARE(calls, WRITTEN);
    QCOMPARE(static_cast<int>(driver.writeList.size()), WRITTEN);
    for (int i = 0; i < WRITTEN; ++i) {
        QCOMPARE(driver.writeList.at(i).address, FIRST + i);
        QCOMPARE(word(FIRST + i), bytes("7856"));
    }
}

QTEST_APPLESS_MAIN(ReentryBigRepliesTest)
#include "tst_reentry_big_replies.moc"
