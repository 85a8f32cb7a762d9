#include "tools/exchange/scripted_line.h"

#include "tools/exchange/virtual_clock.h"

#include <QtCore/QTimer>

#include <utility>

namespace kx
{

ScriptedLine::ScriptedLine(VirtualClock* clock) : m_clock(clock)
{
    m_sinceMade.start();
}

qint64 ScriptedLine::now() const
{
    return m_clock ? m_clock->now() / MICROSECONDS_PER_MILLISECOND : m_sinceMade.elapsed();
}

void ScriptedLine::write(const QByteArray& bytes)
{
    written << bytes;
    writtenAt << now();
    waiting += std::exchange(unreported, QByteArray());
    if (m_answers.isEmpty())
        return;
    const QList<Arrival> arrivals = m_answers.takeFirst();
    for (const Arrival& arrival : arrivals) {
        const auto arrive = [this, arrival] { emit bytesArrived(arrival.bytes); };
        if (m_clock)
            m_clock->after(arrival.after * MICROSECONDS_PER_MILLISECOND, arrive);
        else
            QTimer::singleShot(arrival.after, Qt::PreciseTimer, this, arrive);
    }
}

QByteArray ScriptedLine::takeWaiting()
{
    if (whenLookedInto)
        whenLookedInto();
    return std::exchange(waiting, QByteArray());
}

QByteArray ScriptedLine::discardWaiting()
{
    ++discards;
    const QByteArray discarded = std::exchange(unseen, QByteArray());
    if (isLostWhenDiscarding)
        lose();
    return discarded;
}

void ScriptedLine::interrupt()
{
    m_isOpen = false;
    emit interrupted();
}

void ScriptedLine::reopen()
{
    m_isOpen = true;
    emit opened();
}

} // namespace kx
