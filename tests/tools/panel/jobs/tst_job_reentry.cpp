// A job that is called off from inside the request it is making: the session tells changes of
// values before the job knows the request's handle.

#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

/// Each asks station 1 for D0, which is polled, and for D1 after that.
std::unique_ptr<Job> makeJob(const QString& kind, Session* session)
{
    if (kind == QLatin1String("read"))
        return std::make_unique<ReadJob>(session, QList<Tag>{tagOf("D0@1"), tagOf("D200@1")});
    if (kind == QLatin1String("write"))
        return std::make_unique<WriteJob>(
            session, QList<Assignment>{assignmentOf("D0@1=7"), assignmentOf("D1@1=8")});
    if (kind == QLatin1String("scan"))
        return std::make_unique<ScanJob>(session, QList<int>{1, 2});
    return std::make_unique<RecipeJob>(session, layoutOf("a,1,D,0,uint16,7\nb,1,D,100,uint16,8\n"),
                                       RecipeDirection::Download);
}

} // namespace

class JobReentryTest : public QObject
{
    Q_OBJECT

private slots:
    void calledOffWhileItAsks_data();
    void calledOffWhileItAsks();
};

void JobReentryTest::calledOffWhileItAsks_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isDeleted");
    for (const char* const kind : {"read", "write", "scan", "recipe"}) {
        QTest::addRow("a %s, aborted", kind) << QString::fromLatin1(kind) << false;
        QTest::addRow("a %s, deleted", kind) << QString::fromLatin1(kind) << true;
    }
}

void JobReentryTest::calledOffWhileItAsks()
{
    QFETCH(QString, kind);
    QFETCH(bool, isDeleted);
    PollingRun polling;
    QVERIFY(polling.pollsGoOn(3));
    std::unique_ptr<Job> job = makeJob(kind, &polling.session());
    QSignalSpy ends(job.get(), &Job::finished);
    bool isCalledOff = false;
    const QMetaObject::Connection changes =
        connect(&polling.session(), &Session::valueChanged, this, [&] {
            if (!job || !job->isRunning())
                return;
            isCalledOff = true;
            if (isDeleted)
                job.reset();
            else
                job->abort(QStringLiteral("interrupted"));
        });
    const AddressRange polled = rangeOf(QStringLiteral("D0@1"));
    polling.run().line().stations().memory(1)->setValue(polled.type, 0, 5);
    // The changes that a poll has brought are told after this signal, or from inside a request.
    connect(&polling.session(), &Session::exchanged, this, [&] {
        if (job && polling.session().values(polled) == QList<qint64>{5})
            job->start();
    });
    QVERIFY(polling.until([&] { return isCalledOff; }));
    disconnect(changes);
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
    QCOMPARE(static_cast<int>(ends.size()), isDeleted ? 0 : 1);
    if (job)
        QCOMPARE(job->failure().text, QStringLiteral("interrupted"));
}

QTEST_GUILESS_MAIN(JobReentryTest)
#include "tst_job_reentry.moc"
