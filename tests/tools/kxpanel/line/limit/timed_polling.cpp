#include "tools/kxpanel/line/limit/timed_polling.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/exchanges/station_sign.h"
#include "kxpanel/line/limit/cycle_forecast.h"
#include "kxpanel/machine/machine.h"
#include "panel/polling/poll_plan.h"
#include "tools/kxpanel/machine_fixture.h"

namespace kxpanel
{

namespace
{

const qint64 UNTIL_PLANNED_ANEW = 12000000; // microseconds; a session does so every five seconds

} // namespace

kx::FaultyLineSettings threeStations(int baud, int parityBits)
{
    kx::FaultyLineSettings line;
    line.stations = {1, 2, 3};
    line.timing.baud = baud;
    line.timing.parityBits = parityBits;
    return line;
}

QList<kx::PolledRange> polledRanges(const QString& words)
{
    QList<kx::PolledRange> ranges;
    for (const QString& word : words.split(QLatin1Char(' '))) {
        const QByteArray address = word.section(QLatin1Char('/'), 0, 0).toLatin1();
        ranges << kx::PolledRange{watched(1, address.constData()).tag.range,
                                  word.section(QLatin1Char('/'), 1).toInt()};
    }
    return ranges;
}

TimedPolling::TimedPolling(const kx::FaultyLineSettings& line,
                           const QList<kx::PolledRange>& watched, int maxWords, int replyTimeout)
    : m_line(line, &m_clock),
      m_timing(line.timing),
      m_watched(watched),
      m_maxWords(maxWords),
      m_replyTimeout(replyTimeout)
{
    kx::SessionSettings settings = limited(kx::SessionSettings(), maxWords, bitsFor(maxWords));
    settings.exchange.replyTimeout = replyTimeout;
    kx::DriverEntryPoints driver;
    QString error;
    if (kx::loadDriver(QString::fromLocal8Bit(KX_DRIVER_FILE), &driver, &error))
        m_session = kx::Session::create(driver, &m_line, settings, &error, &m_clock);
    if (!m_session)
        qFatal("%s", qPrintable(error));
    QObject::connect(m_session.get(), &kx::Session::exchanged, m_session.get(),
                     [this](const kx::ExchangeRecord& record) { onExchange(record); });
    QObject::connect(m_session.get(), &kx::Session::cycleFinished, m_session.get(),
                     [this] { m_ends << m_clock.now(); });
    m_session->watch(watched);
    m_session->start();
    while (m_clock.now() < UNTIL_PLANNED_ANEW && m_clock.step()) {
    }
}

void TimedPolling::onExchange(const kx::ExchangeRecord& record)
{
    const Exchange exchange = exchangeOf(record, 1);
    if (isStationsReply(exchange))
        m_answers.add(stationOf(exchange),
                      static_cast<int>(exchange.request.size() + exchange.reply.size()),
                      exchange.turnaround);
}

qint64 TimedPolling::measured(int cycles, qint64 atLeast)
{
    m_ends.clear();
    while ((m_ends.size() <= cycles
            || m_ends.last() - m_ends.first() < atLeast * kx::MICROSECONDS_PER_MILLISECOND)
           && m_clock.step()) {
    }
    return (m_ends.last() - m_ends.first()) / (m_ends.size() - 1);
}

AnswerPace TimedPolling::pace() const
{
    AnswerPace pace = m_answers.pace(m_timing, false);
    pace.replyTimeout = m_replyTimeout * kx::MICROSECONDS_PER_MILLISECOND;
    return pace;
}

qint64 TimedPolling::predicted() const
{
    const int longest = m_maxWords > 0 ? m_maxWords : kx::MOST_REGISTERS_PER_READ;
    const AnswerPace answers = pace();
    return forecastCycle(kx::plannedPolls(m_watched, limitedRules(longest, answers), nullptr),
                         requestCost(answers))
        .duration;
}

} // namespace kxpanel
