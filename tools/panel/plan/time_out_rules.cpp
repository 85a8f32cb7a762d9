#include "panel/plan/time_out_rules.h"

#include "panel/plan/plan_timing.h"

#include <algorithm>

namespace kx
{

namespace
{

/// What is for the reply, of the time-out.
const qint64 REPLY_PARTS = 3;
const qint64 TIME_OUT_PARTS = 4;
const qint64 CHARACTERS = 1000; // so that what is rounded up does not count

StationRules answeredWithin(const StationRules& station, const LineTiming& line, qint64 timeOut)
{
    const PlanTiming timing = {line, station.turnaround, station.isMeasured};
    const qint64 ofMost = timeOut * REPLY_PARTS / TIME_OUT_PARTS - timing.wait();
    // Requests of a register each would cost a slow one many waits, and make it no quicker.
    const qint64 ofSlow = (timeOut - timing.wait()) / 2;
    const qint64 time = std::max({ofMost, ofSlow, qint64(0)});
    const qint64 characters = time * CHARACTERS / line.transmissionTime(CHARACTERS);
    const qint64 bytes = std::max(characters - READ_REPLY_BYTES, qint64(BYTES_PER_REGISTER));
    StationRules own = station;
    own.maxWords = static_cast<int>(std::min(qint64(own.maxWords), bytes / BYTES_PER_REGISTER));
    own.maxBits = static_cast<int>(std::min(qint64(own.maxBits), bytes * COILS_PER_BYTE));
    return own;
}

} // namespace

ReadRules rulesWithin(qint64 timeOut, const ReadRules& rules)
{
    if (rules.line.baud <= 0)
        return rules;
    ReadRules within = rules;
    within.usual = answeredWithin(rules.usual, rules.line, timeOut);
    for (StationRules& station : within.stations)
        station = answeredWithin(station, rules.line, timeOut);
    return within;
}

} // namespace kx
