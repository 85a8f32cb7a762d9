#include "kxpanel/machine/machine_session.h"

#include "exchange/driver_library.h"
#include "kxpanel/machine/machine_line.h"
#include "tools/kxpanel/machine_fixture.h"

#include <QtCore/QDateTime>
#include <QtTest/QTest>

using namespace kxpanel;

class MachineSessionTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void allIsToldWhileItIsTaken();
    void eachChangeIsToldThoughItIsGathered();
    void theLastExchangeOfEachCycleIsTold();
    void whileListenersStandStillTheLatestIsKept();
    void aShortPauseLosesNoExchange();
    void theEndIsToldThoughNobodyListens();
    void timesFollowTheClockThatIsSet();
    void timesFollowASleep();
    void aSleepIsTold();
    void aSleepIsToldBeforeTheLineThatItLost();
    void whatWasReadIsToldBeforeTheLineIsLost();

private:
    void start(int most, int mostKept);
    /// Until so many exchanges more have ended.
    void pass(int exchanges);

    std::unique_ptr<MachineLine> m_line;
    std::unique_ptr<Backlog> m_backlog;
    std::unique_ptr<MachineSession> m_session;
    QStringList m_order;     ///< what was told, in order: "exchanges", "readings", "missed",
                             ///< "lost", "open"
    QList<qint64> m_numbers; ///< of the exchanges told
    QMap<int, Reading> m_readings;
    QVector<Reading> m_allReadings;
    QList<Missed> m_missed;
    qint64 m_setBy = 0; ///< of the test's clock of the day, milliseconds
    qint64 m_slept = 0; ///< milliseconds
    QList<qint64> m_steps;
    int m_toTake = 0;
    int m_counts = 0;
    qint64 m_cycleEnds = 0; ///< of the exchanges told
    qint64 m_cycles = 0;    ///< told last
};

void MachineSessionTest::init()
{
    m_order.clear();
    m_numbers.clear();
    m_readings.clear();
    m_allReadings.clear();
    m_missed.clear();
    m_setBy = m_slept = 0;
    m_steps.clear();
    m_toTake = 0;
    m_counts = 0;
    m_cycleEnds = m_cycles = 0;
}

void MachineSessionTest::cleanup()
{
    m_session.reset();
    m_line.reset();
}

void MachineSessionTest::start(int most, int mostKept)
{
    kx::ConnectionOptions options = simulated();
    options.timing.baud = 4000000;
    QString error;
    kx::DriverEntryPoints entryPoints;
    QVERIFY2(kx::loadDriver(options.library, &entryPoints, &error), qPrintable(error));
    m_line = makeLine(options, &error);
    QVERIFY2(m_line, qPrintable(error));
    m_line->connection->open();
    QTRY_VERIFY(m_line->connection->isOpen());
    auto session =
        kx::Session::create(entryPoints, m_line->connection->line(), options.session, &error);
    QVERIFY2(session, qPrintable(error));
    m_backlog = std::make_unique<Backlog>(most);
    const auto clocks = [this] {
        const SystemTimes now = systemTimes();
        return SystemTimes{now.steady + m_slept, now.timeOfDay + m_slept + m_setBy};
    };
    m_session = std::make_unique<MachineSession>(std::move(session), nullptr, m_backlog.get(), 0,
                                                 mostKept, clocks);
    connect(m_session.get(), &MachineSession::clockSet, this, [this](qint64 by) { m_steps << by; });
    connect(m_session.get(), &MachineSession::exchanged, this,
            [this](const QVector<Exchange>& exchanges) {
                m_order << "exchanges";
                for (const Exchange& exchange : exchanges) {
                    m_numbers << exchange.number;
                    m_cycleEnds += exchange.endsCycle ? 1 : 0;
                }
            });
    connect(m_session.get(), &MachineSession::valuesRead, this,
            [this](const QVector<Reading>& readings) {
                m_order << "readings";
                m_allReadings << readings;
                for (const Reading& reading : readings)
                    m_readings[reading.number] = reading;
            });
    connect(m_session.get(), &MachineSession::missed, this, [this](const Missed& missed) {
        m_order << "missed";
        m_missed << missed;
    });
    connect(m_session.get(), &MachineSession::linkChanged, this,
            [this](bool isLost) { m_order << (isLost ? "lost" : "open"); });
    connect(m_session.get(), &MachineSession::counted, this, [this] { ++m_counts; });
    connect(m_session.get(), &MachineSession::cycleFinished, this,
            [this](qint64 cycles) { m_cycles = cycles; });
    connect(m_session.get(), &MachineSession::told, this,
            [this](int amount) { m_toTake += amount; });
    m_session->setValues({watched(1, "D0"), watched(2, "D110")});
    m_session->start();
}

void MachineSessionTest::pass(int exchanges)
{
    const qint64 from = m_session->exchanges();
    QTRY_VERIFY_WITH_TIMEOUT(m_session->exchanges() >= from + exchanges, 20000);
}

void MachineSessionTest::allIsToldWhileItIsTaken()
{
    start(100, 4);
    connect(m_session.get(), &MachineSession::told, this,
            [this](int amount) { m_backlog->take(amount); });
    pass(100);
    m_session->stop();
    QCOMPARE(qint64(m_numbers.size()), m_session->exchanges());
    for (const Missed& missed : qAsConst(m_missed))
        QVERIFY(missed.isRest); // of this process
}

/// A ramp of 125 steps a second, of which several fall into one gathering.
void MachineSessionTest::eachChangeIsToldThoughItIsGathered()
{
    QStringList replied;
    start(1000000, 100000);
    connect(m_session.get(), &MachineSession::exchanged, this,
            [&replied](const QVector<Exchange>& exchanges) {
                // 1 station, 3 function, 2 bytes that follow, the value, CRC
                for (const Exchange& exchange : exchanges) {
                    const QString value = QString::fromLatin1(exchange.reply.mid(3, 2).toHex());
                    if (exchange.wasAccepted && (replied.isEmpty() || replied.last() != value))
                        replied << value;
                }
            });
    m_session->setValues({watched(3, "D102")});
    QTRY_VERIFY_WITH_TIMEOUT(replied.size() >= 60, 20000);
    m_session->stop();
    QStringList told;
    qint64 before = 0;
    for (const Reading& reading : qAsConst(m_allReadings)) {
        if (reading.number != 3 || reading.raw.isEmpty())
            continue;
        const QString value =
            QString::number(reading.raw.first(), 16).rightJustified(4, QLatin1Char('0'));
        if (told.isEmpty() || told.last() != value)
            told << value;
        QVERIFY(reading.readAt >= before);
        before = reading.readAt;
    }
    QCOMPARE(told.join(' '), replied.join(' '));
}

void MachineSessionTest::theLastExchangeOfEachCycleIsTold()
{
    start(1000000, 5000);
    m_session->setValues({watched(1, "D0"), watched(2, "D7000"), watched(3, "X0")}); // three each
    pass(60);
    m_session->stop();
    QVERIFY(m_cycles >= 15);
    QCOMPARE(m_cycleEnds, m_cycles);
    QVERIFY(m_numbers.size() > 2 * m_cycles);
}

void MachineSessionTest::whileListenersStandStillTheLatestIsKept()
{
    start(20, 5);
    QTRY_VERIFY(m_backlog->isFull());
    const QStringList order = m_order;
    const int counts = m_counts;
    const int told = static_cast<int>(m_numbers.size());
    const qint64 readAt = m_readings.value(2).readAt;
    pass(60);
    QTest::qWait(600); // counts would come twice a second
    QCOMPARE(m_order, order);
    QCOMPARE(m_counts, counts);
    const qint64 last = m_session->exchanges();
    m_backlog->take(m_toTake); // they go on
    QTRY_VERIFY(m_order.size() > order.size());
    QCOMPARE(m_order.mid(order.size(), 3), (QStringList{"missed", "exchanges", "readings"}));
    QVERIFY(m_missed.first().exchanges > 0);
    QVERIFY(m_missed.first().to - m_missed.first().from >= 600);
    // The oldest were thrown away, and counted: nothing else is missing.
    QCOMPARE(m_numbers.at(told), told + 1 + m_missed.first().exchanges);
    for (int i = told + 1; i < m_numbers.size(); ++i)
        QCOMPARE(m_numbers.at(i), m_numbers.at(i - 1) + 1);
    QVERIFY(m_numbers.last() >= last);
    QVERIFY(m_numbers.size() - told < 2 * 5 + 1);
    QVERIFY(m_readings.value(2).readAt > readAt);
}

void MachineSessionTest::aShortPauseLosesNoExchange()
{
    start(20, 1000);
    QTRY_VERIFY(m_backlog->isFull());
    pass(60);
    m_backlog->take(m_toTake);
    QTRY_COMPARE(m_missed.size(), 1);
    QCOMPARE(m_missed.first().exchanges, qint64(0));
    for (int i = 0; i < m_numbers.size(); ++i)
        QCOMPARE(m_numbers.at(i), qint64(i + 1));
}

void MachineSessionTest::theEndIsToldThoughNobodyListens()
{
    start(20, 5);
    QTRY_VERIFY(m_backlog->isFull());
    const int counts = m_counts;
    pass(60);
    m_session->stop();
    QCOMPARE(m_numbers.last(), m_session->exchanges());
    QCOMPARE(m_missed.size(), 1);
    QCOMPARE(m_missed.first().exchanges + m_numbers.size(), m_session->exchanges());
    QCOMPARE(m_counts, counts + 1);
}

void MachineSessionTest::timesFollowTheClockThatIsSet()
{
    start(1000000, 1000);
    pass(20);
    m_setBy = -3600000;
    QTRY_COMPARE(m_steps.size(), 1);
    QVERIFY(qAbs(m_steps.first() + 3600000) < 50);
    pass(20);
    const qint64 age = QDateTime::currentMSecsSinceEpoch() - 3600000 - m_readings.value(2).readAt;
    QVERIFY2(age > -50 && age < 2000, qPrintable(QString::number(age)));
    QCOMPARE(m_steps.size(), 1);
}

void MachineSessionTest::timesFollowASleep()
{
    start(1000000, 1000);
    pass(20);
    m_slept = 7200000;
    pass(20);
    QTRY_VERIFY(m_readings.value(2).readAt - QDateTime::currentMSecsSinceEpoch() > 7190000);
    const qint64 age = QDateTime::currentMSecsSinceEpoch() + 7200000 - m_readings.value(2).readAt;
    QVERIFY2(age > -50 && age < 2000, qPrintable(QString::number(age)));
    QCOMPARE(m_steps.size(), 0);
    QCOMPARE(m_missed.size(), 1); // nothing was read meanwhile
    QVERIFY(m_missed.first().isRest);
    const qint64 slept = m_missed.first().to - m_missed.first().from;
    QVERIFY2(slept >= 7200000 && slept < 7202000, qPrintable(QString::number(slept)));
    QCOMPARE(m_missed.first().exchanges, qint64(0));
}

/// What was read before it says nothing of how the values were meanwhile.
void MachineSessionTest::aSleepIsTold()
{
    start(1000000, 1000);
    pass(20);
    const qint64 asleep = QDateTime::currentMSecsSinceEpoch();
    m_slept = 7200000;
    QTRY_COMPARE(m_missed.size(), 1);
    QVERIFY(m_missed.first().isRest);
    QVERIFY(qAbs(m_missed.first().from - asleep) < 2000);
    QVERIFY(qAbs(m_missed.first().to - asleep - 7200000) < 2000);
    pass(20);
    QCOMPARE(m_missed.size(), 1);
}

/// An adapter that is gone when the computer wakes up: what is drawn ends where the sleep began.
void MachineSessionTest::aSleepIsToldBeforeTheLineThatItLost()
{
    start(1000000, 1000);
    pass(20);
    m_order.clear();
    m_slept = 3600000;
    emit m_line->connection->line()->interrupted();
    m_order.removeAll("exchanges");
    m_order.removeAll("readings");
    QCOMPARE(m_order, (QStringList{"missed", "lost"}));
    QVERIFY(m_missed.first().isRest);
    const qint64 slept = m_missed.first().to - m_missed.first().from;
    QVERIFY2(slept >= 3600000 && slept < 3602000, qPrintable(QString::number(slept)));
}

void MachineSessionTest::whatWasReadIsToldBeforeTheLineIsLost()
{
    start(1000000, 1000);
    pass(20);
    QTRY_VERIFY(m_session->exchanges() > m_numbers.size());
    emit m_line->connection->line()->interrupted();
    QCOMPARE(m_order.mid(m_order.size() - 3), (QStringList{"exchanges", "readings", "lost"}));
    QCOMPARE(qint64(m_numbers.size()), m_session->exchanges());
    QCOMPARE(m_readings.value(2).state, kx::WatchState::Ok);
    QTRY_COMPARE(m_readings.value(2).state, kx::WatchState::NoAnswer);
}

QTEST_MAIN(MachineSessionTest)
#include "tst_machine_session.moc"
