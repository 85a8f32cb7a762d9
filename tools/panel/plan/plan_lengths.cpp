#include "panel/plan/plan_lengths.h"

#include <tuple>

namespace kx
{

namespace
{

bool isBetter(const LengthResult& one, const LengthResult& other)
{
    return std::tie(one.unread, one.cost.duration, one.cost.needed)
           < std::tie(other.unread, other.cost.duration, other.cost.needed);
}

} // namespace

LengthResult resultOf(const Plan& plan, const WatchedRanges& watched, const PlanTiming& timing)
{
    LengthResult result;
    result.maxWords = plan.maxWords;
    qint64 bytesSent = 0;
    qint64 bytesExpected = 0;
    for (const PlannedRequest& request : plan.requests) {
        const Coverage coverage = coverageOf(request, watched);
        // A controller refuses such a request whole, or answers part of it wrongly.
        if (request.isTooLong() || coverage.misreadCount > 0)
            result.unread += coverage.askedCount;
        bytesSent += request.bytesSent;
        bytesExpected += request.bytesExpected;
    }
    result.cost = costOf(timing, static_cast<int>(plan.requests.size()), bytesSent, bytesExpected);
    return result;
}

int bestOf(const QList<LengthResult>& results)
{
    int best = -1;
    for (int i = 0; i < static_cast<int>(results.size()); ++i) {
        if (best < 0 || isBetter(results[i], results[best]))
            best = i;
    }
    return best;
}

QList<LengthResult> worthShowing(const QList<LengthResult>& results, int maxWords)
{
    const int best = bestOf(results);
    const int last = static_cast<int>(results.size()) - 1;
    QList<LengthResult> rows;
    int bestSoFar = -1;
    bool worseShown = false;
    for (int i = 0; i <= last; ++i) {
        const bool isImprovement = bestSoFar < 0 || isBetter(results[i], results[bestSoFar]);
        const bool isFirstWorse = i > best && !worseShown && isBetter(results[best], results[i]);
        if (isImprovement)
            bestSoFar = i;
        worseShown = worseShown || isFirstWorse;
        if (isImprovement || isFirstWorse || i == last || results[i].maxWords == maxWords)
            rows << results[i];
    }
    return rows;
}

} // namespace kx
