// A line that never falls silent: requests fail after the time-out, nothing is sent into
// it, and what came is forgotten. Time is virtual.

#include "exchange/exchange_loop.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_driver.h"
#include "tools/exchange/virtual_clock.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(LineTiming)

namespace
{

const qint64 MILLISECOND = 1000; // microseconds
const qint64 SECOND = 1000000;   // microseconds
const qint64 BETWEEN = 2;        // milliseconds between two pieces of the flood
const char* const READ = "01 03 00 64 00 02";
const char* const GOOD = "01 03 04 04 D2 16 2E";

class FloodingLine : public Line
{
public:
    FloodingLine(VirtualClock* clock, const LineTiming& timing) : m_clock(clock), m_timing(timing)
    {
    }

    QString name() const override { return QStringLiteral("flood"); }
    LineTiming timing() const override { return m_timing; }
    void open() override { emit opened(); }
    void close() override {}
    bool isOpen() const override { return true; }
    void write(const QByteArray& bytes) override
    {
        written << bytes;
        if (!answer.isEmpty())
            m_clock->after(MILLISECOND, [this] { emit bytesArrived(answer); });
    }
    QByteArray takeWaiting() override { return QByteArray(); }
    QByteArray discardWaiting() override { return QByteArray(); }

    void flood(const QByteArray& bytes)
    {
        piece = bytes;
        m_clock->after(BETWEEN * MILLISECOND, [this] {
            if (piece.isEmpty())
                return;
            emit bytesArrived(piece);
            flood(piece);
        });
    }

    QByteArray piece; ///< empty: silent again
    QByteArray answer;
    QList<QByteArray> written;

private:
    VirtualClock* m_clock;
    LineTiming m_timing;
};

const LineTiming NETWORK = {0, 8, 0, 1};
const LineTiming SERIAL; // 9600 baud, 3.6 ms between frames

} // namespace

class FloodedLineTest : public QObject
{
    Q_OBJECT

private slots:
    void requestsFailAfterTheTimeOut_data();
    void requestsFailAfterTheTimeOut();
    void itIsUsedWhenItFallsSilent();
    void aQuietThatNeverComesIsDoneWithout();
    void repliesOfOthersWithoutEnd();

private:
    void start(const LineTiming& timing, int quiet = 0);

    std::unique_ptr<VirtualClock> m_clock;
    std::unique_ptr<FloodingLine> m_line;
    std::unique_ptr<ScriptedDriver> m_driver;
    std::unique_ptr<ExchangeLoop> m_loop;
    QList<ExchangeRecord> m_records;
};

void FloodedLineTest::start(const LineTiming& timing, int quiet)
{
    m_loop.reset();
    m_records.clear();
    m_driver.reset();
    m_driver = std::make_unique<ScriptedDriver>();
    m_clock = std::make_unique<VirtualClock>();
    m_line = std::make_unique<FloodingLine>(m_clock.get(), timing);
    for (int i = 0; i < 3; ++i)
        m_driver->request(withCrc(READ), 9);
    const ExchangeSettings settings = {1000, 100, 20, 0, quiet};
    m_loop = std::make_unique<ExchangeLoop>(m_driver->entryPoints(), m_line.get(), settings,
                                            m_clock.get());
    connect(m_loop.get(), &ExchangeLoop::exchanged, this,
            [this](const ExchangeRecord& record) { m_records << record; });
}

void FloodedLineTest::requestsFailAfterTheTimeOut_data()
{
    QTest::addColumn<LineTiming>("timing");
    QTest::addColumn<int>("sent"); // before the flood is known
    // No silence is kept on a network before the first reply that is no frame.
    QTest::newRow("network") << NETWORK << 1;
    QTest::newRow("serial") << SERIAL << 0;
}

void FloodedLineTest::requestsFailAfterTheTimeOut()
{
    QFETCH(LineTiming, timing);
    QFETCH(int, sent);
    start(timing);
    m_driver->results = {8, 8, 2};
    m_line->flood(QByteArray(4096, '\x55'));
    m_clock->pass(BETWEEN * MILLISECOND);
    m_loop->start();
    while (m_records.size() < 3)
        QVERIFY(m_clock->step());
    // The time-out for each that was not sent, and the silence that did not come.
    QVERIFY(m_loop->elapsed() >= (3 - sent) * 1000);
    QVERIFY(m_loop->elapsed() <= (3 - sent) * 1025);
    QCOMPARE(static_cast<int>(m_line->written.size()), sent);
    for (int i = sent; i < 3; ++i) {
        QVERIFY(m_records.at(i).replyKind == ReplyKind::NeverSilent);
        QCOMPARE(m_records.at(i).request, QByteArray());
        QCOMPARE(m_driver->replies.at(i), QByteArray());
    }
    const Statistics& statistics = m_loop->statistics();
    QCOMPARE(statistics.bad.neverSilent, qint64(3 - sent));
    QCOMPARE(statistics.requests, qint64(3));
    QCOMPARE(statistics.failed, qint64(1));
    // Each piece is counted and, but for the last one, forgotten.
    QVERIFY(statistics.bytesReceived > (3 - sent) * 490 * 4096);
    QVERIFY(statistics.thrownAway.bytes >= statistics.bytesReceived - 2 * 4096);
}

void FloodedLineTest::itIsUsedWhenItFallsSilent()
{
    start(SERIAL);
    m_driver->results = {8, 1};
    m_line->flood(QByteArray(10, '\x55'));
    m_loop->start();
    m_clock->pass(SECOND + 100 * MILLISECOND);
    QCOMPARE(static_cast<int>(m_records.size()), 1);
    m_line->piece.clear();
    m_line->answer = withCrc(GOOD);
    m_clock->pass(100 * MILLISECOND);
    QCOMPARE(m_line->written.value(0), withCrc(READ));
    QVERIFY(m_records.at(1).replyKind == ReplyKind::Good);
}

void FloodedLineTest::aQuietThatNeverComesIsDoneWithout()
{
    start(SERIAL, 500);
    m_line->answer = withCrc(GOOD);
    // Longer than the frame gap, much shorter than 500 ms.
    const std::function<void()> chatter = [&] {
        emit m_line->bytesArrived(QByteArray("\x55"));
        m_clock->after(50 * MILLISECOND, chatter);
    };
    m_clock->after(0, chatter);
    m_loop->start();
    m_clock->pass(3 * SECOND);
    QCOMPARE(m_line->written.value(0), withCrc(READ));
    QCOMPARE(m_loop->statistics().bad.neverSilent, qint64(0));
}

// Whole frames are thrown away one by one until the time-out; what is kept is bounded.
void FloodedLineTest::repliesOfOthersWithoutEnd()
{
    start(NETWORK);
    m_driver->results = {2, 2, 2};
    QByteArray frames;
    for (int i = 0; i < 400; ++i)
        frames += withCrc("02 03 04 04 D2 16 2E");
    m_loop->start();
    m_line->flood(frames);
    m_clock->pass(SECOND + 10 * MILLISECOND);
    QCOMPARE(static_cast<int>(m_records.size()), 1);
    QVERIFY(m_records.first().replyKind == ReplyKind::Foreign);
    QCOMPARE(static_cast<int>(m_records.first().reply.size()), 4096);
    QVERIFY(m_loop->statistics().bytesReceived > 490 * 3600);
}

QTEST_GUILESS_MAIN(FloodedLineTest)
#include "tst_flooded_line.moc"
