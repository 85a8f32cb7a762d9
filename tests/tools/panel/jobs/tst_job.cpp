// What holds for every job, on a session that polls: it ends once, its session goes on polling,
// and nothing of it is sent when it has ended.

#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const char* const KINDS[] = {"read", "write", "scan", "recipe"};

/// Two parts each: of the first one, station 2 is asked.
std::unique_ptr<Job> makeJob(const QString& kind, Session* session)
{
    if (kind == QLatin1String("read"))
        return std::make_unique<ReadJob>(session, QList<Tag>{tagOf("D100@2"), tagOf("D201@2")});
    if (kind == QLatin1String("write"))
        return std::make_unique<WriteJob>(
            session, QList<Assignment>{assignmentOf("D100@2=7"), assignmentOf("D101@2=8")});
    if (kind == QLatin1String("scan"))
        return std::make_unique<ScanJob>(session, QList<int>{2, 1});
    return std::make_unique<RecipeJob>(
        session, layoutOf("a,2,D,100,uint16,7\nb,2,D,200,uint16,8\n"), RecipeDirection::Download);
}

/// What each kind asks first, second.
QStringList framesOf(const QString& kind)
{
    if (kind == QLatin1String("read"))
        return {"02 03 00 64 00 01", "02 03 00 C9 00 01"};
    if (kind == QLatin1String("write"))
        return {"02 06 00 64 00 07", "02 06 00 65 00 08"};
    if (kind == QLatin1String("scan"))
        return {"02 03 00 00 00 01", "01 03 00 00 00 01"};
    return {"02 06 00 64 00 07", "02 06 00 C8 00 08"};
}

/// Calls `react` for each part that a job tells the end of.
void whenAPartEnds(Job* job, const std::function<void()>& react)
{
    if (auto* const read = qobject_cast<ReadJob*>(job))
        QObject::connect(read, &ReadJob::rangeFinished, read, react);
    if (auto* const write = qobject_cast<WriteJob*>(job))
        QObject::connect(write, &WriteJob::assignmentFinished, write, react);
    if (auto* const scan = qobject_cast<ScanJob*>(job))
        QObject::connect(scan, &ScanJob::stationAnswered, scan, react);
    if (auto* const recipe = qobject_cast<RecipeJob*>(job))
        QObject::connect(recipe, &RecipeJob::blockDone, recipe, react);
}

/// What a job says, one after the other.
class Diary : public QObject
{
public:
    explicit Diary(Job* job)
    {
        connect(job, &Job::progress, this, [this](int done, int total) {
            entries << QStringLiteral("%1/%2").arg(done).arg(total);
        });
        connect(job, &Job::finished, this, [this] { entries << QStringLiteral("finished"); });
    }

    QStringList entries;
};

} // namespace

class JobTest : public QObject
{
    Q_OBJECT

private slots:
    void pollingGoesOn_data() { addKinds(); }
    void pollingGoesOn();
    void madeAndNotStartedItDoesNothing_data() { addKinds(); }
    void madeAndNotStartedItDoesNothing();
    void twoOfAKindWaitForEachOther_data() { addKinds(); }
    void twoOfAKindWaitForEachOther();
    void allKindsAtOnce();
    void abortEndsIt_data();
    void abortEndsIt();
    void abortFromInsideItsProgress_data() { addKinds(); }
    void abortFromInsideItsProgress();
    void abortWhenAPartEnds_data() { addKinds(); }
    void abortWhenAPartEnds();
    void lostLineEndsIt_data() { addKinds(); }
    void lostLineEndsIt();
    void stoppedSessionEndsIt_data() { addKinds(); }
    void stoppedSessionEndsIt();
    void initialisationEndsIt_data() { addKinds(); }
    void initialisationEndsIt();
    void deletedSessionEndsIt_data() { addKinds(); }
    void deletedSessionEndsIt();
    void itNeedsARunningSession_data() { addKinds(); }
    void itNeedsARunningSession();
    void deletedItIsForgotten_data() { addKinds(); }
    void deletedItIsForgotten();

private:
    static void addKinds();
};

void JobTest::addKinds()
{
    QTest::addColumn<QString>("kind");
    for (const char* const kind : KINDS)
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void JobTest::pollingGoesOn()
{
    QFETCH(QString, kind);
    PollingRun polling;
    QVERIFY(polling.pollsGoOn(3));
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    Diary diary(job.get());
    job->start();
    QVERIFY(job->isRunning());
    QVERIFY(polling.untilEnded(*job));
    QCOMPARE(diary.entries, (QStringList{"1/2", "2/2", "finished"}));
    QCOMPARE(job->failure().text, QString());
    QVERIFY(polling.session().isRunning());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), framesOf(kind));
    job->start(); // once only
    QVERIFY(!job->isRunning());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), framesOf(kind));
    QCOMPARE(diary.entries.size(), 3);
}

void JobTest::madeAndNotStartedItDoesNothing()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    Diary diary(job.get());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
    QCOMPARE(diary.entries, QStringList());
    job->start();
    QVERIFY(polling.untilEnded(*job));
    QCOMPARE(job->failure().text, QString());
}

void JobTest::twoOfAKindWaitForEachOther()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> first = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> second = makeJob(kind, &polling.session());
    Diary firstDiary(first.get());
    Diary secondDiary(second.get());
    second->start(); // the order of starts counts
    first->start();
    QVERIFY(polling.untilEnded(*first));
    QVERIFY(second->hasEnded());
    const QStringList all = {"1/2", "2/2", "finished"};
    QCOMPARE(firstDiary.entries, all);
    QCOMPARE(secondDiary.entries, all);
    const QStringList frames = framesOf(kind);
    const bool asAWhole = kind == QLatin1String("recipe");
    QCOMPARE(polling.asked(),
             asAWhole ? frames + frames
                      : (QStringList{frames.at(0), frames.at(0), frames.at(1), frames.at(1)}));
    QVERIFY(polling.pollsGoOn());
}

void JobTest::allKindsAtOnce()
{
    PollingRun polling;
    std::vector<std::unique_ptr<Job>> jobs;
    std::vector<std::unique_ptr<Diary>> diaries;
    QStringList frames;
    for (int times = 0; times < 2; ++times) {
        for (const char* const kind : KINDS) {
            jobs.push_back(makeJob(QString::fromLatin1(kind), &polling.session()));
            diaries.push_back(std::make_unique<Diary>(jobs.back().get()));
            frames += framesOf(QString::fromLatin1(kind));
        }
    }
    for (const std::unique_ptr<Job>& job : jobs)
        job->start();
    for (const std::unique_ptr<Job>& job : jobs)
        QVERIFY(polling.untilEnded(*job));
    for (size_t i = 0; i < jobs.size(); ++i) {
        QCOMPARE(diaries[i]->entries, (QStringList{"1/2", "2/2", "finished"}));
        QCOMPARE(jobs[i]->failure().text, QString());
    }
    QStringList asked = polling.asked();
    asked.sort();
    frames.sort();
    QCOMPARE(asked, frames);
    QVERIFY(polling.pollsGoOn());
}

void JobTest::abortEndsIt_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("stage");
    QTest::addColumn<int>("frames"); // that go out all the same
    QTest::addColumn<QStringList>("progress");
    for (const char* const kind : KINDS) {
        const auto row = [kind](const char* stage, int frames, const QStringList& progress) {
            QTest::addRow("a %s, %s", kind, stage)
                << QString::fromLatin1(kind) << QString::fromLatin1(stage) << frames << progress;
        };
        row("before its start", 0, {});
        row("waiting for another", 0, {});
        row("with a request on its way", 0, {}); // whose reply is ignored
        row("between two requests", 1, {"1/2"});
        row("when it has ended", 2, {"1/2", "2/2"});
    }
}

void JobTest::abortEndsIt()
{
    QFETCH(QString, kind);
    QFETCH(QString, stage);
    QFETCH(int, frames);
    QFETCH(QStringList, progress);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    Diary diary(job.get());
    const bool isWaiting = stage.startsWith(QLatin1String("waiting"));
    const std::unique_ptr<Job> other = isWaiting ? makeJob(kind, &polling.session()) : nullptr;
    if (other)
        other->start();
    if (!stage.startsWith(QLatin1String("before")))
        job->start();
    if (stage.startsWith(QLatin1String("with a request"))) {
        QVERIFY(polling.untilOnTheWay(framesOf(kind).at(0)));
    } else if (stage.startsWith(QLatin1String("between"))) {
        QVERIFY(polling.until([&] { return polling.asked().size() == 1; }));
    } else if (stage.startsWith(QLatin1String("when"))) {
        QVERIFY(polling.untilEnded(*job));
    }
    const bool hadEnded = job->hasEnded();
    job->abort(QStringLiteral("interrupted"));
    QVERIFY(job->hasEnded());
    job->abort(QStringLiteral("again"));
    job->start();
    QCOMPARE(job->failure().kind, hadEnded ? FailureKind::None : FailureKind::Aborted);
    QCOMPARE(job->failure().text, hadEnded ? QString() : QStringLiteral("interrupted"));
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(diary.entries, progress + QStringList{"finished"});
    QCOMPARE(polling.asked(),
             isWaiting ? framesOf(kind) : QStringList(framesOf(kind).mid(0, frames)));
    if (other)
        QVERIFY(other->hasEnded() && other->failure().isNone());
}

void JobTest::abortFromInsideItsProgress()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    Diary diary(job.get());
    connect(job.get(), &Job::progress, job.get(),
            [&job] { job->abort(QStringLiteral("interrupted")); });
    job->start();
    QVERIFY(polling.untilEnded(*job));
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(diary.entries, (QStringList{"1/2", "finished"}));
    QCOMPARE(polling.asked(), QStringList(framesOf(kind).mid(0, 1)));
    // The next one starts at its beginning.
    const std::unique_ptr<Job> next = makeJob(kind, &polling.session());
    next->start();
    QVERIFY(polling.untilEnded(*next));
    QVERIFY(next->failure().isNone());
    QCOMPARE(polling.asked(), QStringList(framesOf(kind).mid(0, 1) + framesOf(kind)));
}

// finished() is the last signal: no progress comes behind it.
void JobTest::abortWhenAPartEnds()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    Diary diary(job.get());
    whenAPartEnds(job.get(), [&job] { job->abort(QStringLiteral("interrupted")); });
    job->start();
    QVERIFY(polling.untilEnded(*job));
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(diary.entries, QStringList{"finished"});
    QCOMPARE(polling.asked(), QStringList(framesOf(kind).mid(0, 1)));
}

void JobTest::lostLineEndsIt()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> waiting = makeJob(kind, &polling.session());
    Diary diary(job.get());
    Diary waitingDiary(waiting.get());
    job->start();
    waiting->start();
    QVERIFY(polling.untilOnTheWay(framesOf(kind).at(0)));
    emit polling.run().line().failed(QStringLiteral("faulty line: unplugged"));
    QCOMPARE(diary.entries, QStringList{"finished"});
    QCOMPARE(waitingDiary.entries, QStringList{"finished"});
    QCOMPARE(job->failure().kind, FailureKind::LineLost);
    QCOMPARE(job->failure().text, QStringLiteral("faulty line: unplugged"));
    QCOMPARE(waiting->failure().kind, FailureKind::LineLost);
    // The line is open again: nothing of what has ended is sent.
    polling.session().start();
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
}

void JobTest::stoppedSessionEndsIt()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> waiting = makeJob(kind, &polling.session());
    Diary diary(job.get());
    Diary waitingDiary(waiting.get());
    job->start();
    waiting->start();
    QVERIFY(polling.until([&] { return polling.asked().size() == 1; }));
    const int asked = static_cast<int>(polling.asked().size());
    polling.session().stop();
    QCOMPARE(diary.entries.last(), QStringLiteral("finished"));
    QCOMPARE(waitingDiary.entries, QStringList{"finished"});
    QCOMPARE(job->failure().kind, FailureKind::SessionEnded);
    QCOMPARE(waiting->failure().kind, FailureKind::SessionEnded);
    polling.session().start();
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(static_cast<int>(polling.asked().size()), asked);
    const std::unique_ptr<Job> next = makeJob(kind, &polling.session());
    next->start();
    QVERIFY(polling.untilEnded(*next));
    QCOMPARE(QStringList(polling.asked().mid(asked)), framesOf(kind));
}

void JobTest::initialisationEndsIt()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> waiting = makeJob(kind, &polling.session());
    Diary diary(job.get());
    Diary waitingDiary(waiting.get());
    job->start();
    waiting->start();
    QVERIFY(polling.until([&] { return polling.asked().size() == 1; }));
    const int asked = static_cast<int>(polling.asked().size());
    polling.session().initialise();
    QCOMPARE(diary.entries.last(), QStringLiteral("finished"));
    QCOMPARE(waitingDiary.entries, QStringList{"finished"});
    QCOMPARE(job->failure().kind, FailureKind::DriverInitialised);
    QCOMPARE(waiting->failure().kind, FailureKind::DriverInitialised);
    const std::unique_ptr<Job> next = makeJob(kind, &polling.session());
    next->start();
    QVERIFY(polling.untilEnded(*next));
    QVERIFY(next->failure().isNone());
    polling.session().watch(polling.run().watched());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(QStringList(polling.asked().mid(asked)), framesOf(kind));
}

void JobTest::deletedSessionEndsIt()
{
    QFETCH(QString, kind);
    PollingRun polling;
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> waiting = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> notStarted = makeJob(kind, &polling.session());
    Diary diary(job.get());
    Diary waitingDiary(waiting.get());
    Diary notStartedDiary(notStarted.get());
    job->start();
    waiting->start();
    QVERIFY(polling.untilOnTheWay(framesOf(kind).at(0)));
    polling.deleteRun();
    QCOMPARE(diary.entries, QStringList{"finished"});
    QCOMPARE(waitingDiary.entries, QStringList{"finished"});
    QCOMPARE(job->failure().kind, FailureKind::SessionEnded);
    QCOMPARE(notStartedDiary.entries, QStringList());
    notStarted->start();
    QCOMPARE(notStartedDiary.entries, QStringList{"finished"});
    QCOMPARE(notStarted->failure().kind, FailureKind::SessionEnded);
    job->abort(QStringLiteral("too late"));
    QCOMPARE(diary.entries.size(), 1);
}

void JobTest::itNeedsARunningSession()
{
    QFETCH(QString, kind);
    PollingRun polling;
    polling.session().stop();
    const std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    Diary diary(job.get());
    job->start();
    QCOMPARE(diary.entries, QStringList{"finished"});
    QCOMPARE(job->failure().kind, FailureKind::SessionEnded);
    QCOMPARE(job->failure().text, QStringLiteral("the session does not run"));
    polling.session().start();
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
}

void JobTest::deletedItIsForgotten()
{
    QFETCH(QString, kind);
    PollingRun polling;
    std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    const std::unique_ptr<Job> waiting = makeJob(kind, &polling.session());
    std::unique_ptr<Job> behind = makeJob(kind, &polling.session());
    Diary diary(job.get());
    job->start();
    waiting->start();
    behind->start();
    QVERIFY(polling.until([&] { return polling.asked().size() == 1; }));
    diary.entries.clear();
    job.reset();
    behind.reset();
    QCOMPARE(diary.entries, QStringList());
    QVERIFY(polling.untilEnded(*waiting));
    QVERIFY(waiting->failure().isNone());
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked().last(), framesOf(kind).at(1));
    QCOMPARE(static_cast<int>(polling.asked().count(framesOf(kind).at(1))), 1);
}

QTEST_GUILESS_MAIN(JobTest)
#include "tst_job.moc"
