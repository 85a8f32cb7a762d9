/// What counts mean, translated. Pure functions.
#ifndef KX_KXPANEL_HEALTH_HEALTH_WORDS_H
#define KX_KXPANEL_HEALTH_HEALTH_WORDS_H

#include "kxpanel/health/fault_count.h"
#include "kxpanel/health/station_health.h"

#include <QtCore/QString>

namespace kxpanel
{

struct HealthHeading {
    QString heading;
    QString tip; ///< what it counts, with its unit
};

/// @param column of HealthModel
HealthHeading healthHeading(int column);

/// "✓ answers", "✗ silent"; "– no reply yet" before anything is known.
QString stateWords(const StationHealth& station);

/// All reasons with their counts, a line each.
QString healthTip(int number, const StationHealth& station);

/// "2 late replies, 14 bytes in no frame"; what did not happen is left out.
QString faultWords(const LineFaults& faults);

} // namespace kxpanel

#endif
