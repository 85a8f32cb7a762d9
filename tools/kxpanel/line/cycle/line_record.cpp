#include "kxpanel/line/cycle/line_record.h"

#include "kxpanel/exchanges/exchange_words.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const qint64 MILLISECOND = 1000; // microseconds
const int REPLIES_BEFORE_USUAL = 16;

} // namespace

bool isLateReply(qint64 turnaround, qint64 usual, const kx::LineTiming& timing)
{
    return turnaround > 2 * usual && turnaround > usual + std::max(timing.frameGap(), MILLISECOND);
}

void LineRecord::add(const Exchange& exchange, const kx::LineTiming& timing)
{
    const bool isFirst = m_marks.empty();
    Mark mark;
    mark.times = timesOf(exchange, timing, isFirst ? 0 : m_marks.back().times.replyEnded);
    if (!isFirst && mark.times.sent < m_marks.back().times.sent) {
        // The clock was put back: there is no axis for both.
        m_history.clear();
        m_marks.clear();
    }
    ReplyTimes& replies = m_replies[stationOf(exchange)];
    if (exchange.turnaround >= 0) {
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

qint64 LineRecord::timeOfCycles(int cycles) const
{
    qint64 end = -1;
    for (qint64 place = m_history.end() - 1; place >= m_history.begin(); --place) {
        if (!mark(place).beginsCycle)
            continue;
        if (end < 0)
            end = mark(place).times.sent;
        else if (--cycles == 0)
            return end - mark(place).times.sent;
    }
    return 0;
}

} // namespace kxpanel
