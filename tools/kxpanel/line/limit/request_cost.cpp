#include "kxpanel/line/limit/request_cost.h"

#include "panel/plan/time_out_rules.h"

#include <algorithm>
#include <cmath>

namespace kxpanel
{

namespace
{

const int BITS_PER_REGISTER = 16;

kx::StationRules stationRules(int maxWords)
{
    kx::StationRules rules;
    rules.maxWords = maxWords;
    rules.maxBits = bitsFor(maxWords);
    return rules;
}

RequestCost networkCost(const AnswerPace& pace)
{
    const qint64 slowest = *std::max_element(pace.each.begin(), pace.each.end());
    return [pace, slowest](const kx::PlannedRequest& request) {
        kx::CycleCost cost;
        cost.requests = 1;
        cost.bytesSent = request.bytesSent;
        cost.bytesExpected = request.bytesExpected;
        const int bytes = request.bytesSent + request.bytesExpected;
        cost.needed =
            pace.each.value(request.station, slowest) + std::llround(pace.perByte * bytes);
        cost.duration = cost.needed;
        return cost;
    };
}

} // namespace

RequestCost serialCost(const kx::ReadRules& rules)
{
    return [rules](const kx::PlannedRequest& request) {
        return costOf(timingAt(request.station, rules), 1, request.bytesSent,
                      request.bytesExpected);
    };
}

RequestCost requestCost(const AnswerPace& pace)
{
    const bool isKnownNetwork = pace.isNetwork && !pace.each.isEmpty();
    return isKnownNetwork ? networkCost(pace)
                          : serialCost(limitedRules(kx::MOST_REGISTERS_PER_READ, pace));
}

kx::ReadRules limitedRules(int maxWords, const AnswerPace& pace)
{
    kx::ReadRules rules;
    rules.line = pace.line;
    rules.usual = stationRules(maxWords);
    for (auto station = pace.turnarounds.begin(); station != pace.turnarounds.end(); ++station) {
        kx::StationRules own = rules.usual;
        own.turnaround = *station;
        own.isMeasured = true;
        rules.stations.insert(station.key(), own);
    }
    for (auto station = pace.shortened.begin(); station != pace.shortened.end(); ++station) {
        kx::StationRules own = rules.of(station.key());
        own.maxWords = std::min(own.maxWords, station->maxWords);
        own.maxBits = std::min(own.maxBits, station->maxBits);
        own.maySpanGaps = station->maySpanGaps;
        rules.stations.insert(station.key(), own);
    }
    return pace.isNetwork || pace.replyTimeout <= 0 ? rules : rulesWithin(pace.replyTimeout, rules);
}

qint64 assumedWait(const QList<kx::PolledRange>& polled, const AnswerPace& pace)
{
    const auto isKnown = [&pace](const kx::PolledRange& one) {
        return pace.turnarounds.contains(one.range.station);
    };
    if ((pace.isNetwork && !pace.each.isEmpty())
        || std::all_of(polled.begin(), polled.end(), isKnown))
        return 0;
    kx::PlanTiming usual;
    usual.line = pace.line;
    return usual.wait();
}

int bitsFor(int maxWords)
{
    return std::min(maxWords * BITS_PER_REGISTER, kx::MOST_COILS_PER_READ);
}

} // namespace kxpanel
