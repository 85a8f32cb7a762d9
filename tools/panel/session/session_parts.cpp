#include "panel/session/session_parts.h"

#include "addresses/request_limits.h"
#include "addresses/watch_pieces.h"
#include "panel/session/request_checks.h"

namespace kx
{

Session::Parts::Parts(const DriverEntryPoints& entryPoints, Line* line,
                      const SessionSettings& settings, LoopClock* clock, Session* session)
    : port(entryPoints, settings),
      loop(new ExchangeLoop(port.requests(), line, settings.exchange, clock, session)),
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
    QList<AddressRange> existing;
    for (const AddressRange& range : ranges) {
        const Failure missing = rangeRefusal(range);
        if (missing.isNone())
            existing << range;
        else
            tellLater({0, CYCLIC_READ_JOB, {missing, AddressRange()}});
    }
    const int requests =
        m_parts->port.watch(watchPieces(existing, m_settings.maxWords, MOST_COILS_PER_READ));
    m_parts->loop->wake();
    return requests;
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
