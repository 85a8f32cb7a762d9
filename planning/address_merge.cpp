#include "planning/address_merge.h"

#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "planning/weight_order.h"

#include <algorithm>

namespace
{

bool sameType(const AddressSpan& a, const AddressSpan& b)
{
    return a.type == b.type && (a.type || *a.regType == *b.regType);
}

/// Whether `next` must open a block of its own after `block`: another station
/// or type, more than `maxGap` registers past the block's end, or the other
/// Modbus range of its type.
bool startsAnew(const AddressSpan& next, const AddressSpan& block, int maxGap)
{
    const int blockEnd = wrapAdd(block.address, block.count);
    return next.station != block.station || !sameType(next, block)
           || wrapSub(next.address, blockEnd) > maxGap
           || liesPastSplit(block.type, block.address, next.address);
}

/// Registers from the start of `block` to the end of `next`.
int joinedCount(const AddressSpan& next, const AddressSpan& block)
{
    const int distance = wrapSub(next.address, block.address);
    return wrapAdd(next.count, wrapMul(registersPerAddress(next.type), distance));
}

/// Widens `block` to take in `next`, or returns false when it would grow past
/// `maxWords`.
bool takesIn(AddressSpan& block, const AddressSpan& next, int maxWords)
{
    const int count = joinedCount(next, block);
    if (count > maxWords)
        return false;
    block.count = std::max(block.count, count);
    return true;
}

/// Takes blocks as they close.
class Blocks
{
public:
    explicit Blocks(size_t expected) { m_closed.reserve(expected); }

    void take(const AddressSpan& block) { m_closed.push_back(block); }

    /// Leaves none behind.
    AddressSpans takeAll()
    {
        AddressSpans all;
        all.swap(m_closed);
        return all;
    }

private:
    AddressSpans m_closed;
};

/// Takes blocks and joins them across gaps; the registers of a gap are read along with them.
class BridgedBlocks
{
public:
    BridgedBlocks(size_t expected, int maxWords)
        : m_bridged(expected), m_block(), m_maxWords(maxWords), m_isOpen(false)
    {
    }

    void take(const AddressSpan& next)
    {
        if (m_isOpen && !startsAnew(next, m_block, m_maxWords)
            && takesIn(m_block, next, m_maxWords))
            return;
        close();
        m_block = next;
        m_isOpen = true;
    }

    /// Leaves none behind.
    AddressSpans takeAll()
    {
        close();
        return m_bridged.takeAll();
    }

private:
    void close()
    {
        if (m_isOpen)
            m_bridged.take(m_block);
        m_isOpen = false;
    }

    Blocks m_bridged;
    AddressSpan m_block;
    int m_maxWords;
    bool m_isOpen;
};

// Joins entries that touch or overlap. The first entry is compared with the
// block that it opened itself, so an entry longer than the limit closes its own
// block and reopens it, and a single entry is closed twice.
template <typename Taker>
void joinTouching(const AddressSpans& entries, int maxWords, QList<int>* blockStarts, Taker& blocks)
{
    const size_t size = entries.size();
    AddressSpan block = entries[0];
    if (blockStarts)
        blockStarts->append(0);
    if (size == 1)
        blocks.take(block);
    for (size_t i = 0; i < size; ++i) {
        const AddressSpan& next = entries[i];
        if (startsAnew(next, block, 0) || !takesIn(block, next, maxWords)) {
            blocks.take(block);
            block = next;
            if (blockStarts)
                blockStarts->append(static_cast<int>(i));
        }
    }
    blocks.take(block);
}

} // namespace

AddressSpans mergedForReading(const AddressSpans& sorted, int maxWords)
{
    if (sorted.empty())
        return AddressSpans();
    BridgedBlocks blocks(sorted.size(), maxWords);
    joinTouching(sorted, maxWords, nullptr, blocks);
    return blocks.takeAll();
}

AddressSpans mergedForRecipe(const AddressSpans& entries, int maxWords, QList<int>& blockStarts)
{
    if (entries.empty())
        return AddressSpans();
    Blocks blocks(entries.size());
    joinTouching(entries, maxWords, &blockStarts, blocks);
    return blocks.takeAll();
}

void addrMerge(QList<KEY_ADDRESS>& list, int mode)
{
    const AddressSpans entries = spansOf(list);
    const AddressSpans blocks = mode == RECIPE_MERGE
                                    ? mergedForRecipe(entries, driver.maxWords, driver.intList)
                                    : mergedForReading(sortedByWeight(entries), driver.maxWords);
    QList<KEY_ADDRESS> merged;
    for (size_t i = 0; i < blocks.size(); ++i) {
        merged.append(list.at(blocks[i].index));
        merged.last().count = blocks[i].count;
    }
    list = merged;
}
