#include "data/cached_record.h"

#include <QtTest/QTest>

namespace
{

const QByteArray READ_D100 = bytes("01 03 0064 0001 C5 D5");
const QByteArray VALUE_1234 = bytes("01 03 02 1234 B5 33");

void pollRead(DriverFixture& runtime, const char* type = "D", int address = 100, int count = 1)
{
    driver.readList.clear();
    driver.readList << job(1, type, address, count);
    runtime.poll();
}

QList<int> failedAddresses(const char* type)
{
    QList<int> addresses;
    for (const _DATA_& area : driver.dataAreas) {
        if (area.commError == 1 && area.regType == QString::fromLatin1(type))
            addresses << area.address;
    }
    return addresses;
}

} // namespace

class ReplyHandlingTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutARequestNothingHappens()
    {
        DriverFixture runtime;
        driver.errorCount = 2;
        driver.commFailed = 1;
        driver.currentKind = CYCLIC_READ_JOB;
        driver.readList << job(1, "D", 0, 1) << job(1, "D", 9, 1);
        QByteArray reply = VALUE_1234;
        QString errorText = "left over";
        QCOMPARE(intf_dealRcvFrame(reply, errorText), 0);
        QCOMPARE(errorText, QString());
        QCOMPARE(driver.errorCount, 2);
        QCOMPARE(driver.commFailed, 1);
        QCOMPARE(driver.readList.first().address, 0);
        QCOMPARE(cachedCount(), 0);
    }

    void aGoodReplyRetiresTheRequest()
    {
        DriverFixture runtime;
        driver.readList << job(1, "D", 100, 1) << job(1, "D", 200, 1) << job(1, "D", 300, 1);
        QCOMPARE(runtime.poll(), READ_D100);
        driver.errorCount = 2;
        driver.commFailed = 1;
        QByteArray reply = VALUE_1234;
        QString errorText = "left over";
        QCOMPARE(intf_dealRcvFrame(reply, errorText), 1);
        QCOMPARE(errorText, QString());
        QCOMPARE(reply, VALUE_1234);
        QCOMPARE(driver.errorCount, 0);
        QCOMPARE(driver.commFailed, 0);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(driver.readList.at(0).address, 200); // rotated once
        QCOMPARE(driver.readList.at(2).address, 100);
    }

    void anotherStationsReplyIsAccepted()
    {
        DriverFixture runtime;
        pollRead(runtime);
        QCOMPARE(runtime.deal(withCrc("63 03 02 1234")), 1);
        QCOMPARE(DriverFixture::data(1, "D", 100, 1, 2), bytes("3412"));
        QVERIFY(!isCached(99, "D", 100));
    }

    void theJobIsRetiredOnlyWhenNoFrameIsLeft()
    {
        DriverFixture runtime;
        driver.readList << job(1, "D", 100, 1) << job(1, "D", 200, 1);
        runtime.poll();
        driver.frameList.append(driver.frameList.first());
        QCOMPARE(runtime.deal(VALUE_1234), 1);
        QCOMPARE(static_cast<int>(driver.frameList.size()), 1);
        QCOMPARE(driver.readList.first().address, 100);
        QCOMPARE(runtime.deal(VALUE_1234), 1);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(driver.readList.first().address, 200);
    }

    void badRepliesUpToTheLimit_data()
    {
        QTest::addColumn<QString>("parameters");
        QTest::addColumn<QList<int>>("results");
        QTest::newRow("limit 3") << "1#0#0#3#32" << (QList<int>() << 8 << 8 << 2);
        QTest::newRow("limit 2") << "1#0#0#2#32" << (QList<int>() << 8 << 2);
        QTest::newRow("limit 1") << "1#0#0#1#32" << (QList<int>() << 2);
        QTest::newRow("limit 0") << "1#0#0#0#32" << (QList<int>() << 2);
        QTest::newRow("limit -1") << "1#0#0#-1#32" << (QList<int>() << 2);
    }

    void badRepliesUpToTheLimit()
    {
        QFETCH(QString, parameters);
        QFETCH(QList<int>, results);
        DriverFixture runtime(parameters.toLatin1().constData());
        pollRead(runtime);
        QList<int> seen;
        for (int i = 0; i < results.size(); ++i)
            seen << runtime.deal(QByteArray());
        QCOMPARE(seen, results);
        QCOMPARE(driver.errorCount, 0);
        QCOMPARE(driver.commFailed, 1);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(runtime.deal(QByteArray()), 0);
    }

    void aRetryChangesOnlyTheCount()
    {
        DriverFixture runtime;
        driver.readList << job(1, "D", 100, 1) << job(1, "D", 200, 1);
        QCOMPARE(runtime.poll(), READ_D100);
        QCOMPARE(runtime.deal(bytes("01 83 02 C0 F1")), 8);
        QCOMPARE(runtime.lastError(), QString());
        QCOMPARE(driver.errorCount, 1);
        QCOMPARE(driver.commFailed, 0);
        QCOMPARE(cachedCount(), 0);
        QCOMPARE(driver.readList.first().address, 100);
        QCOMPARE(runtime.poll(), READ_D100);
    }

    void aGoodReplyStartsTheCountAgain()
    {
        DriverFixture runtime;
        for (int round = 0; round < 2; ++round) {
            pollRead(runtime);
            QCOMPARE(runtime.deal(QByteArray()), 8);
            QCOMPARE(runtime.deal(QByteArray()), 8);
            QCOMPARE(runtime.deal(VALUE_1234), 1);
        }
    }

    void theErrorTextNamesTheRequest_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("address");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty reply") << 1 << "D" << 100 << QByteArray() << "0,1,100,D";
        QTest::newRow("exception") << 1 << "D" << 100 << bytes("018302C0F1") << "5,1,100,D";
        QTest::newRow("bit type") << 247 << "SM" << 511 << bytes("00") << "1,247,511,SM";
        QTest::newRow("whole station number") << 300 << "M" << 0 << QByteArray() << "0,300,0,M";
        QTest::newRow("negative address") << 1 << "D" << -5 << QByteArray() << "0,1,-5,D";
        QTest::newRow("unknown type") << 1 << "%1" << 5 << QByteArray() << "0,1,5,%1";
    }

    void theErrorTextNamesTheRequest()
    {
        QFETCH(int, station);
        QFETCH(QString, type);
        QFETCH(int, address);
        QFETCH(QByteArray, reply);
        DriverFixture runtime("1#0#0#1#32");
        driver.readList << job(station, type.toLatin1().constData(), address, 1);
        runtime.poll();
        QCOMPARE(runtime.deal(reply), 2);
        QTEST(runtime.lastError(), "text");
    }

    void aFinalFailureMarksWhatItCovered_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<int>>("addresses");
        QTest::newRow("coils, eight addresses apart") << "M" << 3 << (QList<int>{5, 13, 21});
        QTest::newRow("words") << "D" << 3 << (QList<int>{5, 6, 7});
        QTest::newRow("32CV, one address per register") << "32CV" << 4 << (QList<int>{5, 6, 7, 8});
        QTest::newRow("unknown type") << "Q" << 3 << QList<int>();
        QTest::newRow("no coils") << "M" << 0 << QList<int>();
        QTest::newRow("no words") << "D" << 0 << QList<int>();
        QTest::newRow("negative coils") << "M" << -3 << QList<int>();
        QTest::newRow("negative words") << "D" << -3 << QList<int>();
    }

    void aFinalFailureMarksWhatItCovered()
    {
        QFETCH(QString, type);
        QFETCH(int, count);
        const QByteArray name = type.toLatin1();
        DriverFixture runtime("1#0#0#1#32");
        record(1, "TV", 0);
        pollRead(runtime, name.constData(), 5, count);
        QCOMPARE(runtime.deal(bytes("00 00 00")), 2);
        QTEST(failedAddresses(name.constData()), "addresses");
        QCOMPARE(failedAddresses("TV"), QList<int>());
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void aFinalFailureDropsAllFrames()
    {
        DriverFixture runtime("1#0#0#1#32");
        driver.readList << job(1, "D", 100, 1) << job(1, "D", 200, 1) << job(1, "D", 300, 1);
        runtime.poll();
        driver.frameList.append(driver.frameList.first());
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(driver.readList.at(0).address, 200); // rotated once
        QCOMPARE(driver.readList.at(2).address, 100);
    }

    void theLastValueSurvivesAFailure()
    {
        DriverFixture runtime("1#0#0#1#32");
        pollRead(runtime);
        runtime.deal(VALUE_1234);
        pollRead(runtime);
        runtime.deal(QByteArray());
        QCOMPARE(DriverFixture::data(1, "D", 100, 1, 2), bytes("3412"));
        QCOMPARE(int(cached(1, "D", 100).commError), 1);
    }

    // Forty negative coils make an expected length of 0.
    void aRequestThatExpectsNothingIsRetiredByAnEmptyReply()
    {
        DriverFixture runtime;
        pollRead(runtime, "M", 0, -40);
        QCOMPARE(runtime.deal(QByteArray()), 1);
        QVERIFY(driver.frameList.isEmpty());
        QCOMPARE(cachedCount(), 0);
    }
};

QTEST_APPLESS_MAIN(ReplyHandlingTest)
#include "tst_reply_handling.moc"
