#include "kxpanel/exchanges/reply_times.h"

#include <algorithm>
#include <cmath>

namespace kxpanel
{

namespace
{

const int OCTAVE_BITS = 3;
const int CLASSES_PER_OCTAVE = 1 << OCTAVE_BITS;
// Times below have a class each.
const qint64 FIRST_OCTAVE = CLASSES_PER_OCTAVE;

} // namespace

int ReplyTimes::classOf(qint64 time)
{
    int octave = 0;
    qint64 rest = std::max(time, qint64(0));
    while (rest >= 2 * FIRST_OCTAVE) {
        rest >>= 1;
        ++octave;
    }
    return octave * CLASSES_PER_OCTAVE + static_cast<int>(rest);
}

qint64 ReplyTimes::beginOf(int index)
{
    if (index < 2 * CLASSES_PER_OCTAVE)
        return index;
    const int octave = index / CLASSES_PER_OCTAVE - 1;
    return (FIRST_OCTAVE + index % CLASSES_PER_OCTAVE) << octave;
}

void ReplyTimes::add(qint64 time)
{
    const int index = classOf(time);
    if (index >= m_classes.size())
        m_classes.resize(index + 1);
    ++m_classes[index];
    ++m_count;
    m_longest = std::max(m_longest, time);
}

qint64 ReplyTimes::quantile(double share) const
{
    const double wanted = std::ceil(share * static_cast<double>(m_count));
    qint64 seen = 0;
    for (int index = 0; index < m_classes.size(); ++index) {
        seen += m_classes.at(index);
        if (m_classes.at(index) > 0 && static_cast<double>(seen) >= wanted)
            return std::min(beginOf(index + 1) - 1, m_longest);
    }
    return m_longest;
}

} // namespace kxpanel
