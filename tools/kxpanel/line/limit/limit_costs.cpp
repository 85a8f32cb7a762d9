#include "kxpanel/line/limit/limit_costs.h"

#include "kxpanel/line/limit/cycle_forecast.h"
#include "panel/polling/poll_plan.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const int TOLD_AT_ONCE = 5; // limits; all together take a fraction of a second, or seconds

bool isSame(const kx::PolledRange& one, const kx::PolledRange& other)
{
    return one.range.station == other.range.station && one.range.type == other.range.type
           && one.range.address == other.range.address && one.range.values == other.range.values
           && one.range.width == other.range.width && one.interval == other.interval;
}

bool areSame(const QList<kx::PolledRange>& some, const QList<kx::PolledRange>& others)
{
    return std::equal(some.begin(), some.end(), others.begin(), others.end(), &isSame);
}

} // namespace

LimitCosts::LimitCosts(QObject* parent) : QObject(parent)
{
    m_pool.setMaxThreadCount(1);
}

LimitCosts::~LimitCosts()
{
    if (m_stop)
        *m_stop = true;
    m_pool.waitForDone();
}

bool LimitCosts::start(const QList<kx::PolledRange>& watched, const AnswerPace& pace)
{
    const bool isSameList = m_stop && areSame(m_watched, watched);
    if (isSameList && m_pace == pace)
        return false;
    if (m_stop)
        *m_stop = true;
    m_stop = std::make_shared<std::atomic<bool>>(false);
    m_watched = watched;
    m_pace = pace;
    m_coming.clear();
    if (!isSameList || !m_isFinished) {
        m_results.clear();
        m_isFinished = watched.isEmpty();
    }
    m_isWorking = !watched.isEmpty();
    if (m_isWorking)
        m_pool.start([this, watched, pace, stop = m_stop] { work(watched, pace, stop); });
    emit advanced();
    return true;
}

int LimitCosts::best() const
{
    const int best = isFinished() ? kx::bestOf(m_results) : -1;
    return best < 0 ? 0 : m_results.at(best).maxWords;
}

const kx::LengthResult* LimitCosts::of(int maxWords) const
{
    return maxWords >= 1 && maxWords <= m_results.size() ? &m_results.at(maxWords - 1) : nullptr;
}

/// In the pool's thread.
void LimitCosts::work(const QList<kx::PolledRange>& watched, const AnswerPace& pace,
                      const Stop& stop)
{
    const RequestCost cost = requestCost(pace);
    QList<kx::LengthResult> results;
    for (int maxWords = 1; maxWords <= kx::MOST_REGISTERS_PER_READ && !*stop; ++maxWords) {
        kx::LengthResult result;
        result.maxWords = maxWords;
        result.cost =
            forecastCycle(kx::plannedPolls(watched, limitedRules(maxWords, pace), nullptr), cost);
        results << result;
        if (results.size() < TOLD_AT_ONCE && maxWords < kx::MOST_REGISTERS_PER_READ)
            continue;
        QMetaObject::invokeMethod(
            this, [this, results, stop] { take(results, stop); }, Qt::QueuedConnection);
        results.clear();
    }
}

void LimitCosts::take(const QList<kx::LengthResult>& results, const Stop& stop)
{
    if (stop != m_stop)
        return; // of what is asked no more
    QList<kx::LengthResult>& known = m_isFinished ? m_coming : m_results;
    known += results;
    m_isWorking = known.size() < kx::MOST_REGISTERS_PER_READ;
    if (m_isFinished && m_isWorking)
        return;
    if (m_isFinished)
        m_results.swap(m_coming);
    m_isFinished = !m_isWorking;
    emit advanced();
}

} // namespace kxpanel
