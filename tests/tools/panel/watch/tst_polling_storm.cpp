// Lists, silence and refusals that change at random, often from inside slots: whatever came
// before, every address of the last list is read in time, as what it is.

#include "panel/watch/watch.h"
#include "registers/register_types.h"
#include "tools/faults/faulty_run.h"
#include "tools/panel/watch/numbering_line.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

#include <random>

using namespace kx;

namespace
{

const int STATIONS = 3;
const int TIMEOUT = 50;           // milliseconds
const qint64 SECOND = 1000000;    // microseconds
const qint64 MOST_STEPS = 100000; // events in a second: a request takes a millisecond
const int INTERVALS[] = {0, 0, 7, 200, 5000};

DriverEntryPoints loadedDriver()
{
    DriverEntryPoints entryPoints;
    QString error;
    if (!loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error))
        qFatal("%s", qPrintable(error));
    return entryPoints;
}

SessionSettings settingsFor(unsigned seed)
{
    SessionSettings settings;
    settings.retries = 1 + static_cast<int>(seed % 3);
    settings.choosesLengths = seed % 4 != 0;
    settings.maxWords = settings.choosesLengths ? 125 : 32;
    settings.exchange.replyTimeout = TIMEOUT;
    return settings;
}

class Storm : public QObject
{
public:
    explicit Storm(unsigned seed);

    void act();
    /// False when time stands still.
    bool pass(qint64 microseconds);
    /// Calm: all stations answer all that they are asked for.
    void end();
    QString complaint() const;

private:
    int random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    QList<Tag> tags();
    void watch();
    void initialise();
    void reopen();
    void change();
    void actInASlot();

    std::mt19937 m_random;
    VirtualClock m_clock;
    NumberingLine m_line{&m_clock};
    std::unique_ptr<Session> m_session;
    std::unique_ptr<Watch> m_watch;
    bool m_isCalm = false;
    int m_depth = 0;
    qint64 m_cycles = 0;
};

Storm::Storm(unsigned seed) : m_random(seed)
{
    QString error;
    m_session = Session::create(loadedDriver(), &m_line, settingsFor(seed), &error, &m_clock);
    m_watch = std::make_unique<Watch>(m_session.get());
    Session* const session = m_session.get();
    connect(session, &Session::exchanged, this, &Storm::actInASlot);
    connect(session, &Session::valueChanged, this, &Storm::actInASlot);
    connect(session, &Session::readFinished, this, &Storm::actInASlot);
    connect(session, &Session::failed, this, &Storm::actInASlot);
    connect(session, &Session::stationSilenced, this, &Storm::actInASlot);
    connect(session, &Session::requestsShortened, this, &Storm::actInASlot);
    connect(session, &Session::cycleFinished, this, &Storm::actInASlot);
    connect(session, &Session::idle, this, &Storm::actInASlot);
    connect(m_watch.get(), &Watch::cycleFinished, this, [this](qint64 n) { m_cycles = n; });
    session->start();
}

QList<Tag> Storm::tags()
{
    const char* const types[] = {"D", "M", "X", "SD", "32CV"};
    QList<Tag> tags;
    const int count = random(12);
    for (int i = 0; i < count; ++i) {
        Tag tag;
        tag.range.type = findRegisterType(QString::fromLatin1(types[random(5)]));
        tag.range.station = 1 + random(STATIONS);
        const int lowest = tag.range.type->lowestAddress;
        const int addresses = tag.range.type->limit - lowest;
        tag.range.address = lowest + random(qMin(addresses, 300));
        tag.range.values = 1 + random(qMin(150, lowest + addresses - tag.range.address));
        tag.interval = INTERVALS[random(5)];
        tags << tag;
    }
    return tags;
}

void Storm::watch()
{
    m_watch->setTags(tags());
}

void Storm::initialise()
{
    m_session->initialise();
    watch(); // the session has none
}

void Storm::reopen()
{
    m_line.interrupt();
    m_line.open();
}

void Storm::change()
{
    m_line.silentStations.clear();
    for (int station = 1; station <= STATIONS; ++station) {
        if (random(3) == 0)
            m_line.silentStations.insert(station);
    }
    m_line.noise = QByteArray(random(3) == 0 ? random(9) : 0, '\0');
    m_line.controller.missing = random(2) == 0 ? random(300) : -1;
    m_line.controller.mostRegisters = random(3) == 0 ? 20 : 125;
}

void Storm::act()
{
    const int what = random(100);
    if (what < 30)
        change();
    else if (what < 60)
        watch();
    else if (what < 80)
        m_session->read(rangeOf(random(2) ? "D7@2" : "M3@1"));
    else if (what < 84)
        m_session->stop();
    else if (what < 94)
        m_session->start();
    else if (what < 96)
        initialise();
    else
        reopen();
}

void Storm::actInASlot()
{
    if (m_isCalm || m_depth >= 3 || random(20) != 0)
        return;
    ++m_depth;
    act();
    --m_depth;
}

bool Storm::pass(qint64 microseconds)
{
    const qint64 end = m_clock.now() + microseconds;
    m_clock.after(microseconds, [] {});
    for (qint64 steps = MOST_STEPS * (1 + microseconds / SECOND); steps > 0; --steps) {
        if (m_clock.now() >= end)
            return true;
        m_clock.step();
    }
    return false;
}

void Storm::end()
{
    m_isCalm = true;
    m_line.silentStations.clear();
    m_line.controller.missing = -1;
    m_line.controller.mostRegisters = 125;
    m_session->start();
}

QString Storm::complaint() const
{
    for (const WatchEntry& entry : m_watch->list().entries()) {
        const QString name =
            QStringLiteral("%1@%2").arg(addressText(entry.type, entry.address)).arg(entry.station);
        if (entry.state != WatchState::Ok)
            return QStringLiteral("%1 is in state %2").arg(name).arg(int(entry.state));
        if (m_session->elapsed() - entry.readAt > 6000)
            return QStringLiteral("%1 was read %2 ms ago")
                .arg(name)
                .arg(m_session->elapsed() - entry.readAt);
        const int number = modbusNumber(entry.type, entry.address);
        const qint64 value = entry.type->registerClass == BIT_CLASS ? (number & 1)
                             : registersPerAddress(entry.type) == 2
                                 ? (qint64(number) << 16) + number + 1
                                 : number;
        if (entry.value != value)
            return QStringLiteral("%1 is %2, not %3").arg(name).arg(entry.value).arg(value);
    }
    if (m_watch->list().entries().isEmpty() || m_cycles > 0)
        return QString();
    return QStringLiteral("no cycle ended");
}

} // namespace

class PollingStormTest : public QObject
{
    Q_OBJECT

private slots:
    void randomChanges_data();
    void randomChanges();
};

void PollingStormTest::randomChanges_data()
{
    QTest::addColumn<unsigned>("seed");
    const int seeds = runLength("KX_STORM_SEEDS", 10);
    for (int seed = 1; seed <= seeds; ++seed)
        QTest::addRow("seed %d", seed) << static_cast<unsigned>(seed);
}

void PollingStormTest::randomChanges()
{
    QFETCH(unsigned, seed);
    Storm storm(seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 300; ++i) {
        storm.act();
        QVERIFY(storm.pass(static_cast<qint64>(random() % 300000)));
    }
    storm.end();
    QVERIFY(storm.pass(15 * SECOND));
    const QString complaint = storm.complaint();
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

QTEST_GUILESS_MAIN(PollingStormTest)
#include "tst_polling_storm.moc"
