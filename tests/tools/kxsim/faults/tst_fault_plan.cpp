#include "kxsim/faults/fault_plan.h"

#include <QtTest/QTest>

using kxsim::Fault;
using kxsim::FaultPlan;

class FaultPlanTest : public QObject
{
    Q_OBJECT

private slots:
    void everyKindHasItsName();
    void aKindIsAddedWithItsProbability();
    void allSharesTheProbability();
    void wrongTextsAreRefused_data();
    void wrongTextsAreRefused();
    void seedAndDelay();
};

void FaultPlanTest::everyKindHasItsName()
{
    QCOMPARE(kxsim::faultNames(), QStringList({"deaf", "silence", "delay", "corrupt", "truncate",
                                               "extra-before", "extra-after", "duplicate",
                                               "other-station", "exception", "echo", "close"}));
    QCOMPARE(kxsim::faultName(Fault::None), QString::fromLatin1("none"));
    QCOMPARE(kxsim::faultName(Fault::OtherStation), QString::fromLatin1("other-station"));
}

void FaultPlanTest::aKindIsAddedWithItsProbability()
{
    FaultPlan plan;
    QString error;
    QVERIFY(kxsim::addFault(QString::fromLatin1("silence:0.25"), &plan, &error));
    QVERIFY(kxsim::addFault(QString::fromLatin1("extra-before:0.75"), &plan, &error));
    QVERIFY(kxsim::addFault(QString::fromLatin1("echo:0"), &plan, &error));
    QCOMPARE(plan.chances.size(), 3);
    QVERIFY(plan.chances.at(0).fault == Fault::Silence);
    QCOMPARE(plan.chances.at(0).probability, 0.25);
    QVERIFY(plan.chances.at(1).fault == Fault::ExtraBefore);
    QVERIFY(plan.holds(Fault::Silence));
    QVERIFY(!plan.holds(Fault::Echo));
    QVERIFY(!plan.holds(Fault::Close));
}

void FaultPlanTest::allSharesTheProbability()
{
    FaultPlan plan;
    QString error;
    QVERIFY(kxsim::addFault(QString::fromLatin1("all:0.12"), &plan, &error));
    QCOMPARE(plan.chances.size(), 12);
    for (const kxsim::FaultChance& chance : plan.chances)
        QCOMPARE(chance.probability, 0.01);
    QVERIFY(plan.holds(Fault::Deaf));
    QVERIFY(plan.holds(Fault::Close));
    // Ten tenths are not more than 1, whatever their last digit.
    FaultPlan tenths;
    for (int i = 0; i < 10; ++i)
        QVERIFY(kxsim::addFault(QString::fromLatin1("echo:0.1"), &tenths, &error));
}

void FaultPlanTest::wrongTextsAreRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("names");
    QTest::newRow("no probability") << "silence"
                                    << "KIND:PROBABILITY";
    QTest::newRow("nothing") << ""
                             << "KIND:PROBABILITY";
    QTest::newRow("no number") << "silence:often"
                               << "from 0 to 1";
    QTest::newRow("more than 1") << "silence:1.5"
                                 << "from 0 to 1";
    QTest::newRow("less than 0") << "silence:-0.1"
                                 << "from 0 to 1";
    QTest::newRow("not a number") << "silence:nan"
                                  << "from 0 to 1";
    QTest::newRow("unknown kind") << "noise:0.1"
                                  << "'noise' is none of deaf, silence";
    QTest::newRow("the absence of faults") << "none:0.1"
                                           << "'none' is none of";
    QTest::newRow("too many together") << "silence:0.6"
                                       << "more than 1";
}

void FaultPlanTest::wrongTextsAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, names);
    FaultPlan plan;
    QString error;
    QVERIFY(kxsim::addFault(QString::fromLatin1("delay:0.5"), &plan, &error));
    QVERIFY(!kxsim::addFault(text, &plan, &error));
    QVERIFY2(error.startsWith(QString::fromLatin1("--fault ")), qPrintable(error));
    QVERIFY2(error.contains(names), qPrintable(error));
}

void FaultPlanTest::seedAndDelay()
{
    FaultPlan plan;
    QString error;
    QVERIFY(kxsim::parseFaultSeed(QString::fromLatin1("4294967295"), &plan, &error));
    QCOMPARE(plan.seed, 4294967295U);
    QVERIFY(!kxsim::parseFaultSeed(QString::fromLatin1("x"), &plan, &error));
    QVERIFY2(error.contains(QString::fromLatin1("--fault-seed x")), qPrintable(error));
    QVERIFY(kxsim::parseFaultDelay(QString::fromLatin1("250"), &plan, &error));
    QCOMPARE(plan.delay, 250);
    QVERIFY(!kxsim::parseFaultDelay(QString::fromLatin1("0"), &plan, &error));
    QVERIFY(!kxsim::parseFaultDelay(QString::fromLatin1("60001"), &plan, &error));
    QVERIFY2(error.contains(QString::fromLatin1("from 1 to 60000")), qPrintable(error));
}

QTEST_APPLESS_MAIN(FaultPlanTest)
#include "tst_fault_plan.moc"
