// Writes on a line with faults: each ends confirmed, and is then in the controller's
// memory, or reported as failed.

#include "tools/faults/faulty_run.h"

#include <QtTest/QTest>

#include <random>

using namespace kx;

namespace
{

const int SHORT_RUN = 1000; // writes
const int TARGETS = 4;      // of each length: few, so that many writes have the same

/// What became of every write.
struct Ends {
    QList<bool> isConfirmed; ///< by number
    QList<int> times;        ///< that each ended
    int notInMemory = 0;     ///< confirmed, yet the controller holds another value
};

/// Writes of one to three registers, or coils, in two stations.
Assignment writeNumber(int number, std::mt19937* random)
{
    const auto below = [random](unsigned limit) { return static_cast<int>((*random)() % limit); };
    const bool isCoil = below(4) == 0;
    const int count = 1 + below(3);
    Assignment write;
    write.range = rangeOf(QString::fromLatin1("%1%2:%3@%4")
                              .arg(QLatin1String(isCoil ? "M" : "D"))
                              .arg(4000 + count * 100 + below(TARGETS) * 3)
                              .arg(count)
                              .arg(1 + below(2)));
    for (int i = 0; i < count; ++i)
        write.values << (isCoil ? below(2) : (number + i * 1000) % 65536);
    return write;
}

bool isInMemory(const Assignment& write, kxsim::Stations* stations)
{
    QList<quint32> values;
    QString error;
    stations->values(write.range, &values, &error);
    for (int i = 0; i < write.values.size(); ++i) {
        if (values.value(i) != write.values.at(i))
            return false;
    }
    return error.isEmpty();
}

FaultyRunSettings twoStations(const QString& fault)
{
    FaultyRunSettings settings;
    settings.line.stations = {1, 2};
    settings.watched << QString::fromLatin1("D0:8@1") << QString::fromLatin1("D20:8@2");
    QString error;
    kxsim::addFault(fault, &settings.line.faults, &error);
    settings.line.faults.seed = 3;
    return settings;
}

Ends endsOfWrites(int length, FaultyRun* run)
{
    std::mt19937 random(11);
    QList<Assignment> writes;
    Ends ends;
    for (int number = 0; number < length; ++number) {
        writes << writeNumber(number, &random);
        ends.isConfirmed << false;
        ends.times << 0;
    }
    int ended = 0;
    int firstHandle = 0;
    Session& session = run->session();
    QObject::connect(
        &session, &Session::writeFinished, &session, [&](int handle, const WriteEnd& end) {
            const int number = handle - firstHandle;
            ++ended;
            ++ends.times[number];
            ends.isConfirmed[number] = end.failure.isNone();
            if (end.failure.isNone() && !isInMemory(writes.at(number), &run->line().stations()))
                ++ends.notInMemory;
        });
    for (const Assignment& write : writes) {
        const int handle = session.write(write);
        firstHandle = firstHandle == 0 ? handle : firstHandle;
    }
    run->runUntil([&] { return ended == length; });
    QObject::disconnect(&session, &Session::writeFinished, nullptr, nullptr);
    return ends;
}

} // namespace

class WritesUnderFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void noneIsLostInSilence_data();
    void noneIsLostInSilence();
    void withoutSettlingALateReplyConfirmsAnotherWrite();
    void abandonedWritesAreReportedFailed();
    void moreWritesThanTheDriverQueues();
    void twoWritesOfOneTargetAreBothSent();
};

void WritesUnderFaultsTest::noneIsLostInSilence_data()
{
    QTest::addColumn<double>("probability");
    QTest::addColumn<int>("leastFailed"); // percent
    QTest::newRow("a sound line") << 0.0 << 0;
    QTest::newRow("every tenth request meets a fault") << 0.1 << 0;
    QTest::newRow("six of ten requests meet a fault") << 0.6 << 2;
}

void WritesUnderFaultsTest::noneIsLostInSilence()
{
    QFETCH(double, probability);
    QFETCH(int, leastFailed);
    FaultyRun run(twoStations(QString::fromLatin1("all:%1").arg(probability)));
    const int length = runLength("KX_FAULT_WRITES", SHORT_RUN);
    const Ends ends = endsOfWrites(length, &run);
    const int confirmed = static_cast<int>(ends.isConfirmed.count(true));
    const Statistics& host = run.session().statistics();
    qInfo("%d writes: %d confirmed, %d failed, %d confirmed but not in memory; %lld requests",
          length, confirmed, length - confirmed, ends.notInMemory,
          static_cast<long long>(host.requests));
    QCOMPARE(ends.times.count(1), length);
    QCOMPARE(ends.notInMemory, 0);
    QVERIFY((length - confirmed) * 100 >= leastFailed * length);
    QVERIFY(confirmed > length / 2);
    QCOMPARE(host.accepted + host.repeated + host.failed, host.requests);
    QCOMPARE(run.misplaced() + run.stale(), qint64(0));
}

void WritesUnderFaultsTest::withoutSettlingALateReplyConfirmsAnotherWrite()
{
    FaultyRunSettings settings = twoStations(QString::fromLatin1("delay:0.3"));
    QString error;
    QVERIFY(kxsim::addFault(QString::fromLatin1("deaf:0.3"), &settings.line.faults, &error));
    settings.session.retries = 1;
    settings.session.exchange.settle = 0;
    FaultyRun run(settings);
    QVERIFY(endsOfWrites(SHORT_RUN, &run).notInMemory > 0);
}

void WritesUnderFaultsTest::abandonedWritesAreReportedFailed()
{
    FaultyRun run(twoStations(QString::fromLatin1("all:0")));
    QList<int> ended;
    connect(&run.session(), &Session::writeFinished, this, [&](int handle, const WriteEnd& end) {
        QCOMPARE(end.failure.kind, FailureKind::DriverInitialised);
        ended << handle;
    });
    std::mt19937 random(11);
    QList<int> handles;
    for (int number = 0; number < 100; ++number)
        handles << run.session().write(writeNumber(number, &random));
    run.session().initialise();
    QCOMPARE(ended, handles);
}

// The driver's queue alone holds 513; further ones would replace each other at its end.
void WritesUnderFaultsTest::moreWritesThanTheDriverQueues()
{
    FaultyRun run(twoStations(QString::fromLatin1("all:0")));
    int confirmed = 0;
    connect(&run.session(), &Session::exchanged, this, [&](const ExchangeRecord& record) {
        confirmed += record.job.kind == WRITE_JOB && record.result == REPLY_ACCEPTED ? 1 : 0;
    });
    for (int address = 4000; address < 4600; ++address)
        run.session().write({rangeOf(QString::fromLatin1("D%1@1").arg(address)), {1}});
    run.runUntil([&] { return run.session().statistics().requests >= 1000; });
    QCOMPARE(confirmed, 600);
}

// In the driver's queue, behind the first, the newer would replace the older.
void WritesUnderFaultsTest::twoWritesOfOneTargetAreBothSent()
{
    FaultyRun run(twoStations(QString::fromLatin1("all:0")));
    QList<QByteArray> sent; // function 6 of station 1: register, value
    connect(&run.session(), &Session::exchanged, this, [&](const ExchangeRecord& record) {
        if (record.job.kind == WRITE_JOB && record.result == REPLY_ACCEPTED)
            sent << record.request.mid(2, 4).toHex(' ');
    });
    const AddressRange first = rangeOf(QString::fromLatin1("D4000@1"));
    const AddressRange second = rangeOf(QString::fromLatin1("D4001@1"));
    const QList<Assignment> writes = {{first, {1}}, {second, {1}}, {second, {2}}, {second, {3}}};
    for (const Assignment& write : writes)
        run.session().write(write);
    run.runUntil([&] { return run.session().statistics().requests >= 20; });
    QCOMPARE(sent, (QList<QByteArray>{"0f a0 00 01", "0f a1 00 01", "0f a1 00 02", "0f a1 00 03"}));
}

QTEST_GUILESS_MAIN(WritesUnderFaultsTest)
#include "tst_writes_under_faults.moc"
