/// Ranges of any length as pieces that are read, or fail, by themselves.
#ifndef KX_PANEL_DUMP_UNREAD_RANGES_H
#define KX_PANEL_DUMP_UNREAD_RANGES_H

#include "panel/jobs/read_job.h"

namespace kx
{

/// What a ReadJob is to read: ranges cut so that of a long one that a station has in part, the
/// rest is read.
/// @param ranges as joinedRanges()
QList<Tag> piecesToRead(const QList<AddressRange>& ranges);

/// Addresses that could not be read, and why.
struct UnreadRange {
    AddressRange range;
    QString reason; ///< "no reply"
};

/// Neighbours that failed for the same reason are one.
/// @param failed outcomes with a failure, in the order of their pieces
QList<UnreadRange> unreadRanges(const QList<ReadOutcome>& failed);

/// "D100:4@1", "M0@2".
QString rangeText(const AddressRange& range);

} // namespace kx

#endif
