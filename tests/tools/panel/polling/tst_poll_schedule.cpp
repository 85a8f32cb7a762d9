// Which poll is next. Each takes 10 ms, and 100 ms when its station does not answer.

#include "panel/polling/poll_schedule.h"

#include "registers/register_types.h"
#include "tools/panel/plan/range_texts.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const qint64 MILLISECOND = 1000;
const qint64 TIMEOUT = 100 * MILLISECOND;
const qint64 ANSWER = 10 * MILLISECOND;

/// Polls at work, in a time of their own.
class PollRun
{
public:
    /// @param polls "D0@1 D7@1/250": with an interval in milliseconds
    explicit PollRun(const QString& polls) { setPolls(polls); }

    void setPolls(const QString& polls)
    {
        QList<PolledRange> ranges;
        for (const QString& text : polls.split(QLatin1Char(' '))) {
            const QStringList parts = text.split(QLatin1Char('/'));
            ranges << PolledRange{rangesOf(parts.first()).first(), parts.value(1).toInt()};
        }
        m_schedule.setPolls(ranges, m_now);
    }

    /// What is sent until then: its address without the station when that is 1, "!" behind what got
    /// no answer, "?" behind a single try, "|" at the end of a cycle and "5ms" for idle time.
    QString until(qint64 milliseconds)
    {
        const qint64 end = milliseconds * MILLISECOND;
        QStringList sent;
        qint64 idleSince = -1;
        const auto endIdle = [&] {
            if (idleSince >= 0)
                sent << QStringLiteral("%1ms").arg((m_now - idleSince) / MILLISECOND);
            idleSince = -1;
        };
        while (m_now < end) {
            const int index = m_schedule.next(m_now);
            if (index >= 0) {
                endIdle();
                sent << send(index);
                continue;
            }
            if (m_schedule.nextAt() <= m_now)
                return QStringLiteral("stands still");
            idleSince = idleSince < 0 ? m_now : idleSince;
            m_now = std::min(m_schedule.nextAt(), end);
        }
        endIdle();
        return sent.join(QLatin1Char(' '));
    }

    QSet<int> silent;         ///< stations
    QSet<QString> unanswered; ///< addresses
    PollSchedule& schedule() { return m_schedule; }

private:
    QString send(int index)
    {
        const AddressRange range = m_schedule.poll(index).range;
        QString text = addressText(range.type, range.address);
        const bool isSilent = silent.contains(range.station) || unanswered.contains(text);
        if (range.station != 1)
            text += QStringLiteral("@%1").arg(range.station);
        text += QLatin1String(m_schedule.isTry(index) ? "?" : "");
        m_schedule.begin(index, m_now);
        m_now += isSilent ? TIMEOUT : ANSWER;
        const PollSchedule::Step step = m_schedule.end(
            index, isSilent ? PollSchedule::Outcome::Silent : PollSchedule::Outcome::Answered,
            m_now);
        text += QLatin1String(isSilent ? "!" : "");
        text += step.silenced == 0 ? QString() : QStringLiteral("(%1)").arg(step.silenced);
        return text + QLatin1String(step.endsCycle ? "|" : "");
    }

    PollSchedule m_schedule{TIMEOUT};
    qint64 m_now = 0;
};

} // namespace

class PollScheduleTest : public QObject
{
    Q_OBJECT

private slots:
    void pollsTakeTurns();
    void nothingToPoll();
    void slowOnesComeBetween();
    void slowOnesAreSpread();
    void whatMissesItsIntervalIsCounted();
    void withIntervalsAloneACycleIsOneReadOfEach();
    void aSilentStationIsTriedNowAndThen();
    void itsPollsAreTriedInTurn();
    void itIsBackAtOnce();
    void aSilentStationWithIntervalsAlone();
    void aStationThatFallsSilentBetweenCyclesIsTried();
    void whatIsReadSeldomIsReadWhenItsStationIsBack();
    void aPollThatIsNeverAnsweredIsLeftOutAlone();
    void theLinesFaultIsNoSilence();
    void whatStaysKeepsItsTimes();
    void aListThatIsReplacedMidwayBeginsAnew();
};

void PollScheduleTest::pollsTakeTurns()
{
    PollRun run(QStringLiteral("D0@1 D1@1 D2@2"));
    QCOMPARE(run.until(60), QStringLiteral("D0 D1 D2@2| D0 D1 D2@2|"));
}

void PollScheduleTest::nothingToPoll()
{
    PollSchedule schedule(TIMEOUT);
    QCOMPARE(schedule.next(0), -1);
    schedule.setPolls({}, 0);
    QCOMPARE(schedule.next(7), -1);
    QVERIFY(schedule.nextAt() > 1000000 * MILLISECOND);
}

// Both at once at the beginning, and then D9 with half a period between D8 and itself.
void PollScheduleTest::slowOnesComeBetween()
{
    PollRun run(QStringLiteral("D0@1 D1@1 D8@1/100 D9@1/100"));
    QCOMPARE(run.until(200),
             QStringLiteral("D8 D0 D9 D1| D0 D9 D1| D0 D1| D0 D8 D1| D0 D1| D0 D9 D1| D0 D1| D0"));
}

void PollScheduleTest::slowOnesAreSpread()
{
    PollRun run(QStringLiteral("D0@1/80 D1@1/80 D2@1/80 D3@1/80"));
    run.until(80);
    // Each 20 ms after the one before.
    QCOMPARE(run.until(160), QStringLiteral("D0| 10ms D1 10ms D2 10ms D3 10ms"));
}

// D8 is due every 10 ms and takes turns with D0, so it comes every 20 ms.
void PollScheduleTest::whatMissesItsIntervalIsCounted()
{
    PollRun run(QStringLiteral("D0@1 D8@1/10"));
    QCOMPARE(run.until(100), QStringLiteral("D8 D0| D8 D0| D8 D0| D8 D0| D8 D0|"));
    // The first is due at 0 and sent then; the second is due at 10, sent at 20, and so on.
    QCOMPARE(run.schedule().missed(), qint64(4));
}

void PollScheduleTest::withIntervalsAloneACycleIsOneReadOfEach()
{
    PollRun run(QStringLiteral("D0@1/100 D1@1/100 D2@1/1000"));
    QCOMPARE(run.until(230), QStringLiteral("D0 D1| D2 20ms D1 40ms D0| 40ms D1 40ms D0| 20ms"));
}

void PollScheduleTest::aSilentStationIsTriedNowAndThen()
{
    PollRun run(QStringLiteral("D0@1 D0@2"));
    run.silent = {2};
    // At once in the next cycle, then 4, 8 and 16 time-outs after the try before.
    const QString sent = run.until(4000);
    QCOMPARE(sent.count(QStringLiteral("D0@2")), 5);
    QVERIFY(sent.startsWith(QStringLiteral("D0 D0@2!(2)| D0 D0@2?!| D0| D0| D0|")));
    QStringList tries = sent.split(QStringLiteral("D0@2?!|"));
    QCOMPARE(tries.at(1).count(QStringLiteral("D0|")), 39); // 390 ms, and the one before the try
    QCOMPARE(tries.at(2).count(QStringLiteral("D0|")), 79);
    QCOMPARE(tries.at(3).count(QStringLiteral("D0|")), 159);
}

void PollScheduleTest::itsPollsAreTriedInTurn()
{
    PollRun run(QStringLiteral("D0@2 D100@2 D200@2"));
    run.silent = {2};
    QCOMPARE(run.until(1700),
             QStringLiteral("D0@2!(2)| D100@2?!| 400ms D200@2?!| 800ms D0@2?!| 100ms"));
}

void PollScheduleTest::itIsBackAtOnce()
{
    PollRun run(QStringLiteral("D0@1 D0@2 D100@2"));
    run.silent = {2};
    run.until(220); // found silent, and tried by D100
    run.silent.clear();
    const QString sent = run.until(670);
    QVERIFY2(sent.endsWith(QStringLiteral("D0 D0@2? D100@2| D0 D0@2 D100@2|")), qPrintable(sent));
}

void PollScheduleTest::aSilentStationWithIntervalsAlone()
{
    PollRun run(QStringLiteral("D0@2/100 D1@2/100"));
    run.silent = {2};
    // 400 ms after the try of D1 one of them is due, whichever comes first.
    QCOMPARE(run.until(1000), QStringLiteral("D0@2!(2) D1@2?!| 400ms D0@2?!| 300ms"));
    QCOMPARE(run.schedule().missed(), qint64(0));
}

// By a slow poll, of which no cycle is made: else nobody would be asked any more.
void PollScheduleTest::aStationThatFallsSilentBetweenCyclesIsTried()
{
    PollRun run(QStringLiteral("D0@2 D9@2/1000"));
    run.silent = {2};
    QCOMPARE(run.until(700), QStringLiteral("D9@2!(2) D0@2?!| 400ms D0@2?!|"));
}

// All its addresses count as unanswered meanwhile: D9 must not do so for another minute.
void PollScheduleTest::whatIsReadSeldomIsReadWhenItsStationIsBack()
{
    PollRun run(QStringLiteral("D0@2 D9@2/60000"));
    QCOMPARE(run.until(20), QStringLiteral("D9@2 D0@2|"));
    run.silent = {2};
    QCOMPARE(run.until(210), QStringLiteral("D0@2!(2)| D0@2?!|"));
    run.silent.clear();
    QCOMPARE(run.until(660), QStringLiteral("400ms D0@2?| D9@2 D0@2| D0@2|"));
    QCOMPARE(run.schedule().missed(), qint64(0));
}

// The third time it is left out for four time-outs, although D1 is answered.
void PollScheduleTest::aPollThatIsNeverAnsweredIsLeftOutAlone()
{
    PollRun run(QStringLiteral("D0@1 D1@1"));
    run.unanswered = {QStringLiteral("D0")};
    const QString sent = run.until(800);
    QVERIFY2(sent.startsWith(QStringLiteral("D0!(1)| D1?| D0! D1| D1| D1|")), qPrintable(sent));
    QCOMPARE(sent.count(QStringLiteral("D0")), 3);
    QVERIFY(sent.contains(QStringLiteral("D1| D0?! D1| D1|")));
}

void PollScheduleTest::theLinesFaultIsNoSilence()
{
    PollSchedule schedule(TIMEOUT);
    schedule.setPolls({{rangesOf(QStringLiteral("D0@1")).first(), 0}}, 0);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(schedule.next(0), 0);
        schedule.begin(0, 0);
        const PollSchedule::Step step = schedule.end(0, PollSchedule::Outcome::Unknown, 0);
        QCOMPARE(step.silenced, 0);
        QVERIFY(step.endsCycle);
        QVERIFY(!schedule.isTry(0));
    }
}

void PollScheduleTest::whatStaysKeepsItsTimes()
{
    PollRun run(QStringLiteral("D0@1/1000 D1@2"));
    run.silent = {2};
    run.until(110); // D0 is read, station 2 silent
    run.setPolls(QStringLiteral("D1@2 D0@1/1000 D5@1/1000"));
    QCOMPARE(run.until(130), QStringLiteral("D5 D1@2?!|"));
    const QString sent = run.until(1200);
    QVERIFY2(!sent.contains(QStringLiteral("(2)")), qPrintable(sent)); // known already
}

void PollScheduleTest::aListThatIsReplacedMidwayBeginsAnew()
{
    PollRun run(QStringLiteral("D0@1 D1@1 D2@1"));
    QCOMPARE(run.until(20), QStringLiteral("D0 D1"));
    run.setPolls(QStringLiteral("D1@1 D2@1"));
    QCOMPARE(run.until(60), QStringLiteral("D1 D2| D1 D2|"));
}

QTEST_APPLESS_MAIN(PollScheduleTest)
#include "tst_poll_schedule.moc"
