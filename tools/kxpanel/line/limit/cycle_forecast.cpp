#include "kxpanel/line/limit/cycle_forecast.h"

#include "exchange/loop_clock.h"
#include "panel/plan/piece_request.h"
#include "panel/polling/poll_schedule.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace kxpanel
{

namespace
{

// In times of the longest interval. Polls that come later than they are due wait for each other
// in ways that differ from cycle to cycle, and at first all are due at once.
const int UNTIL_SETTLED = 10;
const int AVERAGED = 20;
const int MOST_REQUESTS = 2000; // of either: the rest would change little

qint64 share(qint64 sum, int cycles)
{
    return std::llround(static_cast<double>(sum) / cycles);
}

/// Lets a schedule run in a time of its own.
class Forecast
{
public:
    Forecast(const QList<kx::PolledRange>& polls, const RequestCost& requestCost) : m_schedule(0)
    {
        m_schedule.setPolls(polls, 0);
        for (int index = 0; index < m_schedule.size(); ++index) {
            const kx::PolledRange& poll = m_schedule.poll(index);
            m_costs.push_back(requestCost(kx::requestFor(poll.range)));
            const qint64 interval = poll.interval * kx::MICROSECONDS_PER_MILLISECOND;
            m_longestInterval = std::max(m_longestInterval, interval);
            m_shortestInterval = std::min(m_shortestInterval, interval);
        }
    }

    kx::CycleCost average()
    {
        if (m_longestInterval > 0)
            settle();
        const qint64 begin = m_now;
        const qint64 missed = m_schedule.missed();
        m_sum = kx::CycleCost();
        int cycles = 0;
        do {
            runCycle();
            ++cycles;
        } while (m_now < begin + AVERAGED * m_longestInterval && m_sum.requests < MOST_REQUESTS);
        m_sum.requests = static_cast<int>(share(m_sum.requests, cycles));
        m_sum.bytesSent = share(m_sum.bytesSent, cycles);
        m_sum.bytesExpected = share(m_sum.bytesExpected, cycles);
        m_sum.busy = share(m_sum.busy, cycles);
        m_sum.needed = share(m_sum.needed, cycles);
        // Some of the cycles wait for other polls, and the next ones are as much shorter.
        const bool isKept = m_shortestInterval > 0 && m_schedule.missed() == missed;
        m_sum.duration = isKept ? m_shortestInterval : share(m_now - begin, cycles);
        return m_sum;
    }

private:
    void settle()
    {
        const int each = 2 * m_schedule.size(); // of two that are sent one had been due at first
        while (m_sum.requests < each
               || (m_now < UNTIL_SETTLED * m_longestInterval && m_sum.requests < MOST_REQUESTS))
            runCycle();
    }

    void runCycle()
    {
        while (!sendNext()) {
        }
    }

    /// @return the cycle is over
    bool sendNext()
    {
        int index = m_schedule.next(m_now);
        if (index < 0) {
            m_now = m_schedule.nextAt();
            index = m_schedule.next(m_now);
        }
        const kx::CycleCost& cost = m_costs[static_cast<size_t>(index)];
        m_schedule.begin(index, m_now);
        m_now += cost.duration;
        m_sum.requests += cost.requests;
        m_sum.bytesSent += cost.bytesSent;
        m_sum.bytesExpected += cost.bytesExpected;
        m_sum.busy += cost.busy;
        m_sum.needed += cost.needed;
        return m_schedule.end(index, kx::PollSchedule::Outcome::Answered, m_now).endsCycle;
    }

    kx::PollSchedule m_schedule;
    std::vector<kx::CycleCost> m_costs; ///< of each poll
    qint64 m_longestInterval = 0;       ///< microseconds, as the shortest
    qint64 m_shortestInterval = std::numeric_limits<qint64>::max(); ///< 0: some have none
    qint64 m_now = 0;
    kx::CycleCost m_sum;
};

} // namespace

kx::CycleCost forecastCycle(const QList<kx::PolledRange>& polls, const RequestCost& requestCost)
{
    return polls.isEmpty() ? kx::CycleCost() : Forecast(polls, requestCost).average();
}

} // namespace kxpanel
