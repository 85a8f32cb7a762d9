#include "planning/address_merge.h"

#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/address_weight.h"

#include <algorithm>

namespace
{

/// Weighs spans; each known type's position is looked up once.
class Scales
{
public:
    Scales()
    {
        for (int row = 0; row < REGISTER_TYPE_COUNT; ++row)
            m_positions[row] = registerTypePosition(QString::fromLatin1(REGISTER_TYPES[row].name));
    }

    unsigned int weigh(const AddressSpan& span) const
    {
        const int position = span.type ? m_positions[registerTypeRow(span.type)]
                                       : registerTypePosition(*span.regType);
        return addressWeight(span.station, position, span.address);
    }

private:
    int m_positions[REGISTER_TYPE_COUNT];
};

// Ascending by weight; entries of equal weight keep their order, since their
// number is the lower half of the sort key.
AddressSpans sortedByWeight(const AddressSpans& spans)
{
    const Scales scales;
    std::vector<quint64> keys;
    keys.reserve(spans.size());
    for (size_t i = 0; i < spans.size(); ++i)
        keys.push_back(static_cast<quint64>(scales.weigh(spans[i])) << 32 | i);
    std::sort(keys.begin(), keys.end());

    AddressSpans sorted;
    sorted.reserve(spans.size());
    for (size_t i = 0; i < keys.size(); ++i)
        sorted.push_back(spans[static_cast<size_t>(keys[i] & 0xFFFFFFFFu)]);
    return sorted;
}

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

// Joins entries that touch or overlap. The first entry is compared with the
// block that it opened itself, so an entry longer than the limit closes its own
// block and reopens it, and a single entry is closed twice.
AddressSpans joinTouching(const AddressSpans& entries, int maxWords, QList<int>* blockStarts)
{
    AddressSpans blocks;
    const size_t size = entries.size();
    AddressSpan block = entries[0];
    if (blockStarts)
        blockStarts->append(0);
    if (size == 1)
        blocks.push_back(block);
    for (size_t i = 0; i < size; ++i) {
        const AddressSpan& next = entries[i];
        const bool isLast = i == size - 1;
        if (startsAnew(next, block, 0) || !takesIn(block, next, maxWords)) {
            blocks.push_back(block);
            block = next;
            if (blockStarts)
                blockStarts->append(static_cast<int>(i));
        }
        if (isLast)
            blocks.push_back(block);
    }
    return blocks;
}

// Joins blocks across gaps; the registers of a gap are read along with them.
AddressSpans bridgeGaps(const AddressSpans& blocks, int maxWords)
{
    AddressSpans bridged;
    AddressSpan block = blocks[0];
    for (size_t i = 1; i < blocks.size(); ++i) {
        if (startsAnew(blocks[i], block, maxWords) || !takesIn(block, blocks[i], maxWords)) {
            bridged.push_back(block);
            block = blocks[i];
        }
    }
    bridged.push_back(block);
    return bridged;
}

QList<AddressBlock> asBlocks(const AddressSpans& spans)
{
    QList<AddressBlock> blocks;
    for (size_t i = 0; i < spans.size(); ++i) {
        const AddressBlock block = {spans[i].index, spans[i].count};
        blocks.append(block);
    }
    return blocks;
}

} // namespace

AddressSpans spansOf(const QList<KEY_ADDRESS>& entries)
{
    AddressSpans spans;
    spans.reserve(static_cast<size_t>(entries.size()));
    for (int i = 0; i < entries.size(); ++i) {
        const KEY_ADDRESS& entry = entries.at(i);
        const AddressSpan span = {findRegisterType(entry.regType),
                                  &entry.regType,
                                  entry.station,
                                  entry.address,
                                  entry.count,
                                  i};
        spans.push_back(span);
    }
    return spans;
}

QList<AddressBlock> mergedForReading(const AddressSpans& entries, int maxWords)
{
    if (entries.empty())
        return QList<AddressBlock>();
    const AddressSpans sorted = sortedByWeight(entries);
    return asBlocks(bridgeGaps(joinTouching(sorted, maxWords, nullptr), maxWords));
}

QList<AddressBlock> mergedForRecipe(const AddressSpans& entries, int maxWords,
                                    QList<int>& blockStarts)
{
    if (entries.empty())
        return QList<AddressBlock>();
    return asBlocks(joinTouching(entries, maxWords, &blockStarts));
}

void addrMerge(QList<KEY_ADDRESS>& list, int mode)
{
    const AddressSpans entries = spansOf(list);
    const QList<AddressBlock> blocks =
        mode == RECIPE_MERGE ? mergedForRecipe(entries, driver.maxWords, driver.intList)
                             : mergedForReading(entries, driver.maxWords);
    QList<KEY_ADDRESS> merged;
    for (int i = 0; i < blocks.size(); ++i) {
        merged.append(list.at(blocks.at(i).opener));
        merged.last().count = blocks.at(i).count;
    }
    list = merged;
}
