#ifndef KX_KXHOST_RECORD_FRESH_READS_H
#define KX_KXHOST_RECORD_FRESH_READS_H

#include "panel/watch/watch_list.h"

namespace kx
{

/// Which entries of a watch list were read since they were asked for last. It counts reads, since
/// one may end in the very millisecond of a sample. The list is always the same one.
class FreshReads
{
public:
    /// The entry has a value that was read since the last take() or skip().
    bool isFresh(const QVector<WatchEntry>& entries, int index) const;
    /// Indexes of the fresh ones, rising; they are fresh no more.
    QList<int> take(const QVector<WatchEntry>& entries);
    /// What was read up to now counts no more.
    void skip(const QVector<WatchEntry>& entries);

private:
    QVector<qint64> m_taken; ///< WatchEntry::reads of each; empty: none was taken
};

} // namespace kx

#endif
