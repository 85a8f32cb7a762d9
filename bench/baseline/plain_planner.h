/// Planning as one writes it first: whole records are sorted by exchanging
/// neighbours, and every mark searches the cache from the front.
#ifndef KX_BENCH_BASELINE_PLAIN_PLANNER_H
#define KX_BENCH_BASELINE_PLAIN_PLANNER_H

#include "baseline/plain_cache.h"

class PlainPlanner
{
public:
    explicit PlainPlanner(int maxWords) : m_maxWords(maxWords) {}

    /// Does what intf_addrMerge() does, for known register types.
    void plan(const QList<KEY_ADDRESS>& keys);

    const QList<VARIABLE>& readJobs() const { return m_readJobs; }
    PlainCache& cache() { return m_cache; }

private:
    void mark(const KEY_ADDRESS& key);
    QList<KEY_ADDRESS> touchingJoined(const QList<KEY_ADDRESS>& entries) const;
    QList<KEY_ADDRESS> gapsBridged(const QList<KEY_ADDRESS>& blocks) const;

    int m_maxWords;
    PlainCache m_cache;
    QList<VARIABLE> m_readJobs;
};

#endif
