// With which requests a watch list is polled, and when.

#include "panel/watch/watch.h"
#include "support/driver_fixture.h"
#include "support/growth.h"
#include "tools/panel/watch/numbering_line.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

using namespace kx;

class WatchPollingTest : public QObject
{
    Q_OBJECT

private slots:
    void coilsAreReadByTheThousand();
    void lengthsAreChosen();
    void aStationThatRefusesIsAskedForLess();
    void whatLiesInAGapIsLeftOut();
    void aRefusalCostsAsMuchInALongList();
    void turnaroundsAreLearned();
    void aSilentStationsAddressesAreAllUnanswered();
    void whatADeadStationsLineMakesUpIsNoAnswer();
    void whatAGatewaySaysOfADeadStationIsNoAnswer();
    void slowTagsAreReadSeldom();
    void fastTagsAreReadInTime();
    void anIntervalBelowZeroIsNone();
    void writesGoOnWhileNothingIsPolled();

private:
    void makeWatch(const QList<Tag>& tags);
    void runUntilCycle(qint64 cycle);
    std::clock_t costOfRefusals(int addresses);
    QString log() const { return m_log.join(QLatin1Char(' ')); }

    SessionSettings m_settings;
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

SessionSettings chosenLengths()
{
    SessionSettings settings;
    settings.retries = 1;
    settings.choosesLengths = true;
    settings.maxWords = 125;
    return settings;
}

Tag slowTagOf(const char* address, int interval)
{
    Tag tag = tagOf(address);
    tag.interval = interval;
    return tag;
}

} // namespace

void WatchPollingTest::makeWatch(const QList<Tag>& tags)
{
    m_watch.reset();
    m_session.reset();
    m_clock = std::make_unique<VirtualClock>();
    m_line = std::make_unique<NumberingLine>(m_clock.get());
    QString error;
    m_session = Session::create(loadedDriver(), m_line.get(), m_settings, &error, m_clock.get());
    QVERIFY2(m_session, qPrintable(error));
    m_log.clear();
    m_cycle = 0;
    m_watch = std::make_unique<Watch>(m_session.get());
    connect(m_watch.get(), &Watch::exchanged, this, [this](const ExchangeRecord& record) {
        m_log << QStringLiteral("%1%2:%3")
                     .arg(record.job.regType)
                     .arg(record.job.address)
                     .arg(record.job.count);
    });
    connect(m_watch.get(), &Watch::linkChanged, this,
            [this](const LinkEvent& event) { m_log << linkEventText(event); });
    connect(m_watch.get(), &Watch::cycleFinished, this, [this](qint64 cycles) {
        m_cycle = cycles;
        m_log << QStringLiteral("|");
    });
    m_watch->setTags(tags);
    m_session->start();
}

void WatchPollingTest::runUntilCycle(qint64 cycle)
{
    while (m_cycle < cycle)
        QVERIFY(m_clock->step());
}

// The driver joins registers up to its limit of 32; coils are not its business.
void WatchPollingTest::coilsAreReadByTheThousand()
{
    m_settings = SessionSettings();
    makeWatch({tagOf("X0"), tagOf("M0:512"), tagOf("M3000:256"), tagOf("D0:40")});
    runUntilCycle(2);
    QCOMPARE(log(), QStringLiteral("X0:1 M0:512 M3000:256 D0:32 D32:8 | "
                                   "X0:1 M0:512 M3000:256 D0:32 D32:8 |"));
    QVERIFY(!m_watch->hasDeviceFailed());
}

// By the network's serial line of 9600 baud: a gap of ten registers is read along.
void WatchPollingTest::lengthsAreChosen()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("D0:100"), tagOf("D110"), tagOf("D122"), tagOf("M0:2047")});
    runUntilCycle(1);
    QCOMPARE(log(), QStringLiteral("M0:2000 M2000:47 D0:111 D122:1 |"));
}

// 125, 62, 31 registers are too many for it; each is tried once.
void WatchPollingTest::aStationThatRefusesIsAskedForLess()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("D0:125")});
    m_line->controller.mostRegisters = 20;
    const QString refuses = QStringLiteral("station 1 refuses requests; it is asked for at most "
                                           "%1 registers or 2000 coils at once");
    runUntilCycle(1);
    QCOMPARE(log(), QStringLiteral("D0:125 %1 D0:62 %2 D0:31 %3 D0:16 D16:16 D32:16 D48:16 D64:16 "
                                   "D80:16 D96:16 D112:13 |")
                        .arg(refuses.arg(62), refuses.arg(31), refuses.arg(16)));
    QVERIFY(!m_watch->hasDeviceFailed());
}

// D5 is missing. D0 to D9 are short enough for any controller.
void WatchPollingTest::whatLiesInAGapIsLeftOut()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("D0:2"), tagOf("D8:2")});
    m_line->controller.missing = 5;
    runUntilCycle(1);
    QCOMPARE(log(), QStringLiteral("D0:10 station 1 refuses requests; it is asked for at most 125 "
                                   "registers or 2000 coils at once; addresses between are not "
                                   "read along D0:2 D8:2 |"));
    QVERIFY(!m_watch->hasDeviceFailed());
}

/// Processor time for 500 polls that are refused, of a list of so many addresses.
std::clock_t WatchPollingTest::costOfRefusals(int addresses)
{
    QList<Tag> tags;
    for (int i = 0; i < addresses; ++i) {
        tags << tagOf("D0");
        tags.last().range.address = i % 80 * 100;
        tags.last().range.station = 1 + i / 80;
    }
    makeWatch(tags);
    m_line->controller.refuses = true;
    const std::clock_t start = std::clock();
    m_clock->pass(500000);
    return std::clock() - start;
}

// Eight times as much if each looked through the list for gaps.
void WatchPollingTest::aRefusalCostsAsMuchInALongList()
{
    m_settings = chosenLengths();
    const double times = growth([this](int size) { return costOfRefusals(size); }, 2000, 16000);
    QVERIFY2(times < 4, qPrintable(QString::number(times)));
}

// Of 1 ms instead of the 5 ms planned with: 13 characters and two frame gaps of 3.6 ms are
// 20 characters instead of 21.3, and 21 bytes more too many.
void WatchPollingTest::turnaroundsAreLearned()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("M0"), tagOf("M183")});
    runUntilCycle(1);
    QCOMPARE(log(), QStringLiteral("M0:184 |"));
    m_clock->pass(6000000);
    runUntilCycle(m_cycle + 1);
    m_log.clear();
    runUntilCycle(m_cycle + 1);
    QCOMPARE(log(), QStringLiteral("M0:1 M183:1 |"));
}

void WatchPollingTest::aSilentStationsAddressesAreAllUnanswered()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("D0"), tagOf("D0@2"), tagOf("D500@2"), tagOf("M0@2")});
    runUntilCycle(2);
    QVERIFY(!m_watch->hasDeviceFailed());
    m_line->silentStations = {2};
    m_log.clear();
    runUntilCycle(3);
    QCOMPARE(log(), QStringLiteral("D0:1 M0:1 station 2 does not answer |"));
    for (const int index : {1, 2, 3})
        QCOMPARE(m_watch->list().entries().at(index).state, WatchState::NoAnswer);
    QCOMPARE(m_watch->list().entries().at(0).state, WatchState::Ok);
    m_line->silentStations.clear();
    m_log.clear();
    runUntilCycle(4);
    QCOMPARE(log(), QStringLiteral("D0:1 D0:1 station 2 answers again D500:1 |"));
    runUntilCycle(5);
    QVERIFY(!m_watch->hasDeviceFailed());
}

// The line floats when the adapter lets it go, and a receiver takes that for a character.
void WatchPollingTest::whatADeadStationsLineMakesUpIsNoAnswer()
{
    m_settings = chosenLengths();
    m_settings.exchange.replyTimeout = 100;
    makeWatch({tagOf("D0"), tagOf("D0@2")});
    m_line->silentStations = {2};
    m_line->noise = QByteArray(1, '\0');
    m_clock->pass(10000000);
    m_log.clear();
    m_clock->pass(10000000);
    // Of 17 time-outs one: a hundred of the reads take a millisecond each in one that is free.
    QVERIFY2(m_log.count(QStringLiteral("D0:1")) > 8000, qPrintable(QString::number(m_log.size())));
}

// It waited for the station in our place, each time for longer than a second perhaps.
void WatchPollingTest::whatAGatewaySaysOfADeadStationIsNoAnswer()
{
    m_settings = chosenLengths();
    m_settings.exchange.replyTimeout = 100;
    makeWatch({tagOf("D0"), tagOf("D7@2"), tagOf("D500@2")});
    m_line->silentStations = {2};
    m_line->noise = withCrc("02 83 0B"); // station 2, function 3 refused, target does not respond
    runUntilCycle(1);
    QCOMPARE(log(), QStringLiteral("D0:1 D7:1 station 2 does not answer |"));
    for (const int index : {1, 2})
        QCOMPARE(m_watch->list().entries().at(index).state, WatchState::NoAnswer);
    m_clock->pass(10000000);
    QVERIFY(m_log.count(QStringLiteral("D7:1")) < 10);
    QVERIFY(!m_log.contains(QStringLiteral("station 2 answers again")));
}

// A read takes a millisecond.
void WatchPollingTest::slowTagsAreReadSeldom()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("D0"), slowTagOf("D500", 100), slowTagOf("D900", 1000)});
    m_clock->pass(1050000);
    QCOMPARE(m_log.count(QStringLiteral("D500:1")), 11);
    QCOMPARE(m_log.count(QStringLiteral("D900:1")), 2);
    QVERIFY(m_log.count(QStringLiteral("D0:1")) > 900);
    QCOMPARE(m_watch->summary().missed, qint64(0));
}

// Sooner than the idle driver is asked, which is every 20 ms.
void WatchPollingTest::fastTagsAreReadInTime()
{
    m_settings = chosenLengths();
    makeWatch({slowTagOf("D500", 5)});
    m_clock->pass(999000);
    QCOMPARE(m_log.count(QStringLiteral("D500:1")), 200);
    QCOMPARE(m_watch->summary().missed, qint64(0));
}

void WatchPollingTest::anIntervalBelowZeroIsNone()
{
    m_settings = chosenLengths();
    makeWatch({tagOf("D0")});
    QCOMPARE(m_session->watch({PolledRange{rangeOf("D5"), -1}}), 1);
    m_clock->pass(100000);
    QVERIFY(m_log.count(QStringLiteral("D5:1")) > 90);
    QCOMPARE(m_session->missedPolls(), qint64(0));
    m_line->silentStations = {1};
    m_clock->pass(10000000);
    QVERIFY(m_log.contains(QStringLiteral("station 1 does not answer")));
}

void WatchPollingTest::writesGoOnWhileNothingIsPolled()
{
    m_settings = chosenLengths();
    makeWatch({slowTagOf("D500", 60000)});
    runUntilCycle(1);
    int ended = 0;
    connect(m_session.get(), &Session::readFinished, this, [&] { ++ended; });
    for (int i = 0; i < 7; ++i) // more than the driver sends without a poll between
        m_session->read(rangeOf("D7"));
    m_clock->pass(100000);
    QCOMPARE(ended, 7);
}

QTEST_GUILESS_MAIN(WatchPollingTest)
#include "tst_watch_polling.moc"
