#include "panel/polling/learned_rules.h"

#include "panel/plan/plan_timing.h"
#include "registers/register_types.h"

#include <cmath>

namespace kx
{

namespace
{

const double SHARE_OF_LATEST = 1.0 / 8; // in the smoothed turnaround
const double FAR_OFF = 0.25;            // of the turnaround that was planned with
const double FAR_ENOUGH = 1000;         // microseconds

bool isOfCoils(const AddressRange& range)
{
    return range.type->registerClass == BIT_CLASS;
}

} // namespace

void LearnedRules::onAnswer(const AddressRange& asked, qint64 turnaround)
{
    Learned& learned = m_stations[asked.station];
    int& longest = learned.longest[isOfCoils(asked)];
    longest = qMax(longest, asked.driverCount());
    const double latest = static_cast<double>(qMax(turnaround, qint64(0)));
    learned.turnaround = learned.turnaround < 0
                             ? latest
                             : learned.turnaround + (latest - learned.turnaround) * SHARE_OF_LATEST;
}

bool LearnedRules::onRefusal(const AddressRange& asked, bool spansGap)
{
    const bool isCoils = isOfCoils(asked);
    const int count = asked.driverCount();
    StationRules rules = m_rules.of(asked.station);
    int& limit = isCoils ? rules.maxBits : rules.maxWords;
    // One value is asked for at once, however long it is.
    const int shortest = isCoils ? COILS_OF_ANY : qMax(REGISTERS_OF_ANY, asked.width);
    if (count > m_stations.value(asked.station).longest[isCoils] && count > shortest)
        limit = qMin(limit, qMax(count / 2, shortest));
    else if (spansGap)
        rules.maySpanGaps = false;
    const bool isNew = !(rules == m_rules.of(asked.station));
    if (isNew)
        m_rules.stations.insert(asked.station, rules);
    return isNew;
}

bool LearnedRules::takeTurnarounds()
{
    bool isFarOff = false;
    for (auto station = m_stations.cbegin(); station != m_stations.cend(); ++station) {
        const auto planned = static_cast<double>(timingAt(station.key(), m_rules).wait());
        const double off = std::abs(station->turnaround - planned);
        if (station->turnaround >= 0 && off > FAR_ENOUGH && off > planned * FAR_OFF) {
            StationRules rules = m_rules.of(station.key());
            rules.turnaround = std::llround(station->turnaround);
            rules.isMeasured = true;
            m_rules.stations.insert(station.key(), rules);
            isFarOff = true;
        }
    }
    return isFarOff;
}

} // namespace kx
