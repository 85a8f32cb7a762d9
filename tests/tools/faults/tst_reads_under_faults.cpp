// Cyclic reads on a line with faults: no value is shown at an address that never held
// it, and the counts of the runtime and of the line agree.

#include "tools/faults/faulty_run.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace kx;

using kxsim::Fault;

/// One of the runtime's counts.
using Count = qint64 (*)(const Statistics&);

Q_DECLARE_METATYPE(kxsim::Fault)
Q_DECLARE_METATYPE(Count)

namespace
{

const int SHORT_RUN = 3000; // exchanges

kxsim::FaultPlan planOf(const char* fault, int delay = 1500)
{
    kxsim::FaultPlan plan;
    QString error;
    if (!kxsim::addFault(QString::fromLatin1(fault), &plan, &error))
        qFatal("%s", qPrintable(error));
    plan.delay = delay;
    return plan;
}

/// Three stations with many blocks of the same length, which only their addresses tell
/// apart, and some of other lengths and functions. Every reply is longer than noise.
FaultyRunSettings manyBlocks(const kxsim::FaultPlan& faults)
{
    FaultyRunSettings settings;
    settings.line.stations = {1, 2, 3};
    settings.line.faults = faults;
    settings.session.maxWords = 8;
    for (const int station : settings.line.stations) {
        for (const char* const block :
             {"D0:8", "D20:8", "D40:8", "D60:8", "D80:8", "D100:8", "D120:8", "D200:4", "D220:4",
              "M0:64", "M100:64", "Y0:40", "32CV200:4", "TV0:3"})
            settings.watched << QString::fromLatin1("%1@%2").arg(QLatin1String(block)).arg(station);
    }
    return settings;
}

QString accounts(FaultyRun& run)
{
    const Statistics& host = run.session().statistics();
    return QString::fromLatin1("sent %1 = accepted %2 + repeated %3 + failed %4; values shown %5, "
                               "misplaced %6, stale %7; late %8, duplicates %9")
        .arg(host.requests)
        .arg(host.accepted)
        .arg(host.repeated)
        .arg(host.failed)
        .arg(run.valuesShown())
        .arg(run.misplaced())
        .arg(run.stale())
        .arg(host.thrownAway.late)
        .arg(host.thrownAway.duplicates);
}

} // namespace

class ReadsUnderFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void noValueIsMisplaced_data();
    void noValueIsMisplaced();
    void withoutSettlingLateRepliesAreTakenForOthers();
    void eachKindIsCountedForWhatItIs_data();
    void eachKindIsCountedForWhatItIs();
    void noiseIsCountedByTheByte_data();
    void noiseIsCountedByTheByte();
    void lateRepliesAreFoundAgain_data();
    void lateRepliesAreFoundAgain();
    void framesByChanceAreAccountedFor_data();
    void framesByChanceAreAccountedFor();
};

void ReadsUnderFaultsTest::noValueIsMisplaced_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<bool>("trickles");
    QTest::addColumn<bool>("isCountedByKind"); // else late replies meet repeats under way
    QTest::newRow("replies half a time-out late") << 1500 << false << true;
    QTest::newRow("replies just past the time-out") << 1001 << false << false;
    QTest::newRow("replies at the end of the settle time") << 1950 << false << false;
    QTest::newRow("bytes that trickle in and meet each other") << 1500 << true << false;
}

void ReadsUnderFaultsTest::noValueIsMisplaced()
{
    QFETCH(int, delay);
    QFETCH(bool, trickles);
    QFETCH(bool, isCountedByKind);
    FaultyRunSettings settings = manyBlocks(planOf("all:0.1", delay));
    settings.line.trickles = trickles;
    FaultyRun run(settings);
    const int length = runLength("KX_FAULT_EXCHANGES", SHORT_RUN);
    const Statistics& host = run.session().statistics();
    run.runUntil([&] { return host.requests >= length; });
    run.settle();
    qInfo("%s", qPrintable(run.line().faults().summary()));
    qInfo("%s", qPrintable(accounts(run)));

    QVERIFY(host.requests >= length);
    QVERIFY(host.accepted > length / 2);
    QCOMPARE(run.misplaced(), qint64(0));
    QCOMPARE(run.stale(), qint64(0));
    QCOMPARE(host.accepted + host.repeated + host.failed, host.requests);
    QCOMPARE(host.bad.sum(), host.repeated + host.failed);
    QCOMPARE(run.line().faults().requests(), host.requests);
    QCOMPARE(host.reopened, run.faults(Fault::Close));
    if (!isCountedByKind)
        return;
    QCOMPARE(host.bad.lost, run.faults(Fault::Close));
    QCOMPARE(host.bad.exceptions, run.faults(Fault::Exception));
    QCOMPARE(host.bad.damaged + host.bad.incomplete, run.faults(Fault::Corrupt)
                                                         + run.faults(Fault::ExtraBefore)
                                                         + run.faults(Fault::Truncate));
    const ThrownAway& thrown = host.thrownAway;
    QCOMPARE(host.accepted + thrown.late + thrown.duplicates + thrown.foreign + run.hiddenReplies(),
             run.wholeReplies());
}

void ReadsUnderFaultsTest::withoutSettlingLateRepliesAreTakenForOthers()
{
    FaultyRunSettings settings = manyBlocks(planOf("delay:0.1"));
    settings.session.exchange.settle = 0;
    settings.session.retries = 1;
    FaultyRun run(settings);
    run.runUntil([&] { return run.session().statistics().requests >= SHORT_RUN; });
    QVERIFY(run.misplaced() > 0);
}

void ReadsUnderFaultsTest::eachKindIsCountedForWhatItIs_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<Fault>("kind");
    QTest::addColumn<Count>("count");
    QTest::addColumn<bool>("isRepeated");
    const auto row = [](const char* fault, Fault kind, bool isRepeated, Count count) {
        QTest::newRow(fault) << QByteArray(fault) + ":0.1" << kind << count << isRepeated;
    };
    row("deaf", Fault::Deaf, true, [](const Statistics& host) { return host.bad.none; });
    row("silence", Fault::Silence, true, [](const Statistics& host) { return host.bad.none; });
    row("corrupt", Fault::Corrupt, true, [](const Statistics& host) { return host.bad.damaged; });
    row("truncate", Fault::Truncate, true,
        [](const Statistics& host) { return host.bad.incomplete; });
    row("extra-before", Fault::ExtraBefore, true,
        [](const Statistics& host) { return host.bad.damaged; });
    row("duplicate", Fault::Duplicate, false,
        [](const Statistics& host) { return host.thrownAway.duplicates; });
    row("other-station", Fault::OtherStation, true,
        [](const Statistics& host) { return host.bad.foreign; });
    row("exception", Fault::Exception, true,
        [](const Statistics& host) { return host.bad.exceptions; });
    row("echo", Fault::Echo, false, [](const Statistics& host) { return host.thrownAway.echoes; });
    row("close", Fault::Close, true, [](const Statistics& host) { return host.bad.lost; });
}

void ReadsUnderFaultsTest::eachKindIsCountedForWhatItIs()
{
    QFETCH(QByteArray, fault);
    QFETCH(Fault, kind);
    QFETCH(Count, count);
    QFETCH(bool, isRepeated);
    FaultyRun run(manyBlocks(planOf(fault.constData())));
    const Statistics& host = run.session().statistics();
    run.runUntil([&] { return host.requests >= 1000; });
    run.settle();
    QVERIFY(run.faults(kind) > 50);
    QCOMPARE(count(host), run.faults(kind));
    QCOMPARE(host.bad.sum(), isRepeated ? run.faults(kind) : 0);
    QCOMPARE(host.accepted + host.repeated + host.failed, host.requests);
    QCOMPARE(run.misplaced() + run.stale(), qint64(0));
}

void ReadsUnderFaultsTest::noiseIsCountedByTheByte_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<Fault>("kind");
    QTest::addColumn<bool>("isRepeated");
    QTest::newRow("before a reply") << QByteArray("extra-before:0.1") << Fault::ExtraBefore << true;
    QTest::newRow("behind a reply") << QByteArray("extra-after:0.1") << Fault::ExtraAfter << false;
}

void ReadsUnderFaultsTest::noiseIsCountedByTheByte()
{
    QFETCH(QByteArray, fault);
    QFETCH(Fault, kind);
    QFETCH(bool, isRepeated);
    FaultyRun run(manyBlocks(planOf(fault.constData())));
    const Statistics& host = run.session().statistics();
    run.runUntil([&] { return host.requests >= 1000; });
    run.settle();
    QVERIFY(run.faults(kind) > 50);
    QVERIFY(host.thrownAway.bytes >= run.faults(kind));
    QCOMPARE(host.thrownAway.bytes, run.line().noise());
    QCOMPARE(host.repeated + host.failed, isRepeated ? run.faults(kind) : 0);
    QCOMPARE(host.accepted + host.repeated + host.failed, host.requests);
    QCOMPARE(run.misplaced() + run.stale(), qint64(0));
}

void ReadsUnderFaultsTest::lateRepliesAreFoundAgain_data()
{
    QTest::addColumn<int>("delay");
    QTest::newRow("half a time-out late") << 1500;
    QTest::newRow("just past the time-out") << 1001;
    QTest::newRow("at the end of the settle time") << 1950;
}

void ReadsUnderFaultsTest::lateRepliesAreFoundAgain()
{
    QFETCH(int, delay);
    FaultyRunSettings settings = manyBlocks(planOf("delay:0.1", delay));
    // Coils keep their values, so that a late reply may look like a double.
    settings.watched = settings.watched.filter(QRegularExpression(QStringLiteral("^[^MY]")));
    FaultyRun run(settings);
    const Statistics& host = run.session().statistics();
    run.runUntil([&] { return host.requests >= 1000; });
    run.settle();
    QVERIFY(run.faults(Fault::Delay) > 50);
    QVERIFY(host.thrownAway.late > 50);
    QCOMPARE(host.accepted + host.thrownAway.late,
             run.faults(Fault::None) + run.faults(Fault::Delay));
    // While one reply was waited for, the late one of another request may have come.
    QCOMPARE(host.bad.none + host.bad.foreign, host.repeated + host.failed);
    QCOMPARE(host.accepted + host.repeated + host.failed, host.requests);
    QCOMPARE(run.misplaced() + run.stale(), qint64(0));
}

// A frame of five bytes whose CRC is right comes once in some ten thousand bursts of
// noise, so the seeds are those of runs that have one.
void ReadsUnderFaultsTest::framesByChanceAreAccountedFor_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<uint>("seed");
    QTest::newRow("in noise behind a reply") << QByteArray("extra-after:1") << 39U;
    QTest::newRow("at the beginning of noise before a reply")
        << QByteArray("extra-before:0.9") << 67U;
    QTest::newRow("inside noise before a reply") << QByteArray("extra-before:0.9") << 113U;
    QTest::newRow("in a damaged reply") << QByteArray("corrupt:0.9") << 10U;
    QTest::newRow("at the beginning of a damaged reply") << QByteArray("corrupt:0.9") << 169U;
}

void ReadsUnderFaultsTest::framesByChanceAreAccountedFor()
{
    QFETCH(QByteArray, fault);
    QFETCH(uint, seed);
    kxsim::FaultPlan plan = planOf(fault.constData());
    plan.seed = seed;
    FaultyRun run(manyBlocks(plan));
    const Statistics& host = run.session().statistics();
    run.runUntil([&] { return host.requests >= SHORT_RUN; });
    run.settle();
    const ThrownAway& thrown = host.thrownAway;
    QCOMPARE(run.line().framesByChance(), 1);
    QCOMPARE(host.accepted + thrown.late + thrown.duplicates + thrown.foreign + run.hiddenReplies(),
             run.wholeReplies());
}

QTEST_GUILESS_MAIN(ReadsUnderFaultsTest)
#include "tst_reads_under_faults.moc"
