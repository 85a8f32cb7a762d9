#include "panel/watch/watch.h"
#include "tools/panel/watch/numbering_line.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QTest>

using namespace kx;

class WatchTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void itListens();
    void signalsComeInTheirOrder();
    void changesAreTold();
    void tagsAreReplacedWhilePolling();
    void replacedBeforePollingTheCycleIsWhole();
    void withoutTagsNothingIsPolled();
    void silentStationsAreTold();
    void refusedReadsAreNoSilence();
    void aLineLostForGoodIsAFailureUntilItIsOpened();
    void anInterruptedLineIsTold();
    void itWorksInAThreadOfItsOwn();

private:
    void makeWatch(const QList<Tag>& tags);
    void runUntilCycle(qint64 cycle);
    void pollUntil(int requests);
    void clearLog() { m_log.clear(); }
    QString log() const { return m_log.join(QLatin1Char('|')); }

    std::unique_ptr<VirtualClock> m_clock;
    std::unique_ptr<NumberingLine> m_line;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<Watch> m_watch;
    QStringList m_log;
    qint64 m_cycle = 0;
};

namespace
{

DriverEntryPoints loadedDriver()
{
    DriverEntryPoints entryPoints;
    QString error;
    if (!loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error))
        qFatal("%s", qPrintable(error));
    return entryPoints;
}

QString textOf(const QList<int>& indexes)
{
    QStringList texts;
    for (const int index : indexes)
        texts << QString::number(index);
    return texts.join(QLatin1Char(' '));
}

} // namespace

void WatchTest::init()
{
    m_clock = std::make_unique<VirtualClock>();
    m_line = std::make_unique<NumberingLine>(m_clock.get());
    SessionSettings settings;
    settings.retries = 1;
    QString error;
    m_session = Session::create(loadedDriver(), m_line.get(), settings, &error, m_clock.get());
    QVERIFY2(m_session, qPrintable(error));
    m_cycle = 0;
}

void WatchTest::cleanup()
{
    m_watch.reset();
    m_session.reset();
    m_line.reset();
    m_clock.reset();
}

void WatchTest::makeWatch(const QList<Tag>& tags)
{
    clearLog();
    m_watch = std::make_unique<Watch>(m_session.get());
    const Watch* const watch = m_watch.get();
    connect(watch, &Watch::listReplaced, this, [this] { m_log << QStringLiteral("list"); });
    connect(watch, &Watch::exchanged, this, [this](const ExchangeRecord& record) {
        m_log << QStringLiteral("%1%2:%3@%4")
                     .arg(record.job.regType)
                     .arg(record.job.address)
                     .arg(record.job.count)
                     .arg(record.job.station);
    });
    connect(watch, &Watch::linkChanged, this,
            [this](const LinkEvent& event) { m_log << linkEventText(event); });
    connect(watch, &Watch::entriesChanged, this, [this](const QList<int>& indexes) {
        m_log << QStringLiteral("entries ") + textOf(indexes);
    });
    connect(watch, &Watch::cycleFinished, this, [this](qint64 cycles) {
        m_cycle = cycles;
        m_log << QStringLiteral("cycle %1").arg(cycles);
    });
    connect(watch, &Watch::lineLost, this,
            [this](const Failure& failure) { m_log << failure.text; });
    m_watch->setTags(tags);
}

void WatchTest::runUntilCycle(qint64 cycle)
{
    while (m_cycle < cycle)
        QVERIFY(m_clock->step());
}

/// The last of them is then on its way.
void WatchTest::pollUntil(int requests)
{
    while (m_line->requests < requests)
        QVERIFY(m_clock->step());
}

void WatchTest::itListens()
{
    makeWatch({tagOf("D100")});
    m_clock->pass(1000000);
    QCOMPARE(m_line->requests, 0); // nobody started the session
    m_session->start();
    runUntilCycle(2);
    m_watch.reset();
    const int requests = m_line->requests;
    pollUntil(requests + 2); // nor did the watch stop it
}

void WatchTest::signalsComeInTheirOrder()
{
    makeWatch({tagOf("D100:2", "Speed"), tagOf("D100", "Limit"), tagOf("X7@2")});
    QCOMPARE(log(), QStringLiteral("list"));
    clearLog();
    m_session->start();
    runUntilCycle(1);
    // X7 stands at 1207, whose lowest bit is set. That the cache changed is not told again.
    QCOMPARE(log(), QStringLiteral("X7:1@2|entries 3|D100:2@1|entries 0 1 2|cycle 1"));
    QCOMPARE(m_watch->list().entries().at(0).value, qint64(100));
    QCOMPARE(m_watch->list().entries().at(1).value, qint64(101));
    QCOMPARE(m_watch->list().entries().at(3).value, qint64(1));
    QVERIFY(!m_watch->hasDeviceFailed());
    const WatchSummary summary = m_watch->summary();
    QCOMPARE(summary.cycles, qint64(1));
    QCOMPARE(summary.statistics.accepted, qint64(2));
}

void WatchTest::changesAreTold()
{
    makeWatch({tagOf("X6:2"), tagOf("D0")});
    m_session->start();
    runUntilCycle(1);
    clearLog();
    m_line->controller.coilBit = 3; // of 1206 and 1207: 0 and 0, where bit 0 was 0 and 1
    runUntilCycle(2);
    QCOMPARE(log(), QStringLiteral("X6:2@1|entries 1|D0:1@1|cycle 2"));
    QCOMPARE(m_watch->list().entries().at(1).value, qint64(0));
    QVERIFY(m_watch->list().entries().at(1).changedAt > 0);
}

void WatchTest::tagsAreReplacedWhilePolling()
{
    makeWatch({tagOf("D0"), tagOf("D500", "Kept")});
    m_session->start();
    runUntilCycle(2);
    pollUntil(5); // a read of the old list is on its way
    clearLog();
    m_watch->setTags({tagOf("D1000"), tagOf("D500", "Renamed"), tagOf("D2000")});
    QCOMPARE(log(), QStringLiteral("list"));
    const WatchEntry& kept = m_watch->list().entries().at(1);
    QCOMPARE(kept.name, QStringLiteral("Renamed"));
    QCOMPARE(kept.value, qint64(500));
    QCOMPARE(kept.state, WatchState::Ok);
    QVERIFY(m_watch->hasDeviceFailed()); // the others were never read
    clearLog();
    runUntilCycle(3);
    QVERIFY(!m_watch->hasDeviceFailed());
    // That read is of no cycle.
    QCOMPARE(log(), QStringLiteral("D0:1@1|D500:1@1|D1000:1@1|entries 0|D2000:1@1|entries 2|"
                                   "cycle 3"));
    clearLog();
    runUntilCycle(4);
    QCOMPARE(log(), QStringLiteral("D500:1@1|D1000:1@1|D2000:1@1|cycle 4"));
}

void WatchTest::replacedBeforePollingTheCycleIsWhole()
{
    makeWatch({tagOf("D0")});
    m_watch->setTags({tagOf("D500"), tagOf("D1000")});
    clearLog();
    m_session->start();
    runUntilCycle(1);
    QCOMPARE(log(), QStringLiteral("D500:1@1|entries 0|D1000:1@1|entries 1|cycle 1"));
}

void WatchTest::withoutTagsNothingIsPolled()
{
    makeWatch({tagOf("D0")});
    m_session->start();
    runUntilCycle(3);
    pollUntil(4); // a read is on its way
    m_watch->setTags({});
    m_clock->pass(100000); // what was on its way is over
    const int requests = m_line->requests;
    clearLog();
    m_clock->pass(10000000);
    QCOMPARE(m_line->requests, requests);
    QCOMPARE(log(), QString());
    QCOMPARE(m_watch->summary().cycles, qint64(3));
    QVERIFY(m_watch->list().entries().isEmpty());
}

void WatchTest::silentStationsAreTold()
{
    m_line->silentStations << 2;
    makeWatch({tagOf("D0"), tagOf("D1@2")});
    m_session->start();
    runUntilCycle(1);
    QVERIFY(m_log.contains(QStringLiteral("station 2 does not answer")));
    QCOMPARE(m_watch->linkFault(), QStringLiteral("station 2 does not answer"));
    QCOMPARE(m_watch->list().entries().at(0).state, WatchState::Ok);
    QCOMPARE(m_watch->list().entries().at(1).state, WatchState::NoAnswer);
    QVERIFY(m_watch->hasDeviceFailed());
    m_line->silentStations.clear();
    clearLog();
    runUntilCycle(2);
    QCOMPARE(log(), QStringLiteral("D0:1@1|D1:1@2|station 2 answers again|entries 1|cycle 2"));
    QCOMPARE(m_watch->linkFault(), QString());
    QVERIFY(!m_watch->hasDeviceFailed());
}

void WatchTest::refusedReadsAreNoSilence()
{
    m_line->controller.refuses = true;
    makeWatch({tagOf("D0")});
    m_session->start();
    runUntilCycle(1);
    QCOMPARE(m_watch->list().entries().at(0).state, WatchState::Refused);
    QCOMPARE(m_watch->linkFault(), QString());
}

void WatchTest::aLineLostForGoodIsAFailureUntilItIsOpened()
{
    makeWatch({tagOf("D0")});
    m_session->start();
    runUntilCycle(1);
    clearLog();
    m_line->lose();
    QCOMPARE(log(), QStringLiteral("numbers: the port is lost"));
    QVERIFY(m_watch->hasDeviceFailed());
    m_line->open();
    QVERIFY(!m_watch->hasDeviceFailed());
    m_session->start();
    runUntilCycle(2);
}

void WatchTest::anInterruptedLineIsTold()
{
    makeWatch({tagOf("D0")});
    m_session->start();
    runUntilCycle(1);
    clearLog();
    m_line->interrupt();
    QVERIFY(m_log.contains(QStringLiteral("line lost")));
    QCOMPARE(m_watch->linkFault(), QStringLiteral("line lost"));
    m_line->open();
    QCOMPARE(m_watch->linkFault(), QString());
    QCOMPARE(m_log.last(), QStringLiteral("line open again"));
}

namespace
{

/// Answers at once, in its thread.
class PromptInput : public NumberingLine
{
public:
    PromptInput() : NumberingLine(nullptr) {}
    void write(const QByteArray& bytes) override
    {
        const QByteArray reply = controller.replyTo(bytes);
        QTimer::singleShot(0, this, [this, reply] { emit bytesArrived(reply); });
    }
};

class Worker : public QThread
{
    Q_OBJECT

signals:
    void read(qint64 value, bool isInWorker);
    void cycleFinished(qint64 cycles);

protected:
    void run() override
    {
        PromptInput line;
        QString error;
        const std::unique_ptr<Session> session =
            Session::create(loadedDriver(), &line, SessionSettings(), &error);
        Watch watch(session.get());
        connect(&watch, &Watch::entriesChanged, &watch, [this, &watch](const QList<int>& indexes) {
            emit read(watch.list().entries().at(indexes.first()).value,
                      QThread::currentThread() == this);
        });
        connect(&watch, &Watch::cycleFinished, this, &Worker::cycleFinished);
        watch.setTags({tagOf("D100")});
        session->start();
        exec();
    }
};

} // namespace

void WatchTest::itWorksInAThreadOfItsOwn()
{
    cleanup(); // the driver has one session at a time
    Worker worker;
    QList<qint64> values;
    bool isInWorker = false;
    qint64 cycles = 0;
    connect(&worker, &Worker::read, this, [&](qint64 value, bool inWorker) {
        values << value;
        isInWorker = inWorker;
    });
    connect(&worker, &Worker::cycleFinished, this, [&](qint64 finished) { cycles = finished; });
    worker.start();
    QTRY_VERIFY(cycles >= 3);
    worker.quit();
    QVERIFY(worker.wait());
    QCOMPARE(values, QList<qint64>({100}));
    QVERIFY(isInWorker);
}

QTEST_GUILESS_MAIN(WatchTest)
#include "tst_watch.moc"
