#include "kxsim/faults/line_faults.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using kxsim::Fault;
using kxsim::FaultPlan;
using kxsim::FaultyReply;
using kxsim::LineFaults;

namespace
{

FaultPlan only(Fault fault)
{
    FaultPlan plan;
    plan.chances.append({fault, 1.0});
    plan.delay = 321;
    return plan;
}

// Station 247, function 3, address 100, quantity 2, and its reply.
const QByteArray REQUEST = withCrc("F7 03 00 64 00 02");
const QByteArray REPLY = withCrc("F7 03 04 04 D2 16 2E");

FaultyReply spoiled(Fault fault)
{
    return LineFaults(only(fault)).apply(REQUEST, REPLY);
}

} // namespace

class LineFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void aSoundLineChangesNothing();
    void whatComesBack_data();
    void whatComesBack();
    void aDelayedReplyIsWhole();
    void aCorruptReplyDiffersInOneByte();
    void aTruncatedReplyIsItsBeginning();
    void noiseStandsBeforeOrAfterTheReply();
    void aClosedLineCarriesNothing();
    void whatIsNotHeardOrRefusedIsNotCarriedOut();
    void anEmptyReplyIsLeftAlone();
    void theSameSeedGivesTheSameFaults();
    void probabilitiesAreKept();
};

void LineFaultsTest::aSoundLineChangesNothing()
{
    LineFaults faults{FaultPlan()};
    const FaultyReply reply = faults.apply(REQUEST, REPLY);
    QCOMPARE(reply.bytes, REPLY);
    QCOMPARE(reply.after, 0);
    QVERIFY(!reply.closesLine);
    QCOMPARE(faults.summary(),
             QString::fromLatin1("requests=1 none=1 deaf=0 silence=0 delay=0 corrupt=0 truncate=0 "
                                 "extra-before=0 extra-after=0 duplicate=0 other-station=0 "
                                 "exception=0 echo=0 close=0"));
}

void LineFaultsTest::whatComesBack_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, Fault fault, const QByteArray& bytes) {
        QTest::newRow(name) << int(fault) << bytes;
    };
    row("deaf", Fault::Deaf, QByteArray());
    row("silence", Fault::Silence, QByteArray());
    row("duplicate", Fault::Duplicate, REPLY + REPLY);
    row("echo", Fault::Echo, REQUEST + REPLY);
    // Behind station 247 comes station 1.
    row("other station", Fault::OtherStation, withCrc("01 03 04 04 D2 16 2E"));
    row("exception", Fault::Exception, withCrc("F7 83 06"));
}

void LineFaultsTest::whatComesBack()
{
    QFETCH(int, fault);
    const FaultyReply reply = spoiled(static_cast<Fault>(fault));
    QTEST(reply.bytes, "bytes");
    QCOMPARE(reply.after, 0);
    QVERIFY(!reply.closesLine);
}

void LineFaultsTest::aDelayedReplyIsWhole()
{
    const FaultyReply reply = spoiled(Fault::Delay);
    QCOMPARE(reply.bytes, REPLY);
    QCOMPARE(reply.after, 321);
}

void LineFaultsTest::aCorruptReplyDiffersInOneByte()
{
    LineFaults faults(only(Fault::Corrupt));
    for (int i = 0; i < 1000; ++i) {
        const QByteArray bytes = faults.apply(REQUEST, REPLY).bytes;
        QCOMPARE(bytes.size(), REPLY.size());
        int differing = 0;
        for (int at = 0; at < bytes.size(); ++at)
            differing += bytes.at(at) != REPLY.at(at) ? 1 : 0;
        QCOMPARE(differing, 1);
    }
    QCOMPARE(faults.count(Fault::Corrupt), qint64(1000));
}

void LineFaultsTest::aTruncatedReplyIsItsBeginning()
{
    LineFaults faults(only(Fault::Truncate));
    QSet<int> lengths;
    for (int i = 0; i < 1000; ++i) {
        const QByteArray bytes = faults.apply(REQUEST, REPLY).bytes;
        QVERIFY(REPLY.startsWith(bytes));
        lengths.insert(static_cast<int>(bytes.size()));
    }
    // Never nothing, never all.
    QCOMPARE(lengths, QSet<int>({1, 2, 3, 4, 5, 6, 7, 8}));
}

void LineFaultsTest::noiseStandsBeforeOrAfterTheReply()
{
    LineFaults before(only(Fault::ExtraBefore));
    LineFaults after(only(Fault::ExtraAfter));
    QSet<int> lengths;
    for (int i = 0; i < 1000; ++i) {
        const QByteArray first = before.apply(REQUEST, REPLY).bytes;
        QVERIFY(first.endsWith(REPLY));
        lengths.insert(static_cast<int>(first.size() - REPLY.size()));
        const QByteArray second = after.apply(REQUEST, REPLY).bytes;
        QVERIFY(second.startsWith(REPLY));
        lengths.insert(static_cast<int>(second.size() - REPLY.size()));
    }
    QCOMPARE(lengths, QSet<int>({1, 2, 3, 4, 5, 6, 7, 8}));
}

void LineFaultsTest::aClosedLineCarriesNothing()
{
    const FaultyReply reply = spoiled(Fault::Close);
    QCOMPARE(reply.bytes, QByteArray());
    QVERIFY(reply.closesLine);
}

void LineFaultsTest::whatIsNotHeardOrRefusedIsNotCarriedOut()
{
    for (int kind = 0; kind < kxsim::FAULT_COUNT; ++kind) {
        const Fault fault = static_cast<Fault>(kind);
        const bool isCarriedOut = fault != Fault::Deaf && fault != Fault::Exception;
        QCOMPARE(LineFaults(only(fault)).isCarriedOut(), isCarriedOut);
    }
}

void LineFaultsTest::anEmptyReplyIsLeftAlone()
{
    QCOMPARE(LineFaults(only(Fault::Corrupt)).apply(REQUEST, QByteArray()).bytes, QByteArray());
    QCOMPARE(LineFaults(only(Fault::Exception)).apply(REQUEST, QByteArray()).bytes,
             withCrc("F7 83 06"));
}

void LineFaultsTest::theSameSeedGivesTheSameFaults()
{
    FaultPlan plan;
    QString error;
    QVERIFY(kxsim::addFault(QString::fromLatin1("all:0.5"), &plan, &error));
    const auto run = [](const FaultPlan& of) {
        LineFaults faults(of);
        QByteArray all;
        for (int i = 0; i < 200; ++i)
            all += faults.apply(REQUEST, REPLY).bytes;
        return all;
    };
    QCOMPARE(run(plan), run(plan));
    FaultPlan other = plan;
    other.seed = 2;
    QVERIFY(run(plan) != run(other));
}

void LineFaultsTest::probabilitiesAreKept()
{
    FaultPlan plan;
    plan.chances = {{Fault::Silence, 0.25}, {Fault::Echo, 0.5}};
    LineFaults faults(plan);
    for (int i = 0; i < 4000; ++i)
        faults.apply(REQUEST, REPLY);
    QCOMPARE(faults.requests(), qint64(4000));
    // Within five standard deviations: 27 and 32.
    QVERIFY(qAbs(faults.count(Fault::Silence) - 1000) < 137);
    QVERIFY(qAbs(faults.count(Fault::Echo) - 2000) < 158);
    QVERIFY(qAbs(faults.count(Fault::None) - 1000) < 137);
}

QTEST_APPLESS_MAIN(LineFaultsTest)
#include "tst_line_faults.moc"
