#include "tools/exchange/scripted_line.h"

#include <QtCore/QTimer>

namespace kx
{

void ScriptedLine::write(const QByteArray& bytes)
{
    written << bytes;
    writtenAt << now();
    if (m_answers.isEmpty())
        return;
    const QList<Arrival> arrivals = m_answers.takeFirst();
    for (const Arrival& arrival : arrivals)
        QTimer::singleShot(arrival.after, Qt::PreciseTimer, this,
                           [this, arrival] { emit bytesArrived(arrival.bytes); });
}

QByteArray ScriptedLine::discardWaiting()
{
    ++discards;
    const QByteArray discarded = waiting;
    waiting.clear();
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
