// The kind of the current job, set by somebody else to what no job has, or changed by
// the value-change function while a reply is handled.

#include "data/recipe_plan.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

void addNoKinds()
{
    QTest::addColumn<int>("kind");
    for (const int kind : {INT_MIN, INT_MIN + 2, INT_MIN + 6, -65530, -256, -6, -2, -1, 0, 1, 7, 8,
                           258, 262, 65538, 65542, INT_MAX - 1, INT_MAX})
        QTest::newRow(QByteArray::number(kind).constData()) << kind;
}

void queueOneOfEach()
{
    driver.writeList << job(1, "D", 7, 1);
    driver.condList << job(1, "D", 8, 1);
    driver.condVar = driver.condList.first();
    driver.readList << job(1, "D", 9, 1) << job(1, "D", 10, 1);
    driver.rcpVars << variable("D", 20, 1, 0);
}

/// What is queued, and where the recipe is.
QString state()
{
    return QString("%1 %2 %3 %4 %5")
        .arg(driver.writeList.size())
        .arg(driver.condList.size())
        .arg(driver.readList.size())
        .arg(driver.readList.first().address)
        .arg(driver.rcpIndex);
}

} // namespace

class CurrentKindTest : public QObject
{
    Q_OBJECT

private slots:
    void noKindRetiresNothing_data() { addNoKinds(); }
    void noKindRetiresNothing();
    void noKindIsBuiltAgain_data() { addNoKinds(); }
    void noKindIsBuiltAgain();
    void noKindHoldsUpNoJob_data() { addNoKinds(); }
    void noKindHoldsUpNoJob();
    void noKindSettlesNoWrite_data() { addNoKinds(); }
    void noKindSettlesNoWrite();
    void noKindFillsNoRecipeBuffer_data() { addNoKinds(); }
    void noKindFillsNoRecipeBuffer();
    void aRecipeThatEndsInsideAReportFillsNothing_data();
    void aRecipeThatEndsInsideAReportFillsNothing();
    void aRecipeThatBeginsInsideAReport_data();
    void aRecipeThatBeginsInsideAReport();
    void aReadThatBecomesAWriteInsideAReport();
};

void CurrentKindTest::noKindRetiresNothing()
{
    QFETCH(int, kind);
    DriverFixture runtime;
    queueOneOfEach();
    driver.commFailed = 1;
    runtime.requestRecipeRead();
    runtime.requestRecipeWrite();
    driver.currentKind = kind;
    dealListWhenFinish();
    QCOMPARE(state(), QString("1 1 2 9 0"));
    QCOMPARE(driver.currentKind, kind);
    QCOMPARE(int(runtime.shared[60115]) + int(runtime.shared[60116]), 2);
    QCOMPARE(runtime.reports, QList<Report>());
}

// A transfer without a block left asks for the current job.
void CurrentKindTest::noKindIsBuiltAgain()
{
    QFETCH(int, kind);
    for (const bool writing : {true, false}) {
        DriverFixture runtime;
        queueOneOfEach();
        driver.rcpVars.clear();
        driver.currentJob = job(1, "D", 7, 1);
        driver.currentKind = kind;
        (writing ? runtime.requestRecipeWrite() : runtime.requestRecipeRead());
        QVERIFY(runtime.poll().isEmpty());
        QCOMPARE(driver.currentKind, kind);
    }
}

void CurrentKindTest::noKindHoldsUpNoJob()
{
    QFETCH(int, kind);
    DriverFixture runtime;
    queueOneOfEach();
    driver.currentKind = kind;
    QCOMPARE(runtime.poll(), withCrc("01 06 0007 0000"));
    QCOMPARE(driver.currentKind, 2);
}

void CurrentKindTest::noKindSettlesNoWrite()
{
    QFETCH(int, kind);
    for (const bool confirmed : {true, false}) {
        DriverFixture runtime("1#0#0#1#32");
        setValues(1, "Y", 5, 1, "01");
        const QByteArray request = runtime.poll();
        runtime.reports.clear();
        driver.currentKind = kind;
        QCOMPARE(runtime.deal(confirmed ? request : QByteArray()), confirmed ? 1 : 2);
        QVERIFY(isPending(1, "Y", 5));
        QCOMPARE(readValue(1, "Y", 5), bytes("00000000"));
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(static_cast<int>(driver.writeList.size()), 1);
        QVERIFY(driver.frameList.isEmpty());
    }
}

void CurrentKindTest::noKindFillsNoRecipeBuffer()
{
    QFETCH(int, kind);
    for (const char* type : {"D", "32CV"}) {
        DriverFixture runtime;
        plan({variable(type, 200, 2, 10)});
        runtime.requestRecipeRead();
        runtime.poll();
        driver.currentKind = kind;
        QCOMPARE(runtime.deal(withCrc("01 03 04 1234 5678")), 1);
        QCOMPARE(int(runtime.recipe[10]) + int(runtime.recipe[11]), 0);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(int(runtime.shared[60116]), 1);
    }
}

// The kind is looked at again once the values are stored: for words before the first one
// is copied, for 32CV at each value.
void CurrentKindTest::aRecipeThatEndsInsideAReportFillsNothing_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("address");
    QTest::newRow("words, at the first report") << "D" << 200;
    QTest::newRow("words, at the last report") << "D" << 201;
    QTest::newRow("32CV") << "32CV" << 200;
}

void CurrentKindTest::aRecipeThatEndsInsideAReportFillsNothing()
{
    QFETCH(QString, type);
    QFETCH(int, address);
    const QByteArray name = type.toLatin1();
    DriverFixture runtime;
    plan({variable(name.constData(), 200, 2, 10), variable(name.constData(), 202, 2, 12)});
    record(1, name.constData(), address).monitorFlags = 1;
    runtime.requestRecipeRead();
    runtime.poll();
    runtime.onReport = [](const Report&) { driver.currentKind = CYCLIC_READ_JOB; };
    const int registers = runtime.polled().dataLen / 2;
    const QByteArray values = QByteArray("1234").repeated(registers);
    const QByteArray head = "01 03 " + QByteArray::number(registers * 2, 16).rightJustified(2, '0');
    QCOMPARE(runtime.deal(withCrc((head + values).constData())), 1);
    QCOMPARE(runtime.reports, reportsOf(name.constData(), {address}));
    QCOMPARE(int(runtime.recipe[10]) + int(runtime.recipe[11]) + int(runtime.recipe[12]), 0);
}

// Which variables a block of words holds was fixed before.
void CurrentKindTest::aRecipeThatBeginsInsideAReport_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::newRow("words") << "D" << 0 << 0;
    QTest::newRow("32CV, from the value reported on") << "32CV" << 0x5678 << 0x1234;
}

void CurrentKindTest::aRecipeThatBeginsInsideAReport()
{
    QFETCH(QString, type);
    const QByteArray name = type.toLatin1();
    DriverFixture runtime;
    plan({variable(name.constData(), 200, 2, 10)});
    record(1, name.constData(), 200).monitorFlags = 1;
    driver.readList << job(1, name.constData(), 200, 2);
    runtime.poll();
    runtime.onReport = [](const Report&) { driver.currentKind = RECIPE_READ_JOB; };
    QCOMPARE(runtime.deal(withCrc("01 03 04 1234 5678")), 1);
    QTEST(int(runtime.recipe[10]), "first");
    QTEST(int(runtime.recipe[11]), "second");
}

// It is retired as the kind says that it has in the end.
void CurrentKindTest::aReadThatBecomesAWriteInsideAReport()
{
    DriverFixture runtime;
    queueOneOfEach();
    driver.burstCount = 5;
    record(1, "D", 9).monitorFlags = 1;
    QCOMPARE(runtime.poll(), withCrc("01 03 0009 0001"));
    runtime.onReport = [](const Report&) { driver.currentKind = WRITE_JOB; };
    QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
    QCOMPARE(state(), QString("0 1 2 9 0"));
}

QTEST_APPLESS_MAIN(CurrentKindTest)
#include "tst_current_kind.moc"
