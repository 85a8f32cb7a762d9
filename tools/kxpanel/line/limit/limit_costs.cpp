#include "kxpanel/line/limit/limit_costs.h"

#include "kxpanel/line/limit/cycle_forecast.h"
#include "panel/polling/poll_plan.h"

#include <QtCore/QElapsedTimer>

#include <algorithm>

namespace kxpanel
{

namespace
{

const int BITS_PER_REGISTER = 16;
const qint64 AT_ONCE = 8; // milliseconds of work between two looks at keys and mouse

kx::StationRules stationRules(int maxWords)
{
    kx::StationRules rules;
    rules.maxWords = maxWords;
    rules.maxBits = bitsFor(maxWords);
    return rules;
}

} // namespace

int bitsFor(int maxWords)
{
    return std::min(maxWords * BITS_PER_REGISTER, kx::MOST_COILS_PER_READ);
}

kx::ReadRules limitedRules(int maxWords, const kx::LineTiming& timing,
                           const QMap<int, ReplyTimes>& replies)
{
    kx::ReadRules rules;
    rules.line = timing;
    rules.usual = stationRules(maxWords);
    for (auto station = replies.begin(); station != replies.end(); ++station) {
        if (station->count() == 0)
            continue;
        kx::StationRules own = rules.usual;
        own.turnaround = station->median();
        rules.stations.insert(station.key(), own);
    }
    return rules;
}

LimitCosts::LimitCosts(QObject* parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &LimitCosts::work);
}

void LimitCosts::start(const QList<kx::PolledRange>& watched, const kx::LineTiming& timing,
                       const QMap<int, ReplyTimes>& replies)
{
    m_watched = watched;
    m_timing = timing;
    m_replies = replies;
    m_results.clear();
    if (watched.isEmpty())
        m_timer.stop();
    else
        m_timer.start(0);
    emit advanced();
}

bool LimitCosts::isFinished() const
{
    return !m_timer.isActive();
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

void LimitCosts::work()
{
    QElapsedTimer spent;
    spent.start();
    while (m_results.size() < kx::MOST_REGISTERS_PER_READ && spent.elapsed() < AT_ONCE) {
        kx::LengthResult result;
        result.maxWords = static_cast<int>(m_results.size()) + 1;
        const kx::ReadRules rules = limitedRules(result.maxWords, m_timing, m_replies);
        result.cost = forecastCycle(kx::plannedPolls(m_watched, rules, nullptr), rules);
        m_results << result;
    }
    if (m_results.size() == kx::MOST_REGISTERS_PER_READ)
        m_timer.stop();
    emit advanced();
}

} // namespace kxpanel
