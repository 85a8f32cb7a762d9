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

} // namespace

LineUse lineUse(const QList<RelayedFrame>& frames, const LineTiming& timing)
{
    LineUse use;
    QList<qint64> gaps;
    qint64 limit = 0;
    qint64 spent = 0;
    int request = -1; // the latest
    for (int i = 0; i < frames.size(); ++i) {
        const RelayedFrame& frame = frames.at(i);
        if (!frame.isFromMaster)
            continue;
        if (i > 0)
            gaps << frame.start - frames.at(i - 1).end;
        if (request >= 0 && i == request + 2) {
            const RelayedFrame& asked = frames.at(request);
            const RelayedFrame& reply = frames.at(request + 1);
            ++use.exchanges;
            limit += timing.transmissionTime(asked.bytes.size()) + reply.start - asked.end
                     + timing.transmissionTime(reply.bytes.size()) + timing.frameGap();
            spent += frame.start - asked.start;
        } else if (request >= 0) {
            ++use.unanswered;
        }
        request = i;
    }
    use.gaps = countGaps(gaps, timing.frameGap());
    use.share = spent > 0 ? static_cast<double>(limit) / static_cast<double>(spent) : 0;
    return use;
}

} // namespace kx
