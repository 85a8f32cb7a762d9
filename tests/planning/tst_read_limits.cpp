// Plans with request limits and addresses at the edges of int, and replies that are
// longer than a payload and than a frame.

#include "planning/range_text.h"
#include "planning/read_jobs.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <limits>

namespace
{

QString planned(const char* texts)
{
    QList<KEY_ADDRESS> watched = ranges(texts);
    const int jobs = intf_addrMerge(watched);
    return jobs == driver.readList.size() ? textOf(driver.readList) : QString("another number");
}

/// Hands over a reply to the request of the last poll.
int answer(DriverFixture& runtime, const QByteArray& data)
{
    const QByteArray head(reinterpret_cast<const char*>(runtime.polled().frame), 2);
    return runtime.deal(
        withCrc((head + static_cast<char>(data.size()) + data).toHex().constData()));
}

} // namespace

class ReadLimitsTest : public QObject
{
    Q_OBJECT

private slots:
    void limits_data();
    void limits();
    void manyCoils_data();
    void manyCoils();
    void manyCounters_data();
    void manyCounters();
    void manyRegisters();
};

void ReadLimitsTest::limits_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("watched");
    QTest::addColumn<QString>("jobs");
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    const QString scattered = "1 D 0 x2, 1 D 2 x1, 1 D 100 x1";
    QTest::newRow("the highest int takes in every gap") << highest << scattered << "1 D 0 x101";
    for (const int limit : {0, -1, -97, lowest})
        QTest::newRow(QByteArray::number(limit) + " joins nothing")
            << limit << scattered << "1 D 0 x2, 1 D 0 x2, 1 D 2 x1, 1 D 100 x1";
    QTest::newRow("the highest int, from the highest address on")
        << highest << "1 D 2147483647 x1, 1 D -2147483648 x1"
        << "1 D 2147483647 x2";
    QTest::newRow("the highest int and counters") << highest << "1 32CV 200 x2, 1 32CV 255 x2"
                                                  << "1 32CV 200 x112";
    QTest::newRow("the highest int keeps the ranges of M apart")
        << highest << "1 M 2047 x1, 1 M 2048 x1"
        << "1 M 2047 x1, 1 M 2048 x1";
    QTest::newRow("the lowest int and one entry, thrice") << lowest << "1 D 7 x1"
                                                          << "1 D 7 x1, 1 D 7 x1, 1 D 7 x1";
}

void ReadLimitsTest::limits()
{
    QFETCH(int, limit);
    QFETCH(QString, watched);
    QFETCH(QString, jobs);
    DriverFixture runtime(("1#0#0#1#" + QByteArray::number(limit)).constData());
    QCOMPARE(driver.maxWords, limit);
    QCOMPARE(planned(watched.toLatin1().constData()), jobs);
}

void ReadLimitsTest::manyCoils_data()
{
    QTest::addColumn<int>("coils");
    QTest::newRow("as many bytes as a payload") << 8192;
    QTest::newRow("one coil more") << 8193;
    QTest::newRow("all of M but one") << 10239;
}

// Every eighth coil is on, and so is the last one.
void ReadLimitsTest::manyCoils()
{
    QFETCH(int, coils);
    DriverFixture runtime("1#0#0#1#32767");
    QCOMPARE(planned(("1 M 0 x" + QByteArray::number(coils)).constData()),
             QString("1 M 0 x%1").arg(coils));
    runtime.poll();
    QByteArray data((coils + 7) / 8, '\1');
    const int lastBit = (coils - 1) % 8;
    data[data.size() - 1] = static_cast<char>(1 | 1 << lastBit);
    QCOMPARE(runtime.polled().recvLen, static_cast<int>(data.size()) + 5);
    QCOMPARE(answer(runtime, data), 1);
    std::vector<unsigned char> seen(static_cast<size_t>(coils), 0xEE);
    intf_getData(1, "M", 0, coils, seen.data());
    for (int coil = 0; coil < coils; ++coil)
        QCOMPARE(int(seen[static_cast<size_t>(coil)]), coil % 8 == 0 || coil == coils - 1 ? 1 : 0);
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), coils);

    runtime.poll();
    QCOMPARE(runtime.deal(QByteArray()), 2);
    QCOMPARE(runtime.unanswered(), coils); // every eighth address from M0 on
    QCOMPARE(int(driver.dataAreas.last().address), 8 * (coils - 1));
    QCOMPARE(int(driver.dataAreas.last().commError), 1);
}

void ReadLimitsTest::manyCounters_data()
{
    QTest::addColumn<int>("registers");
    QTest::newRow("as many bytes as a payload") << 512;
    QTest::newRow("one value more") << 514;
    QTest::newRow("half a value more") << 515;
    QTest::newRow("longer than a frame and its reply") << 2000;
}

void ReadLimitsTest::manyCounters()
{
    QFETCH(int, registers);
    DriverFixture runtime("1#0#0#1#32767");
    QCOMPARE(planned(("1 32CV 200 x" + QByteArray::number(registers)).constData()),
             QString("1 32CV 200 x%1").arg(registers));
    runtime.poll();
    const int values = registers / 2;
    QByteArray data = bytes("000186A0").repeated(values); // 100000
    data += QByteArray(2 * registers - static_cast<int>(data.size()), '\x77');
    QCOMPARE(runtime.polled().recvLen, 2 * registers + 5);
    QCOMPARE(answer(runtime, data), 1);
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), values);
    std::vector<unsigned char> seen(static_cast<size_t>(4 * values), 0xEE);
    intf_getData(1, "32CV", 200, registers, seen.data());
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(seen.data()), 4 * values),
             bytes("A0860100").repeated(values));

    runtime.poll();
    QCOMPARE(runtime.deal(QByteArray()), 2);
    QCOMPARE(runtime.unanswered(), registers); // an address per register
    QCOMPARE(static_cast<int>(driver.dataAreas.size()), registers);
}

void ReadLimitsTest::manyRegisters()
{
    DriverFixture runtime("1#0#0#1#32767");
    QCOMPARE(planned("1 D 0 x8000"), QString("1 D 0 x8000"));
    runtime.poll();
    QByteArray data;
    for (int i = 0; i < 8000; ++i)
        data += QByteArray(1, static_cast<char>(i >> 8)) + static_cast<char>(i & 0xFF);
    QCOMPARE(answer(runtime, data), 1);
    std::vector<unsigned char> seen(16000, 0xEE);
    intf_getData(1, "D", 0, 8000, seen.data());
    for (int i = 0; i < 8000; ++i)
        QCOMPARE(seen[static_cast<size_t>(2 * i)] | seen[static_cast<size_t>(2 * i + 1)] << 8, i);
}

QTEST_APPLESS_MAIN(ReadLimitsTest)
#include "tst_read_limits.moc"
