#include "relay/line_use.h"

#include <algorithm>

namespace kx
{

namespace
{

void count(qint64 gap, qint64 frameGap, GapCounts* gaps)
{
    if (gap < frameGap)
        ++gaps->tooShort;
    else if (gap * 10 < frameGap * 11)
        ++gaps->close;
    else if (gap * 10 < frameGap * 15)
        ++gaps->fair;
    else
        ++gaps->longer;
}

GapCounts countGaps(QList<qint64> lengths, qint64 frameGap)
{
    GapCounts gaps;
    for (const qint64 length : lengths)
        count(length, frameGap, &gaps);
    if (lengths.isEmpty())
        return gaps;
    std::sort(lengths.begin(), lengths.end());
    gaps.shortest = lengths.first();
    gaps.median = lengths.at(lengths.size() / 2);
    return gaps;
}

double medianOf(QList<double> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return numbers.isEmpty() ? 0 : numbers.at(numbers.size() / 2);
}

/// What the exchange has to take at least.
qint64 limitOf(const RelayedFrame& request, const RelayedFrame& reply, const LineTiming& timing)
{
    return timing.transmissionTime(request.bytes.size()) + reply.start - request.end
           + timing.transmissionTime(reply.bytes.size()) + timing.frameGap();
}

} // namespace

LineUse lineUse(const QList<RelayedFrame>& frames, const LineTiming& timing)
{
    LineUse use;
    QList<qint64> gaps;
    QList<double> shares;
    qint64 limits = 0;
    qint64 spent = 0;
    int request = -1; // the latest
    for (int i = 0; i < frames.size(); ++i) {
        const RelayedFrame& frame = frames.at(i);
        if (!frame.isFromMaster)
            continue;
        if (i > 0)
            gaps << frame.start - frames.at(i - 1).end;
        if (request >= 0 && i == request + 2) {
            const qint64 limit = limitOf(frames.at(request), frames.at(request + 1), timing);
            const qint64 took = frame.start - frames.at(request).start;
            ++use.exchanges;
            shares << static_cast<double>(limit) / static_cast<double>(took);
            limits += limit;
            spent += took;
        } else if (request >= 0) {
            ++use.unanswered;
        }
        request = i;
    }
    use.gaps = countGaps(gaps, timing.frameGap());
    use.share = spent > 0 ? static_cast<double>(limits) / static_cast<double>(spent) : 0;
    use.medianShare = medianOf(shares);
    return use;
}

} // namespace kx
