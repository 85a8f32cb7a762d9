#include "tools/exchange/scripted_line.h"

#include <QtCore/QTimer>

#include <utility>

namespace kx
{

void ScriptedLine::write(const QByteArray& bytes)
{
    written << bytes;
    writtenAt << now();
    waiting += std::exchange(unreported, QByteArray());
    if (m_answers.isEmpty())
        return;
    const QList<Arrival> arrivals = m_answers.takeFirst();
    for (const Arrival& arrival : arrivals)
        QTimer::singleShot(arrival.after, Qt::PreciseTimer, this,
                           [this, arrival] { emit bytesArrived(arrival.bytes); });
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
