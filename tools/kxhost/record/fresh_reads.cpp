#include "kxhost/record/fresh_reads.h"

namespace kx
{

bool FreshReads::isFresh(const QVector<WatchEntry>& entries, int index) const
{
    const WatchEntry& entry = entries.at(index);
    return entry.state == WatchState::Ok && entry.isKnown && entry.reads > m_taken.value(index);
}

QList<int> FreshReads::take(const QVector<WatchEntry>& entries)
{
    QList<int> fresh;
    for (int index = 0; index < entries.size(); ++index) {
        if (isFresh(entries, index))
            fresh << index;
    }
    skip(entries);
    return fresh;
}

void FreshReads::skip(const QVector<WatchEntry>& entries)
{
    m_taken.clear();
    for (const WatchEntry& entry : entries)
        m_taken << entry.reads;
}

} // namespace kx
