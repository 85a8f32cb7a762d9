// Where the data of a reply start and how much there is, as the frame on the wire says,
// whatever the count of its job.

#include "data/frame_fields.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

const QByteArray WORDS = bytes("01 03 06"        // bytes 0 to 2
                               "1122 3344 5566"  // from byte 3 on
                               "2A 18");         // CRC, bytes 9 and 10
const QByteArray DOUBLE_WORDS = bytes("01 03 08" // bytes 0 to 2
                                      "11223344" // from byte 3 on
                                      "55667788" // from byte 7 on
                                      "74 9C");  // CRC, bytes 11 and 12
const QByteArray COILS = bytes("01 01 01"        // bytes 0 to 2
                               "A5"              // 1010 0101
                               "91 F3");         // CRC: 1001 0001, 1111 0011

/// Cached coils as digits, in order.
QString cachedCoils()
{
    QString coils;
    for (const _DATA_& area : driver.dataAreas)
        coils += QString::number(area.value[0]);
    return coils;
}

} // namespace

class ReadFrameTest : public QObject
{
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void doubleWords_data();
    void doubleWords();
    void memoryBehindTheReply_data();
    void memoryBehindTheReply();
    void coils_data();
    void coils();
    void marksOfAFailedRead_data();
    void marksOfAFailedRead();
    void theEchoOfAWriteIsReadWhenItHasData();
    void aReadWithoutDataIsAcknowledged();
};

void ReadFrameTest::words_data()
{
    addFields();
    QTest::addColumn<QString>("values");
    QTest::newRow("as built") << 3 << 6 << "100:2211 101:4433 102:6655";
    QTest::newRow("one word later") << 5 << 4 << "100:4433 101:6655";
    QTest::newRow("one byte later") << 4 << 4 << "100:3322 101:5544";
    QTest::newRow("from the station on") << 0 << 4 << "100:0301 101:1106";
    QTest::newRow("a byte before the reply") << -1 << 4 << "100:0100 101:0603";
    QTest::newRow("far before the reply") << INT_MIN << 4 << "100:0000 101:0000";
    QTest::newRow("from the last byte on") << 10 << 4 << "100:0018 101:0000";
    QTest::newRow("far behind the reply") << INT_MAX << 4 << "100:0000 101:0000";
    QTest::newRow("half a word more") << 3 << 5 << "100:2211 101:4433";
    QTest::newRow("half a word") << 3 << 1 << "";
    QTest::newRow("the CRC, too") << 3 << 8 << "100:2211 101:4433 102:6655 103:182a";
    QTest::newRow("more than the reply")
        << 3 << 12 << "100:2211 101:4433 102:6655 103:182a 104:0000 105:0000";
    QTest::newRow("half a word below zero") << 3 << -1 << "";
    QTest::newRow("below zero") << 3 << -6 << "";
    QTest::newRow("the lowest int") << 3 << INT_MIN << "";
}

void ReadFrameTest::words()
{
    QFETCH(int, start);
    QFETCH(int, length);
    DriverFixture runtime;
    driver.readList << job(1, "D", 100, 3);
    // Again: values that are there already are passed over.
    for (int round = 0; round < 2; ++round) {
        runtime.poll();
        setFields(start, length);
        QCOMPARE(runtime.deal(WORDS), 1);
        QTEST(cachedValues(2), "values");
    }
}

void ReadFrameTest::doubleWords_data()
{
    addFields();
    QTest::addColumn<QString>("values");
    QTest::newRow("as built") << 3 << 8 << "200:44332211 201:88776655";
    QTest::newRow("one register later") << 5 << 4 << "200:66554433";
    QTest::newRow("a register before the reply") << -2 << 4 << "200:03010000";
    QTest::newRow("far before the reply") << INT_MIN << 4 << "200:00000000";
    QTest::newRow("far behind the reply") << INT_MAX << 4 << "200:00000000";
    QTest::newRow("a byte less") << 3 << 7 << "200:44332211";
    QTest::newRow("three bytes") << 3 << 3 << "";
    QTest::newRow("the CRC, too") << 3 << 12 << "200:44332211 201:88776655 202:00009c74";
    QTest::newRow("below zero") << 3 << -8 << "";
    QTest::newRow("the lowest int") << 3 << INT_MIN << "";
}

void ReadFrameTest::doubleWords()
{
    QFETCH(int, start);
    QFETCH(int, length);
    DriverFixture runtime;
    driver.readList << job(1, "32CV", 200, 4);
    // Again: values that are there already are passed over.
    for (int round = 0; round < 2; ++round) {
        runtime.poll();
        setFields(start, length);
        QCOMPARE(runtime.deal(DOUBLE_WORDS), 1);
        QTEST(cachedValues(4), "values");
    }
}

// Of two values the second lies half in the reply. What is behind it would make it the cached one.
void ReadFrameTest::memoryBehindTheReply_data()
{
    addFields();
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QByteArray>("behind");
    QTest::addColumn<QByteArray>("cached");
    QTest::addColumn<QString>("values");
    QTest::newRow("words") << 8 << 4 << "D" << WORDS << bytes("34") << bytes("2A66 3418")
                           << "200:2a66 201:0018";
    QTest::newRow("double words") << 7 << 8 << "32CV" << DOUBLE_WORDS << bytes("5678")
                                  << bytes("88776655 78569C74") << "200:88776655 201:00009c74";
}

void ReadFrameTest::memoryBehindTheReply()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(QString, type);
    QFETCH(QByteArray, reply);
    QFETCH(QByteArray, cached);
    QFETCH(QByteArray, behind);
    const QByteArray memory = reply + behind;
    const int replySize = static_cast<int>(reply.size());
    DriverFixture runtime;
    setReadValue(1, qPrintable(type), 200, cached.left(length / 2));
    setReadValue(1, qPrintable(type), 201, cached.mid(length / 2));
    QTEST(DriverFixture::data(1, qPrintable(type), 200, length / 2, length), "cached"); // are known
    driver.readList << job(1, qPrintable(type), 200, (replySize - 5) / 2);
    runtime.poll();
    setFields(start, length);
    QByteArray received = QByteArray::fromRawData(memory.constData(), replySize);
    QString error;
    QCOMPARE(intf_dealRcvFrame(received, error), 1);
    QTEST(cachedValues(length / 2), "values");
}

// Reported is what differs from the whole reply byte at the coil's own position.
void ReadFrameTest::coils_data()
{
    addFields();
    QTest::addColumn<QString>("values"); // from M0 on
    QTest::addColumn<QList<int>>("reported");
    const QList<int> none;
    QTest::newRow("as built") << 3 << 8 << "10100101" << QList<int>{0, 1, 2};
    QTest::newRow("from the function on") << 1 << 5 << "10000" << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("from the last byte on") << 5 << 2 << "11" << QList<int>{0};
    QTest::newRow("right behind the reply") << 6 << 2 << "00" << none;
    QTest::newRow("a byte before the reply") << -1 << 2 << "00" << QList<int>{1};
    QTest::newRow("far before the reply") << INT_MIN << 2 << "00" << none;
    QTest::newRow("far behind the reply") << INT_MAX << 2 << "00" << none;
    QTest::newRow("fewer") << 3 << 3 << "101" << QList<int>{0, 1, 2};
    QTest::newRow("one") << 3 << 1 << "1" << QList<int>{0};
    QTest::newRow("a bit of the CRC, too") << 3 << 9 << "101001011" << QList<int>{0, 1, 2};
    QTest::newRow("more than the reply")
        << 3 << 25 << "1010010110001001110011110" << QList<int>{0, 1, 2};
    QTest::newRow("below zero") << 3 << -8 << "" << none;
    QTest::newRow("the lowest int") << 3 << INT_MIN << "" << none;
}

void ReadFrameTest::coils()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(QList<int>, reported);
    DriverFixture runtime;
    driver.readList << job(1, "M", 0, 8);
    runtime.poll();
    setFields(start, length);
    QCOMPARE(runtime.deal(COILS), 1);
    QTEST(cachedCoils(), "values");
    QCOMPARE(runtime.reports, reportsOf("M", reported));
}

void ReadFrameTest::marksOfAFailedRead_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("length");
    QTest::addColumn<QList<int>>("marked");
    QTest::newRow("coils, eight addresses apart") << "M" << 3 << QList<int>{5, 13, 21};
    QTest::newRow("no coil") << "M" << 0 << QList<int>();
    QTest::newRow("coils below zero") << "M" << -3 << QList<int>();
    QTest::newRow("coils, the lowest int") << "M" << INT_MIN << QList<int>();
    QTest::newRow("words") << "D" << 6 << QList<int>{5, 6, 7};
    QTest::newRow("half a word more") << "D" << 5 << QList<int>{5, 6};
    QTest::newRow("half a word") << "D" << 1 << QList<int>();
    QTest::newRow("words below zero") << "D" << -6 << QList<int>();
    QTest::newRow("words, the lowest int") << "D" << INT_MIN << QList<int>();
    QTest::newRow("32CV, one address per register") << "32CV" << 8 << QList<int>{5, 6, 7, 8};
    QTest::newRow("32CV, a byte less") << "32CV" << 7 << QList<int>{5, 6, 7};
    QTest::newRow("unknown type") << "Q" << 6 << QList<int>();
}

// Where the data would have started does not matter.
void ReadFrameTest::marksOfAFailedRead()
{
    QFETCH(QString, type);
    QFETCH(int, length);
    for (const int start : {3, 0, INT_MIN, INT_MAX}) {
        DriverFixture runtime("1#0#0#1#32");
        driver.readList << job(1, type.toLatin1().constData(), 5, 2);
        runtime.poll();
        setFields(start, length);
        QCOMPARE(runtime.deal(QByteArray(1, '\0')), 2);
        QList<int> marked;
        for (const _DATA_& area : driver.dataAreas) {
            if (area.commError == 1)
                marked << area.address;
        }
        QTEST(marked, "marked");
        QCOMPARE(cachedCount(), static_cast<int>(marked.size()));
    }
}

// Then it settles nothing: a confirmed write of an unwatched word would be reported.
void ReadFrameTest::theEchoOfAWriteIsReadWhenItHasData()
{
    DriverFixture runtime;
    setValues(1, "D", 100, 1, "34 12");
    const QByteArray echo = runtime.poll();
    QCOMPARE(echo, bytes("01 06 0064 1234 C5 62"));
    setFields(3, 2);
    QCOMPARE(runtime.deal(echo), 1);
    QCOMPARE(readValue(1, "D", 100), bytes("12640000")); // bytes 3 and 4: 64 12
    QVERIFY(!isPending(1, "D", 100));
    QCOMPARE(runtime.reports, QList<Report>());
    QVERIFY(driver.writeList.isEmpty());
}

void ReadFrameTest::aReadWithoutDataIsAcknowledged()
{
    DriverFixture runtime;
    driver.readList << job(1, "D", 100, 3);
    runtime.poll();
    setFields(3, 0);
    QCOMPARE(runtime.deal(WORDS), 1);
    QCOMPARE(cachedCount(), 0);
    QVERIFY(driver.frameList.isEmpty());
}

QTEST_APPLESS_MAIN(ReadFrameTest)
#include "tst_read_frame.moc"
