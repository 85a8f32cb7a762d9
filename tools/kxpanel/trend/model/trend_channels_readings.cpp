// What channels take of what the machine tells.

#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_reading.h"

namespace kxpanel
{

void TrendChannels::takeReadings(const QVector<Reading>& readings, qint64 now)
{
    bool isAnyTaken = false;
    for (const Reading& reading : readings) {
        const int index = indexOf(reading.number);
        const WatchedValue* value = index < 0 ? nullptr : m_tags->find(reading.number);
        if (value == nullptr || !suits(reading, *value))
            continue;
        isAnyTaken = true;
        if (isOfLostLine(reading)) {
            endAtLoss(m_channels.at(index));
            continue;
        }
        leaveOutMissed(reading, m_channels.at(index));
        takeReading(reading, value->tag.format, now, &m_channels[index]);
    }
    m_missed = Missed();
    if (isAnyTaken)
        emit samplesAdded();
}

/// Whatever a station said last, it says no more.
bool TrendChannels::isOfLostLine(const Reading& reading) const
{
    return m_isLineLost
           && (reading.state == kx::WatchState::NoAnswer
               || reading.state == kx::WatchState::Refused);
}

/// Reads of just before a loss may be told behind it: the last of them does not go on either.
void TrendChannels::endAtLoss(const TrendChannel& channel)
{
    if (!channel.store->isEmpty())
        channel.store->append(channel.store->end(), gapValue(kx::GapReason::LineLost));
}

/// Of a value that was read while nothing was told only the latest is known; of one that was not,
/// nothing is missed.
void TrendChannels::leaveOutMissed(const Reading& reading, const TrendChannel& channel) const
{
    const bool isRead = reading.state == kx::WatchState::Ok;
    const bool isFirst = channel.readAt <= m_missed.from;
    const bool isMissed = m_missed.from > 0 && isFirst
                          && (!isRead || reading.readAt > m_missed.from)
                          && reading.readAt <= m_missed.to;
    if (isMissed && !channel.store->isEmpty())
        channel.store->append(m_missed.from, gapValue(kx::GapReason::NotRead));
}

void TrendChannels::takeMissed(const Missed& missed)
{
    m_missed = missed.isRest ? Missed() : missed;
    if (missed.isRest)
        leaveOut(missed.from, kx::GapReason::NotRead);
}

void TrendChannels::takeLine(const LineStatus& status, qint64 now)
{
    m_isLineLost = status.state != LineState::Open;
    if (m_isLineLost)
        leaveOut(now, kx::GapReason::LineLost);
}

/// A gap of all that are read.
void TrendChannels::leaveOut(qint64 from, kx::GapReason reason)
{
    for (const TrendChannel& channel : qAsConst(m_channels)) {
        if (channel.endsAt < 0 && !channel.store->isEmpty())
            channel.store->append(from, gapValue(reason));
    }
    if (!m_channels.isEmpty())
        emit samplesAdded();
}

} // namespace kxpanel
