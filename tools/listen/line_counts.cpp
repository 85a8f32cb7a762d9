#include "listen/line_counts.h"

#include "listen/frame_shape.h"

#include <algorithm>

namespace kx
{

void ResponseTimes::add(qint64 time)
{
    shortest = count == 0 ? time : std::min(shortest, time);
    longest = std::max(longest, time);
    sum += time;
    ++count;
}

void GapCounts::add(const FrameGap& gap)
{
    switch (gap.verdict) {
    case GapVerdict::Kept:
        ++kept;
        break;
    case GapVerdict::TooShort:
        shortest = tooShort == 0 ? gap.silence : std::min(shortest, gap.silence);
        ++tooShort;
        break;
    case GapVerdict::Unclear:
        ++unclear;
    }
}

void LineCounts::add(const HeardExchange& exchange)
{
    if (exchange.kind == HeardKind::Noise)
        return;
    if (exchange.kind == HeardKind::Stray) {
        ++strays;
        return;
    }
    if (exchange.kind == HeardKind::Broadcast) {
        ++broadcasts;
        return;
    }
    StationCounts& station = stations[stationOf(exchange.request.bytes)];
    ++station.requests;
    station.answered += exchange.kind == HeardKind::Answered;
    station.refused += exchange.kind == HeardKind::Refused;
    station.unfitting += exchange.kind == HeardKind::Unfitting;
    station.damaged += exchange.kind == HeardKind::Damaged;
    station.unanswered += exchange.kind == HeardKind::Unanswered;
    station.open += exchange.kind == HeardKind::Open;
    const bool isReply =
        exchange.kind == HeardKind::Answered || exchange.kind == HeardKind::Refused;
    if (isReply && exchange.responseTime() >= 0)
        station.responses.add(exchange.responseTime());
}

void LineCounts::addPiece(const HeardPiece& piece)
{
    bytes += piece.bytes.size();
    if (piece.isFrame)
        ++frames;
    else
        noise += piece.bytes.size();
}

void LineCounts::addGap(const HeardPiece& piece, const FrameGap& gap)
{
    if (!piece.isFrame)
        return;
    if (piece.isRequest)
        gaps.add(gap);
    else if (stations.contains(stationOf(piece.bytes)))
        stations[stationOf(piece.bytes)].gaps.add(gap);
}

} // namespace kx
