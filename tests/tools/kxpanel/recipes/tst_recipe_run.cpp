#include "kxpanel/recipes/recipe_run.h"

#include "kxpanel/machine/machine_thread.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxpanel/recipes/recipe_samples.h"

#include <QtTest/QTest>

using namespace kxpanel;

class RecipeRunTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void anUploadBringsAllValues();
    void aDownloadArrives();
    void aLongDownloadTakesWritesThatStationsTake();
    void withoutALineNothingIsBegun();
    void aValueThatFitsNoRequestIsRefused();
    void anAbortEndsIt();
    void anotherJobIsNotItsOwn();

private:
    void openLine(int maxWords = 0);
    RecipeOutcome run(kx::RecipeDirection direction, const QList<kx::RecipeRow>& rows);

    std::unique_ptr<MachineThread> m_thread;
    std::unique_ptr<MachineLog> m_log;
    std::unique_ptr<RecipeRun> m_run;
    QList<RecipeOutcome> m_ends;
    QList<QPair<int, int>> m_progress;
};

void RecipeRunTest::init()
{
    m_thread = std::make_unique<MachineThread>();
    m_log = std::make_unique<MachineLog>(m_thread->machine());
    m_run = std::make_unique<RecipeRun>(m_thread->machine());
    m_ends.clear();
    m_progress.clear();
    connect(m_run.get(), &RecipeRun::ended, this,
            [this](const RecipeOutcome& outcome) { m_ends << outcome; });
    connect(m_run.get(), &RecipeRun::progress, this,
            [this](int done, int total) { m_progress << qMakePair(done, total); });
}

void RecipeRunTest::cleanup()
{
    m_run.reset();
    m_log.reset();
    m_thread.reset();
}

void RecipeRunTest::openLine(int maxWords)
{
    kx::ConnectionOptions options = simulated();
    if (maxWords > 0) {
        options.session.choosesLengths = false;
        options.session.maxWords = maxWords;
    }
    m_thread->machine()->openLine(options);
    QTRY_VERIFY(m_log->states.contains(QStringLiteral("open")));
}

RecipeOutcome RecipeRunTest::run(kx::RecipeDirection direction, const QList<kx::RecipeRow>& rows)
{
    const int before = static_cast<int>(m_ends.size());
    m_run->start(direction, rows);
    const bool hasEnded = QTest::qWaitFor([this, before] { return m_ends.size() > before; }, 20000);
    return hasEnded ? m_ends.last() : RecipeOutcome();
}

void RecipeRunTest::anUploadBringsAllValues()
{
    openLine();
    const RecipeOutcome outcome = run(kx::RecipeDirection::Upload, recipeRows());
    QCOMPARE(outcome.fault, QString());
    QCOMPARE(outcome.values, simulatedValues());
    QCOMPARE(outcome.blocks, 4); // D110:2, D120:2, D130:4 and the coil
    QCOMPARE(outcome.blocksDone.size(), 4);
    QCOMPARE(m_progress.last(), qMakePair(4, 4));
    QVERIFY(!m_run->isRunning());
}

void RecipeRunTest::aDownloadArrives()
{
    openLine();
    const QList<kx::RecipeRow> rows =
        recipeRows("name,address,value\nLimit,D111,1300\nLamp,M20,0\n");
    const RecipeOutcome sent = run(kx::RecipeDirection::Download, rows);
    QCOMPARE(sent.fault, QString());
    QVERIFY(sent.values.isEmpty());
    const RecipeOutcome read = run(kx::RecipeDirection::Upload, rows);
    QCOMPARE(read.values, (QList<QList<qint64>>{{1300}, {0}}));
}

void RecipeRunTest::aLongDownloadTakesWritesThatStationsTake()
{
    // A poll may have 125 registers; a station takes 123 at once.
    openLine();
    QByteArray text = "name,address,value\n";
    QList<QList<qint64>> values;
    for (int i = 0; i < 130; ++i) {
        text += "v,D" + QByteArray::number(1000 + i) + ',' + QByteArray::number(i + 1) + '\n';
        values << QList<qint64>{i + 1};
    }
    const RecipeOutcome sent = run(kx::RecipeDirection::Download, recipeRows(text));
    QCOMPARE(sent.fault, QString());
    QCOMPARE(sent.blocksDone, (QStringList{"D1000:123@1", "D1123:7@1"}));
    QCOMPARE(run(kx::RecipeDirection::Upload, recipeRows(text)).values, values);
}

void RecipeRunTest::withoutALineNothingIsBegun()
{
    const RecipeOutcome outcome = run(kx::RecipeDirection::Upload, recipeRows());
    QCOMPARE(outcome.fault, QString("the line is not open"));
    QCOMPARE(outcome.blocks, 0);
    QVERIFY(outcome.values.isEmpty());
}

void RecipeRunTest::aValueThatFitsNoRequestIsRefused()
{
    openLine(2);
    const RecipeOutcome outcome =
        run(kx::RecipeDirection::Download,
            recipeRows("name,address,format,value\nBatch,D130,ascii:4,LAGER\n"));
    QVERIFY2(outcome.fault.startsWith("line 2 (Batch): "), qPrintable(outcome.fault));
    QCOMPARE(outcome.blocks, 0);
    QVERIFY(!outcome.wasAborted);
}

void RecipeRunTest::anAbortEndsIt()
{
    openLine();
    m_run->start(kx::RecipeDirection::Download,
                 recipeRows("name,station,address,value\nFar,9,D0,1\n")); // no such station
    m_run->abort();
    QTRY_COMPARE_WITH_TIMEOUT(m_ends.size(), 1, 20000);
    QVERIFY(m_ends.first().wasAborted);
    QCOMPARE(m_ends.first().fault, QString("cancelled"));
    QTest::qWait(50);
    QCOMPARE(m_ends.size(), 1);
}

void RecipeRunTest::anotherJobIsNotItsOwn()
{
    openLine();
    m_run->start(kx::RecipeDirection::Upload, recipeRows());
    emit m_thread->machine()->jobEnded(
        Machine::newTicket(), kx::failureOf(kx::FailureKind::NoReply, QStringLiteral("no reply")));
    QVERIFY(m_run->isRunning());
    m_run->start(kx::RecipeDirection::Download, recipeRows()); // while one is running
    QTRY_COMPARE_WITH_TIMEOUT(m_ends.size(), 1, 20000);
    QCOMPARE(m_ends.first().values, simulatedValues());
}

QTEST_MAIN(RecipeRunTest)

#include "tst_recipe_run.moc"
