#include "listen/heard_bytes.h"

#include <algorithm>

namespace kx
{

void HeardBytes::add(const QByteArray& bytes, qint64 at)
{
    const int count = static_cast<int>(bytes.size());
    const bool isAfterPause = isPause(at, count);
    m_bytes += bytes;
    for (int i = 0; i < count; ++i)
        m_times.append({at, count - 1 - i, i == 0, i == 0 && isAfterPause});
    m_lastRead = at;
}

bool HeardBytes::isPause(qint64 at, int count) const
{
    return m_lastRead < 0
           || at - m_timing.transmissionTime(count) - m_lastRead >= m_timing.frameGap();
}

bool HeardBytes::isAfterPause(int index) const
{
    return m_times.at(index).isAfterPause;
}

qint64 HeardBytes::beginOf(const Time& time) const
{
    return time.at - m_timing.transmissionTime(time.behind + 1);
}

qint64 HeardBytes::endOf(const Time& time) const
{
    return time.at - m_timing.transmissionTime(time.behind);
}

qint64 HeardBytes::doubtOf(int count) const
{
    qint64 doubt = 0;
    int goBegin = 0; // first byte, within the count, of what was read in one go
    for (int i = 1; i <= count; ++i) {
        if (i < count && !m_times.at(i).isFirst)
            continue;
        // The first byte of a go waited for the last one.
        doubt = std::max(doubt, m_timing.transmissionTime(m_times.at(goBegin).behind));
        if (i < count) {
            const Time& next = m_times.at(i);
            const qint64 waited = next.at - m_times.at(i - 1).at;
            const qint64 onLine = m_timing.transmissionTime(next.behind + 1);
            doubt = std::max(doubt, std::max(waited - onLine, onLine - waited));
        }
        goBegin = i;
    }
    return doubt;
}

HeardPiece HeardBytes::take(int count)
{
    const Time& first = m_times.first();
    const Time& last = m_times.at(count - 1);
    HeardPiece piece;
    piece.bytes = m_bytes.left(count);
    piece.firstRead = first.at;
    piece.lastRead = last.at;
    piece.isGlued = !first.isFirst;
    piece.begin = beginOf(first);
    piece.end = endOf(last);
    piece.doubt = doubtOf(count);
    m_bytes.remove(0, count);
    m_times.remove(0, count);
    return piece;
}

} // namespace kx
