#include "kxpanel/line/cycle/line_record.h"

#include "exchange/loop_clock.h"
#include "kxpanel/exchanges/exchange_words.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const int REPLIES_BEFORE_USUAL = 16;

} // namespace

bool isLateReply(qint64 turnaround, qint64 usual, const kx::LineTiming& timing)
{
    return turnaround > 2 * usual
           && turnaround > usual + std::max(timing.frameGap(), kx::MICROSECONDS_PER_MILLISECOND);
}

void LineRecord::add(const Exchange& exchange, const kx::LineTiming& timing)
{
    const bool isFirst = m_marks.empty();
    Mark mark;
    mark.times = timesOf(exchange, timing, isFirst ? 0 : m_marks.back().times.replyEnded);
    if (!isFirst && exchange.sentAt < m_history.at(m_history.end() - 1).sentAt) {
        // The clock was put back: there is no axis for both.
        m_history.clear();
        m_marks.clear();
        m_kept.clear();
    } else if (!isFirst) {
        ExchangeTimes& before = m_marks.back().times;
        mark.times.sent = std::max(mark.times.sent, before.sent); // within one millisecond
        before = cutAt(before, mark.times.sent);
    }
    if (isFull())
        leave(stationOf(m_history.at(m_history.begin())));
    const int station = stationOf(exchange);
    ++m_kept[station];
    hear(exchange);
    ReplyTimes& replies = m_replies[station];
    if (isStationsReply(exchange)) {
        mark.isLate = replies.count() >= REPLIES_BEFORE_USUAL
                      && isLateReply(exchange.turnaround, replies.median(), timing);
        replies.add(exchange.turnaround);
    }
    mark.beginsCycle = m_cycles.begins(exchange);
    m_history.add(exchange);
    m_marks.push_back(mark);
    if (static_cast<int>(m_marks.size()) > m_history.size())
        m_marks.pop_front();
}

void LineRecord::leave(int station)
{
    if (--m_kept[station] == 0)
        m_kept.remove(station);
}

void LineRecord::hear(const Exchange& exchange)
{
    const StationSign sign = signOf(exchange);
    if (sign == StationSign::Silent)
        m_silent.insert(stationOf(exchange));
    else if (sign == StationSign::Heard)
        m_silent.remove(stationOf(exchange));
}

QList<int> LineRecord::silentStations() const
{
    QList<int> stations = m_silent.values();
    std::sort(stations.begin(), stations.end());
    return stations;
}

void LineRecord::clear()
{
    *this = LineRecord(m_history.most());
}

qint64 LineRecord::firstAfter(qint64 time) const
{
    const auto after =
        std::partition_point(m_marks.begin(), m_marks.end(),
                             [time](const Mark& mark) { return mark.times.replyEnded <= time; });
    return m_history.begin() + (after - m_marks.begin());
}

qint64 LineRecord::placeAt(qint64 time) const
{
    const auto after =
        std::partition_point(m_marks.begin(), m_marks.end(),
                             [time](const Mark& mark) { return mark.times.sent <= time; });
    return after == m_marks.begin() ? -1 : m_history.begin() + (after - m_marks.begin()) - 1;
}

LineShares LineRecord::shares(qint64 from, qint64 to) const
{
    LineShares shares;
    for (qint64 place = firstAfter(from); place < m_history.end(); ++place) {
        const ExchangeTimes& times = mark(place).times;
        if (times.sent >= to)
            break;
        shares.add(times, from, to);
    }
    shares.silence = std::max(to - from - shares.all(), qint64(0));
    return shares;
}

LineRecord::Cycles LineRecord::latestCycles(int most) const
{
    Cycles cycles;
    qint64 end = -1;
    for (qint64 place = m_history.end() - 1; place >= m_history.begin(); --place) {
        if (cycles.count == most)
            break;
        if (!mark(place).beginsCycle)
            continue;
        const qint64 begin = mark(place).times.sent;
        if (end < 0)
            end = begin;
        else
            cycles = {cycles.count + 1, end - begin};
    }
    return cycles;
}

} // namespace kxpanel
