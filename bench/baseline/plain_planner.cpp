#include "baseline/plain_planner.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace
{

bool isBitType(const QString& regType)
{
    static const QStringList bitTypes = QString::fromLatin1("X,Y,M,SM,S,T,C").split(QChar(','));
    return bitTypes.contains(regType);
}

int registersPerValue(const QString& regType)
{
    return regType == QLatin1String("32CV") ? 2 : 1;
}

unsigned int weight(const KEY_ADDRESS& entry)
{
    static const QStringList order =
        QString::fromLatin1("X,Y,M,SM,S,T,C,D,SD,TV,CV,32CV,Z").split(QChar(','));
    const int position = static_cast<int>(order.indexOf(entry.regType)) + 1;
    return static_cast<unsigned int>(65535 * (5 * entry.station + position) + entry.address);
}

void bubbleSort(QList<KEY_ADDRESS>& entries)
{
    const int size = static_cast<int>(entries.size());
    for (int pass = 0; pass < size - 1; ++pass) {
        for (int i = 0; i < size - pass - 1; ++i) {
            if (weight(entries.at(i)) > weight(entries.at(i + 1)))
                std::swap(entries[i], entries[i + 1]);
        }
    }
}

bool startsAnew(const KEY_ADDRESS& next, const KEY_ADDRESS& block, int maxGap)
{
    if (next.station != block.station || next.regType != block.regType)
        return true;
    if (next.address - (block.address + block.count) > maxGap)
        return true;
    const bool isSd = next.regType == QLatin1String("SD");
    const bool isM = next.regType == QLatin1String("M");
    return (isSd && next.address > 255 && block.address <= 255)
           || (isM && next.address >= 2048 && block.address < 2048);
}

bool takesIn(KEY_ADDRESS& block, const KEY_ADDRESS& next, int maxWords)
{
    const int count = next.count + registersPerValue(next.regType) * (next.address - block.address);
    if (count > maxWords)
        return false;
    block.count = std::max(block.count, count);
    return true;
}

VARIABLE readJob(const KEY_ADDRESS& block)
{
    VARIABLE job = VARIABLE();
    job.kind = CYCLIC_READ_JOB;
    job.station = block.station;
    job.regType = block.regType;
    job.address = block.address;
    job.count = block.count;
    return job;
}

} // namespace

void PlainPlanner::mark(const KEY_ADDRESS& key)
{
    for (int i = 0; i < key.count / registersPerValue(key.regType); ++i) {
        const int address = key.address + i;
        if (isBitType(key.regType)) {
            const int index = m_cache.indexOf(key.station, key.regType, address / 8 * 8);
            m_cache.records[index].bitMonitorMask |= 1 << address % 8;
        } else {
            const int index = m_cache.indexOf(key.station, key.regType, address);
            m_cache.records[index].monitorFlags |= 1;
        }
    }
}

// The first entry meets the block that it opened itself; a single one is closed twice.
QList<KEY_ADDRESS> PlainPlanner::touchingJoined(const QList<KEY_ADDRESS>& entries) const
{
    QList<KEY_ADDRESS> blocks;
    KEY_ADDRESS block = entries.first();
    if (entries.size() == 1)
        blocks.append(block);
    for (const KEY_ADDRESS& next : entries) {
        if (startsAnew(next, block, 0) || !takesIn(block, next, m_maxWords)) {
            blocks.append(block);
            block = next;
        }
    }
    blocks.append(block);
    return blocks;
}

QList<KEY_ADDRESS> PlainPlanner::gapsBridged(const QList<KEY_ADDRESS>& blocks) const
{
    QList<KEY_ADDRESS> bridged;
    KEY_ADDRESS block = blocks.first();
    for (int i = 1; i < blocks.size(); ++i) {
        if (startsAnew(blocks.at(i), block, m_maxWords)
            || !takesIn(block, blocks.at(i), m_maxWords)) {
            bridged.append(block);
            block = blocks.at(i);
        }
    }
    bridged.append(block);
    return bridged;
}

void PlainPlanner::plan(const QList<KEY_ADDRESS>& keys)
{
    for (_DATA_& record : m_cache.records) {
        record.monitorFlags = 0;
        record.bitMonitorMask = 0;
    }
    QList<KEY_ADDRESS> entries;
    for (const KEY_ADDRESS& key : keys) {
        mark(key);
        entries.append(key);
    }
    m_readJobs.clear();
    if (keys.isEmpty())
        return;
    bubbleSort(entries);
    for (const KEY_ADDRESS& block : gapsBridged(touchingJoined(entries)))
        m_readJobs.append(readJob(block));
}
