// A runtime that restarts communication may do so at any moment: before a request,
// while one is on the wire, between its repetitions, after its end, at any block of
// a recipe.

#include "stories/restart.h"

#include <QtTest/QTest>

namespace
{

enum Point {
    BEFORE_THE_REQUEST,
    ON_THE_WIRE,
    AFTER_ONE_BAD_REPLY,
    AFTER_TWO_BAD_REPLIES,
    AFTER_THE_FAILURE,
    AFTER_THE_REPLY
};

struct NamedPoint {
    const char* name;
    Point point;
};

const NamedPoint POINTS[] = {
    {"before the request", BEFORE_THE_REQUEST},   {"on the wire", ON_THE_WIRE},
    {"after one bad reply", AFTER_ONE_BAD_REPLY}, {"after two bad replies", AFTER_TWO_BAD_REPLIES},
    {"after the failure", AFTER_THE_FAILURE},     {"after the reply", AFTER_THE_REPLY},
};

/// Takes the request that is next to that point; its good reply.
QByteArray goTo(DriverFixture& runtime, Point point)
{
    if (point == BEFORE_THE_REQUEST)
        return QByteArray();
    runtime.poll();
    const QByteArray reply = goodReply(runtime);
    const int badReplies = point == AFTER_ONE_BAD_REPLY     ? 1
                           : point == AFTER_TWO_BAD_REPLIES ? 2
                           : point == AFTER_THE_FAILURE     ? 3
                                                            : 0;
    for (int i = 0; i < badReplies; ++i)
        runtime.deal(reply.left(3));
    if (point == AFTER_THE_REPLY)
        runtime.deal(reply);
    return reply;
}

void writeFiveHundredRegisters()
{
    setValues(1, "D", 0, 500, QByteArray("3412").repeated(500).constData());
}

/// What the runtime asks for, and the job whose request is next.
struct Transfer {
    const char* name;
    void (*begin)(DriverFixture& runtime);
    const char* job;
};

const Transfer TRANSFERS[] = {
    {"registers", [](DriverFixture&) { watch("D", 100, 125); }, "D 100 125"},
    {"coils", [](DriverFixture&) { watch("M", 0, 100); }, "M 0 100"},
    {"counters", [](DriverFixture&) { watch("32CV", 200, 112); }, "32CV 200 112"},
    {"condition, first piece", [](DriverFixture&) { addCondition(1, "D", 0, 500); }, "D 0 125"},
    {"condition, second piece",
     [](DriverFixture& runtime) {
         addCondition(1, "D", 0, 500);
         serve(runtime, 1);
     },
     "D 125 125"},
    {"condition, last piece",
     [](DriverFixture& runtime) {
         addCondition(1, "D", 0, 500);
         serve(runtime, 4); // one of them idle, after three
     },
     "D 375 125"},
    {"condition of counters", [](DriverFixture&) { addCondition(1, "32CV", 200, 4); },
     "32CV 200 4"},
    {"one coil", [](DriverFixture&) { setValues(1, "Y", 5, 1, "01"); }, "Y 5 1"},
    {"many registers", [](DriverFixture&) { setValues(1, "D", 5, 3, "0100 0200 0300"); }, "D 5 3"},
    {"counters written", [](DriverFixture&) { setValues(1, "32CV", 200, 4, "A0860100 01000000"); },
     "32CV 200 4"},
    {"split write, first piece", [](DriverFixture&) { writeFiveHundredRegisters(); }, "D 0 125"},
    {"split write, second piece",
     [](DriverFixture& runtime) {
         writeFiveHundredRegisters();
         serve(runtime, 1);
     },
     "D 125 125"},
    {"split write, last piece",
     [](DriverFixture& runtime) {
         writeFiveHundredRegisters();
         serve(runtime, 3);
     },
     "D 375 125"},
};

QString textOf(const VARIABLE& job)
{
    return QString::fromLatin1("%1 %2 %3").arg(job.regType).arg(job.address).arg(job.count);
}

bool isAsNew()
{
    return driver.readList.isEmpty() && driver.writeList.isEmpty() && driver.condList.isEmpty()
           && driver.frameList.isEmpty() && driver.dataAreas.isEmpty() && driver.currentKind == 0
           && driver.burstCount == 0 && driver.errorCount == 0 && driver.commFailed == 0;
}

} // namespace

class ReinitialisationPointsTest : public QObject
{
    Q_OBJECT

private slots:
    void ofATransfer_data();
    void ofATransfer();
    void ofARecipe_data();
    void ofARecipe();
};

void ReinitialisationPointsTest::ofATransfer_data()
{
    QTest::addColumn<int>("transfer");
    QTest::addColumn<int>("point");
    for (int i = 0; i < int(sizeof TRANSFERS / sizeof *TRANSFERS); ++i) {
        for (const NamedPoint& named : POINTS)
            QTest::newRow(QByteArray(TRANSFERS[i].name) + ", " + named.name)
                << i << int(named.point);
    }
}

void ReinitialisationPointsTest::ofATransfer()
{
    QFETCH(int, transfer);
    QFETCH(int, point);
    DriverFixture runtime(PARAMETERS);
    TRANSFERS[transfer].begin(runtime);
    const QByteArray reply = goTo(runtime, Point(point));
    if (point != BEFORE_THE_REQUEST)
        QCOMPARE(textOf(runtime.polled().job), QString(TRANSFERS[transfer].job));

    runtime.initialise(PARAMETERS);
    runtime.reports.clear();
    QVERIFY(isAsNew());
    QCOMPARE(runtime.deal(reply), 0); // which comes too late
    QVERIFY(runtime.poll().isEmpty());
    QVERIFY(isAsNew());
    QCOMPARE(runtime.reports, QList<Report>());
    exchangesWell(runtime);
}

void ReinitialisationPointsTest::ofARecipe_data()
{
    QTest::addColumn<bool>("download");
    QTest::addColumn<int>("block");
    QTest::addColumn<int>("point");
    for (const bool download : {true, false}) {
        for (int block = 0; block < RECIPE_BLOCKS; ++block) {
            for (const NamedPoint& named : POINTS)
                QTest::newRow(QByteArray(download ? "download" : "upload") + ", block "
                              + QByteArray::number(block) + ", " + named.name)
                    << download << block << int(named.point);
        }
    }
}

// Its plan and its position survive; a failure has ended it before.
void ReinitialisationPointsTest::ofARecipe()
{
    QFETCH(bool, download);
    QFETCH(int, block);
    QFETCH(int, point);
    DriverFixture runtime(PARAMETERS);
    planRecipeOfFourBlocks();
    unsigned char& flag = runtime.shared[download ? 60115 : 60116];
    flag = 1;
    serve(runtime, block);
    const QByteArray reply = goTo(runtime, Point(point));

    runtime.initialise(PARAMETERS);
    QVERIFY(isAsNew());
    QCOMPARE(runtime.deal(reply), 0);
    const int next = point == AFTER_THE_REPLY ? (block + 1) % RECIPE_BLOCKS : block;
    const bool isOver = point == AFTER_THE_FAILURE || (point == AFTER_THE_REPLY && next == 0);
    QCOMPARE(driver.rcpIndex, isOver ? 0 : next);
    QCOMPARE(int(flag), isOver ? 0 : 1);
    QStringList rest;
    for (int i = next; !isOver && i < RECIPE_BLOCKS; ++i)
        rest << QString::fromLatin1("D %1 1").arg(10 + 240 * i);
    QCOMPARE(serve(runtime, static_cast<int>(rest.size())), rest);
    QCOMPARE(int(flag), 0);
    exchangesWell(runtime);
}

QTEST_APPLESS_MAIN(ReinitialisationPointsTest)
#include "tst_reinitialisation_points.moc"
