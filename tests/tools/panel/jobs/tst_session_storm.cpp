// Thousands of random calls, most of them from inside slots: each handle ends once, what was
// confirmed is in the controllers' memory in the order in which it was asked for, and polling
// goes on.

#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QTest>

#include <map>
#include <random>

using namespace kx;

namespace
{

const int STATIONS = 3; // of which the third does not exist
const int FIRST_ADDRESS = 200;
const int ADDRESSES = 4;

/// Calls the session at random and keeps account of what it was told.
class Caller : public QObject
{
public:
    Caller(PollingRun* polling, unsigned seed);

    void call();
    /// Empty when all is as promised.
    QString complaint() const { return m_complaint; }
    void compareMemory();
    int confirmed() const { return m_confirmed; }

private:
    using Place = std::pair<int, int>; // station, address
    struct Write {
        Place place;
        quint32 value = 0;
    };

    int random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    void complain(const QString& text);
    AddressRange place();
    void write();
    void callFromASlot();
    void end(int handle);
    void takeWrite(int handle, const WriteEnd& end);

    PollingRun* m_polling;
    std::mt19937 m_random;
    std::map<int, Write> m_open; ///< by handle; reads and recipes have no place
    std::map<Place, std::vector<quint32>> m_possible; ///< what each register may hold
    QList<std::pair<int, QString>> m_early;           ///< told before its handle was known
    int m_depth = 0;
    int m_latestConfirmed = 0; ///< handle
    int m_confirmed = 0;
    quint32 m_value = 0;
    QString m_complaint;
};

Caller::Caller(PollingRun* polling, unsigned seed) : m_polling(polling), m_random(seed)
{
    Session* const session = &polling->session();
    connect(session, &Session::writeFinished, this, &Caller::takeWrite);
    connect(session, &Session::readFinished, this, [this](int handle, const ReadEnd& end) {
        this->end(handle);
        const VARIABLE& job = end.exchange.job;
        const QString text = QStringLiteral("D%1@%2").arg(job.address).arg(job.station);
        // Nothing has reached the station since it answered.
        if (end.failure.isNone()
            && end.values != QList<qint64>{m_polling->memory(qPrintable(text)).first()})
            complain(QStringLiteral("a read of %1 brought another value").arg(text));
        callFromASlot();
    });
    connect(session, &Session::recipeFinished, this, [this](int handle) {
        end(handle);
        callFromASlot();
    });
    connect(session, &Session::exchanged, this, &Caller::callFromASlot);
    connect(session, &Session::valueChanged, this, &Caller::callFromASlot);
    connect(session, &Session::failed, this, &Caller::callFromASlot);
}

void Caller::complain(const QString& text)
{
    if (m_complaint.isEmpty())
        m_complaint = text;
}

AddressRange Caller::place()
{
    return {findRegisterType(QStringLiteral("D")), FIRST_ADDRESS + random(ADDRESSES), 1,
            1 + random(STATIONS)};
}

void Caller::write()
{
    const AddressRange range = place();
    const Write write = {{range.station, range.address}, ++m_value % 65536};
    std::vector<quint32>& possible = m_possible[write.place];
    if (possible.empty())
        possible.push_back(0);
    possible.push_back(write.value);
    m_open[m_polling->session().write({range, {write.value}})] = write;
}

void Caller::call()
{
    Session& session = m_polling->session();
    const int what = random(100);
    if (what < 45)
        write();
    else if (what < 70)
        m_open[session.read(place())] = Write();
    else if (what < 73)
        m_open[session.transferRecipe(
            random(2) ? RecipeDirection::Upload : RecipeDirection::Download,
            layoutOf("a,1,D,300,uint16,7\nb,2,D,400,uint16,8\n").passes)] = Write();
    else if (what < 90 && !m_open.empty())
        session.cancel(std::next(m_open.begin(), random(static_cast<int>(m_open.size())))->first,
                       QString());
    else if (what < 94)
        session.watch(m_polling->run().watched());
    else if (what < 95)
        session.initialise();
    else if (what < 96)
        session.stop();
    else
        session.start();
}

void Caller::callFromASlot()
{
    if (m_depth >= 3 || random(3) != 0)
        return;
    ++m_depth;
    call();
    --m_depth;
}

void Caller::end(int handle)
{
    if (m_open.erase(handle) != 1)
        complain(QStringLiteral("%1 ended unasked").arg(handle));
}

void Caller::takeWrite(int handle, const WriteEnd& writeEnd)
{
    const Write write = m_open[handle];
    end(handle);
    if (writeEnd.failure.isNone()) {
        ++m_confirmed;
        if (handle < m_latestConfirmed)
            complain(QStringLiteral("%1 confirmed before %2").arg(m_latestConfirmed).arg(handle));
        m_latestConfirmed = handle;
        // Whatever was asked for earlier cannot be there any more.
        std::vector<quint32>& possible = m_possible[write.place];
        possible.erase(possible.begin(), std::find(possible.begin(), possible.end(), write.value));
        if (write.place.first == STATIONS)
            complain(QStringLiteral("a station that does not exist confirmed"));
    }
    callFromASlot();
}

void Caller::compareMemory()
{
    for (const auto& [place, possible] : m_possible) {
        if (place.first == STATIONS)
            continue;
        const QString text = QStringLiteral("D%1@%2").arg(place.second).arg(place.first);
        const quint32 held = m_polling->memory(qPrintable(text)).first();
        if (std::find(possible.begin(), possible.end(), held) == possible.end())
            complain(QStringLiteral("%1 holds %2").arg(text).arg(held));
    }
}

} // namespace

class SessionStormTest : public QObject
{
    Q_OBJECT

private slots:
    void randomCalls_data();
    void randomCalls();
};

void SessionStormTest::randomCalls_data()
{
    QTest::addColumn<unsigned>("seed");
    const int seeds = runLength("KX_STORM_SEEDS", 10);
    for (int seed = 1; seed <= seeds; ++seed)
        QTest::addRow("seed %d", seed) << static_cast<unsigned>(seed);
}

void SessionStormTest::randomCalls()
{
    QFETCH(unsigned, seed);
    PollingRun polling;
    Caller caller(&polling, seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 1500; ++i) {
        caller.call();
        qint64 steps = static_cast<qint64>(random() % 8);
        polling.run().runUntil([&steps] { return steps-- <= 0; });
        if (i % 8 == 0)
            QCoreApplication::processEvents();
        if (i % 100 == 0) {
            polling.session().start();
            caller.compareMemory();
        }
        QCOMPARE(caller.complaint(), QString());
    }
    disconnect(&polling.session(), nullptr, &caller, nullptr);
    polling.session().start();
    polling.session().watch(polling.run().watched());
    QVERIFY(polling.pollsGoOn());
    QVERIFY(caller.confirmed() > 50);
}

QTEST_GUILESS_MAIN(SessionStormTest)
#include "tst_session_storm.moc"
