// One-off reads with stations, kinds and bit indices at the edges of int, and of
// more values than any array holds: answered, and failed for good.

#include "stories/slave.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

void ask(const KEY_ADDRESS& wanted, int kind)
{
    KEY_ADDRESS key = wanted;
    QCOMPARE(intf_addConditionRead(key, kind), 1);
}

} // namespace

class ConditionReadEdgesTest : public QObject
{
    Q_OBJECT

private slots:
    void stations_data();
    void stations();
    void stationZeroStays();
    void kinds();
    void bitIndices_data();
    void bitIndices();
    void addressesWrapFromPieceToPiece();
    void morePiecesThanTheQueueHolds();
    void pastEveryArray_data();
    void pastEveryArray();
    void pastEveryArrayAndFailed_data() { pastEveryArray_data(); }
    void pastEveryArrayAndFailed();
};

void ConditionReadEdgesTest::stations_data()
{
    QTest::addColumn<int>("station");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("reply");
    const auto row = [](int station, const char* request, const char* reply) {
        QTest::newRow(QByteArray::number(station)) << station << withCrc(request) << withCrc(reply);
    };
    row(INT_MIN, "00 03 0064 0001", "00 03 02 4321"); // the low byte of the station
    row(INT_MIN + 1, "01 03 0064 0001", "01 03 02 4321");
    row(-1, "FF 03 0064 0001", "FF 03 02 4321");
    row(255, "FF 03 0064 0001", "FF 03 02 4321");
    row(256, "00 03 0064 0001", "00 03 02 4321");
    row(INT_MAX, "FF 03 0064 0001", "FF 03 02 4321");
}

// The value belongs to the whole station, not to its low byte.
void ConditionReadEdgesTest::stations()
{
    QFETCH(int, station);
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, reply);
    DriverFixture runtime;
    addCondition(station, "D", 100, 1);
    QCOMPARE(runtime.poll(), request);
    QCOMPARE(runtime.deal(reply), 1);
    QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), 1);
    QCOMPARE(driver.dataAreas.first().station, station);
    QCOMPARE(DriverFixture::data(station, "D", 100, 1, 2), bytes("2143"));
}

void ConditionReadEdgesTest::stationZeroStays()
{
    DriverFixture runtime;
    addCondition(0, "D", 100, 1);
    QVERIFY(runtime.poll().isEmpty());
    QCOMPARE(addresses(driver.condList), QList<int>() << 100);
    QCOMPARE(runtime.reports, QList<Report>());
}

void ConditionReadEdgesTest::kinds()
{
    for (const int kind : {INT_MIN, -1, 0, 2, 4, 6, 65539, INT_MAX}) {
        DriverFixture runtime;
        ask(key(1, "D", 100, 1), kind);
        QCOMPARE(driver.condList.first().kind, kind);
        QCOMPARE(runtime.poll(), withCrc("01 03 0064 0001"));
        QCOMPARE(driver.currentKind, int(CONDITION_READ_JOB));
        QCOMPARE(runtime.deal(withCrc("01 03 02 4321")), 1);
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }
}

void ConditionReadEdgesTest::bitIndices_data()
{
    QTest::addColumn<int>("bitIndex");
    QTest::addColumn<QStringList>("served");
    const QStringList bits = {"M 0 8", "M 8 1"};
    const QStringList words = {"M 0 1", "M 1 1", "M 2 1", "M 3 1", "M 4 1",
                               "M 5 1", "M 6 1", "M 7 1", "M 8 1"};
    QTest::newRow("-1 counts bits") << -1 << bits;
    QTest::newRow("-2") << -2 << words;
    QTest::newRow("0") << 0 << words;
    QTest::newRow("15") << 15 << words;
    QTest::newRow("255, in one byte -1") << 255 << words;
    QTest::newRow("the lowest int") << INT_MIN << words;
    QTest::newRow("the highest int") << INT_MAX << words;
}

void ConditionReadEdgesTest::bitIndices()
{
    QFETCH(int, bitIndex);
    QFETCH(QStringList, served);
    DriverFixture runtime("1#0#0#1#1");
    KEY_ADDRESS wanted = key(1, "M", 0, 9);
    wanted.bitIndex = bitIndex;
    ask(wanted, CONDITION_READ_JOB);
    // Polls without anything to send let the next three go.
    QStringList seen;
    while (!driver.condList.isEmpty())
        seen << serve(runtime, 1);
    seen.removeAll("-");
    QCOMPARE(seen, served);
    QCOMPARE(runtime.reports.last(), CONDITION_DONE);
    QCOMPARE(static_cast<int>(runtime.reports.count(CONDITION_DONE)), 1);
}

void ConditionReadEdgesTest::addressesWrapFromPieceToPiece()
{
    DriverFixture runtime("1#0#0#1#1");
    addCondition(1, "D", INT_MAX, 2);
    QCOMPARE(addresses(driver.condList), QList<int>() << INT_MAX << INT_MIN);
    QCOMPARE(runtime.poll(), withCrc("01 03 FFFF 0001"));
    QCOMPARE(runtime.deal(withCrc("01 03 02 0001")), 1);
    QCOMPARE(runtime.poll(), withCrc("01 03 0000 0001"));
    QCOMPARE(runtime.deal(withCrc("01 03 02 0002")), 1);
    QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    QCOMPARE(DriverFixture::data(1, "D", INT_MAX, 2, 4), bytes("0100 0200"));
}

// 600 pieces: the queue keeps the first 512 and the last, whose end is reported.
void ConditionReadEdgesTest::morePiecesThanTheQueueHolds()
{
    DriverFixture runtime("1#0#0#1#1");
    addCondition(1, "D", 0, 600);
    QCOMPARE(static_cast<int>(driver.condList.size()), 513);
    QStringList seen;
    while (!driver.condList.isEmpty())
        seen << serve(runtime, 1);
    seen.removeAll("-");
    QCOMPARE(static_cast<int>(seen.size()), 513);
    QCOMPARE(seen.at(511), QString("D 511 1"));
    QCOMPARE(seen.at(512), QString("D 599 1"));
    QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
}

// A limit of 0 leaves them whole. No Modbus request, yet its reply is taken whole.
void ConditionReadEdgesTest::pastEveryArray_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("data"); // of the reply, of a value each
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("values");
    QTest::newRow("registers") << "D" << 20000 << bytes("1234") << bytes("3412") << 20000;
    QTest::newRow("counters") << "32CV" << 20000 << bytes("12345678") << bytes("78563412") << 10000;
    QTest::newRow("coils") << "M" << 40000 << bytes("01") << bytes("0100000000000000") << 5000;
}

void ConditionReadEdgesTest::pastEveryArray()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, value);
    QFETCH(int, values);
    DriverFixture runtime("1#0#0#1#0");
    addCondition(1, type.toLatin1().constData(), 200, count);
    QCOMPARE(static_cast<int>(driver.condList.size()), 1);
    QCOMPARE(runtime.poll().size(), 8);
    const QByteArray all = data.repeated(values);
    QCOMPARE(runtime.polled().recvLen, static_cast<int>(all.size()) + 5);
    QCOMPARE(runtime.deal(replyWith(runtime, all.toHex().constData())), 1);
    QVERIFY(driver.condList.isEmpty());
    QCOMPARE(runtime.reports.last(), CONDITION_DONE);
    const QByteArray expected = value.repeated(values);
    std::vector<unsigned char> seen(static_cast<size_t>(expected.size()), 0xEE);
    intf_getData(1, type, 200, count, seen.data());
    QVERIFY(
        QByteArray(reinterpret_cast<const char*>(seen.data()), static_cast<int>(expected.size()))
        == expected);
}

void ConditionReadEdgesTest::pastEveryArrayAndFailed()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    DriverFixture runtime("1#0#0#1#0");
    addCondition(1, type.toLatin1().constData(), 200, count);
    QCOMPARE(failRequest(runtime), QList<int>() << 2);
    QCOMPARE(runtime.lastError(), "0,1,200," + type);
    QCOMPARE(runtime.reports, QList<Report>() << CONDITION_FAILED);
    QVERIFY(driver.condList.isEmpty());
    QCOMPARE(runtime.unanswered(), count); // one per coil or register, coils eight apart
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), count);
    QCOMPARE(driver.dataAreas.last().address, 200 + (type == "M" ? 8 : 1) * (count - 1));
}

QTEST_APPLESS_MAIN(ConditionReadEdgesTest)
#include "tst_condition_read_edges.moc"
