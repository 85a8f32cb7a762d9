#include "planning/address_merge.h"

#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "planning/weight_order.h"

#include <algorithm>

namespace
{

const size_t SPANS_AHEAD = 12;

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

/// Keeps blocks as they close.
class KeptBlocks : public BlockTaker
{
public:
    void take(const AddressSpan& block) override { m_blocks.push_back(block); }

    const AddressSpans& all() const { return m_blocks; }

private:
    AddressSpans m_blocks;
};

/// Joins blocks across gaps; the registers of a gap are read along with them.
class Bridge : public BlockTaker
{
public:
    Bridge(int maxWords, BlockTaker& blocks)
        : m_blocks(blocks), m_block(), m_maxWords(maxWords), m_isOpen(false)
    {
    }

    void take(const AddressSpan& next) override
    {
        if (m_isOpen && !startsAnew(next, m_block, m_maxWords)
            && takesIn(m_block, next, m_maxWords))
            return;
        close();
        m_block = next;
        m_isOpen = true;
    }

    void close()
    {
        if (m_isOpen)
            m_blocks.take(m_block);
        m_isOpen = false;
    }

private:
    BlockTaker& m_blocks;
    AddressSpan m_block;
    int m_maxWords;
    bool m_isOpen;
};

/// Entries as they are.
struct GivenOrder {
    const AddressSpans& spans;

    size_t size() const { return spans.size(); }
    const AddressSpan& at(size_t place) const { return spans[place]; }
};

/// Entries in another order.
struct SortedOrder {
    const AddressSpans& spans;
    const WeightOrder& order;

    size_t size() const { return order.size(); }
    const AddressSpan& at(size_t place) const
    {
        __builtin_prefetch(&spans[order[std::min(place + SPANS_AHEAD, order.size() - 1)].index]);
        return spans[order[place].index];
    }
};

// Joins entries that touch or overlap. The first entry is compared with the
// block that it opened itself, so an entry longer than the limit closes its own
// block and reopens it, and a single entry is closed twice.
template <typename Entries, typename Taker>
void joinTouching(const Entries& entries, int maxWords, QList<int>* blockStarts, Taker& blocks)
{
    const size_t size = entries.size();
    AddressSpan block = entries.at(0);
    if (blockStarts)
        blockStarts->append(0);
    if (size == 1)
        blocks.take(block);
    for (size_t i = 0; i < size; ++i) {
        const AddressSpan& next = entries.at(i);
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

void mergeForReading(const AddressSpans& entries, int maxWords, BlockTaker& blocks)
{
    if (entries.empty())
        return;
    const WeightOrder order = orderByWeight(entries);
    const SortedOrder sorted = {entries, order};
    Bridge bridge(maxWords, blocks);
    joinTouching(sorted, maxWords, nullptr, bridge);
    bridge.close();
}

void mergeForRecipe(const AddressSpans& entries, int maxWords, QList<int>& blockStarts,
                    BlockTaker& blocks)
{
    if (entries.empty())
        return;
    const GivenOrder given = {entries};
    joinTouching(given, maxWords, &blockStarts, blocks);
}

void addrMerge(QList<KEY_ADDRESS>& list, int mode)
{
    KeptBlocks kept;
    if (mode == RECIPE_MERGE)
        mergeForRecipe(spansOf(list), driver.maxWords, driver.intList, kept);
    else
        mergeForReading(spansOf(list), driver.maxWords, kept);
    const AddressSpans& blocks = kept.all();
    QList<KEY_ADDRESS> merged;
    for (size_t i = 0; i < blocks.size(); ++i) {
        merged.append(list.at(blocks[i].index));
        merged.last().count = blocks[i].count;
    }
    list = merged;
}
