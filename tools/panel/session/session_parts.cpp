#include "panel/session/session_parts.h"

#include "data/reply_handling.h"
#include "panel/session/request_checks.h"

namespace kx
{

Session::Parts::Parts(const DriverEntryPoints& entryPoints, Line* line,
                      const SessionSettings& settings, LoopClock* usedClock, Session* session)
    : clock(usedClock ? usedClock : new SystemClock(session)),
      port(entryPoints, settings, clock),
      loop(new ExchangeLoop(port.requests(), line, settings.exchange, clock, session)),
      polling(&port, line, settings, clock),
      reads(CONDITION_READ_JOB, &port),
      writes(WRITE_JOB, &port),
      recipes(&port)
{
}

void Session::start()
{
    m_parts->loop->start();
}

bool Session::isRunning() const
{
    return m_parts->loop->isRunning();
}

int Session::watch(const QList<AddressRange>& ranges)
{
    QList<PolledRange> polled;
    for (const AddressRange& range : ranges)
        polled << PolledRange{range, 0};
    return watch(polled);
}

int Session::watch(const QList<PolledRange>& ranges)
{
    QList<PolledRange> existing;
    for (const PolledRange& polled : ranges) {
        const Failure missing = rangeRefusal(polled.range);
        if (missing.isNone())
            existing << PolledRange{polled.range, qMax(polled.interval, 0)};
        else
            tellLater({0, CYCLIC_READ_JOB, {missing, AddressRange()}});
    }
    const int requests = m_parts->polling.replace(existing);
    m_parts->loop->wake();
    return requests;
}

void Session::tellPoll(const ExchangeRecord& record, const PollEvents& events)
{
    if (record.result == REPLY_FAILED)
        emit failed(failureOf(record));
    if (events.silenced != 0)
        emit stationSilenced(events.silenced);
    if (events.shortened != 0)
        emit requestsShortened(events.shortened, m_parts->polling.rulesOf(events.shortened));
    if (events.endsCycle)
        emit cycleFinished();
}

qint64 Session::missedPolls() const
{
    return m_parts->port.polls().schedule().missed();
}

QList<qint64> Session::answeredValues(const AddressRange& range) const
{
    return rangeRefusal(range).isNone() ? m_parts->port.answeredValues(range) : QList<qint64>();
}

QList<qint64> Session::values(const AddressRange& range) const
{
    return rangeRefusal(range).isNone() ? m_parts->port.values(range) : QList<qint64>();
}

bool Session::loadRecipe(const std::vector<quint16>& words)
{
    return m_parts->recipes.load(words);
}

quint16 Session::recipeWord(int offset) const
{
    return m_parts->port.recipeMemory().word(offset);
}

const Statistics& Session::statistics() const
{
    return m_parts->loop->statistics();
}

qint64 Session::elapsed() const
{
    return m_parts->loop->elapsed();
}

} // namespace kx
