/// What requests cost on a line, and how long they may be.
#ifndef KX_PANEL_PLAN_READ_RULES_H
#define KX_PANEL_PLAN_READ_RULES_H

#include "addresses/request_limits.h"
#include "exchange/lines/line_timing.h"

#include <QtCore/QHash>

namespace kx
{

// Any controller answers so many at once.
const int REGISTERS_OF_ANY = 16;
const int COILS_OF_ANY = 128;

/// How a station wants to be asked.
struct StationRules {
    /// Microseconds from the end of a request to the first character of the reply. Unless it was
    /// measured, at least the frame gap counts, which the station must hear first.
    qint64 turnaround = 5000;
    int maxWords = MOST_REGISTERS_PER_READ; ///< registers of one request; a 32CV is never cut
    int maxBits = MOST_COILS_PER_READ;      ///< coils of one request
    /// Addresses that nobody wants may be read along.
    bool maySpanGaps = true;
    bool isMeasured = false; ///< the turnaround: the station answers so soon, whatever the gap
};

inline bool operator==(const StationRules& one, const StationRules& other)
{
    return one.turnaround == other.turnaround && one.maxWords == other.maxWords
           && one.maxBits == other.maxBits && one.maySpanGaps == other.maySpanGaps
           && one.isMeasured == other.isMeasured;
}

struct ReadRules {
    LineTiming line; ///< behind a gateway: of its serial line
    StationRules usual;
    QHash<int, StationRules> stations; ///< those that differ

    StationRules of(int station) const { return stations.value(station, usual); }
};

} // namespace kx

#endif
