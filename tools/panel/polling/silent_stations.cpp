#include "panel/polling/silent_stations.h"

namespace kx
{

namespace
{

// In time-outs.
const int FIRST_WAIT = 4;
const int DOUBLINGS = 2;
const int MOST_BETWEEN_STATIONS = 10; // from a try of one silent station to that of another

} // namespace

qint64 SilentStations::tryAt(int station) const
{
    const auto silence = m_stations.constFind(station);
    if (silence == m_stations.constEnd())
        return 0;
    return silence->tries == 0 ? silence->until : qMax(silence->until, m_noneBefore);
}

bool SilentStations::isDue(int station, qint64 round, qint64 now) const
{
    const auto silence = m_stations.constFind(station);
    return silence != m_stations.constEnd() && round > silence->round && now >= tryAt(station);
}

int SilentStations::waitAfter(int tries)
{
    return FIRST_WAIT << qMin(tries, DOUBLINGS);
}

void SilentStations::onSilence(int station, qint64 round, qint64 now)
{
    const auto known = m_stations.find(station);
    if (known == m_stations.end()) {
        m_stations.insert(station, {round, 0, now});
        return;
    }
    const int wait = waitAfter(known->tries);
    ++known->tries;
    known->until = now + wait * m_replyTimeout;
    m_noneBefore = now + qMin(wait, MOST_BETWEEN_STATIONS) * m_replyTimeout;
}

} // namespace kx
