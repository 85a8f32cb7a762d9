#include "kxhost/record/recorded_entries.h"

namespace kx
{

QList<RecordedTag> recordedTags(const QVector<WatchEntry>& entries)
{
    QList<RecordedTag> tags;
    for (const WatchEntry& entry : entries)
        tags << RecordedTag{entry.name, entry.station, addressText(entry.type, entry.address),
                            QString()};
    return tags;
}

RecordedValue recordedValue(const WatchEntry& entry)
{
    return {QString::number(entry.value), true};
}

GapReason gapReason(const WatchEntry& entry)
{
    if (entry.state == WatchState::Refused)
        return GapReason::Refused;
    return entry.state == WatchState::NoAnswer ? GapReason::NoAnswer : GapReason::NotYetRead;
}

} // namespace kx
