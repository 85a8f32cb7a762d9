/// A watch's entries as a recording has them: the one place where values become what is recorded.
#ifndef KX_KXHOST_RECORD_RECORDED_ENTRIES_H
#define KX_KXHOST_RECORD_RECORDED_ENTRIES_H

#include "panel/watch/watch_list.h"
#include "recording/recorded.h"

namespace kx
{

/// One for each entry, in their order.
QList<RecordedTag> recordedTags(const QVector<WatchEntry>& entries);

/// The value of an entry that was read.
RecordedValue recordedValue(const WatchEntry& entry);

/// Why an entry has no value; it is not in state Ok.
GapReason gapReason(const WatchEntry& entry);

} // namespace kx

#endif
