#include "planning/address_merge.h"

#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/address_weight.h"
#include "registers/register_types.h"

#include <algorithm>
#include <vector>

namespace
{

/// A light stand-in for an entry or a block, so that no payload is copied while
/// sorting and joining.
struct Span {
    const KEY_ADDRESS* entry;
    const RegisterType* type;
    unsigned int weight;
    int index; ///< of the entry in the caller's list
    int count;
};

typedef std::vector<Span> Spans;

Span spanOf(const KEY_ADDRESS& entry, int index)
{
    Span span = {&entry, findRegisterType(entry.regType), 0, index, entry.count};
    return span;
}

Spans spansOf(const QList<KEY_ADDRESS>& entries)
{
    Spans spans;
    spans.reserve(static_cast<size_t>(entries.size()));
    for (int i = 0; i < entries.size(); ++i)
        spans.push_back(spanOf(entries.at(i), i));
    return spans;
}

bool weighsLess(const Span& a, const Span& b)
{
    return a.weight < b.weight;
}

// Entries of equal weight keep their order.
void sortByWeight(Spans& spans)
{
    for (size_t i = 0; i < spans.size(); ++i) {
        const KEY_ADDRESS& entry = *spans[i].entry;
        spans[i].weight =
            addressWeight(entry.station, registerTypePosition(entry.regType), entry.address);
    }
    std::stable_sort(spans.begin(), spans.end(), weighsLess);
}

bool sameType(const Span& a, const Span& b)
{
    return a.type == b.type && (a.type || a.entry->regType == b.entry->regType);
}

/// Whether `next` must open a block of its own after `block`: another station
/// or type, more than `maxGap` registers past the block's end, or the other
/// Modbus range of its type.
bool startsAnew(const Span& next, const Span& block, int maxGap)
{
    const int blockEnd = wrapAdd(block.entry->address, block.count);
    return next.entry->station != block.entry->station || !sameType(next, block)
           || wrapSub(next.entry->address, blockEnd) > maxGap
           || liesPastSplit(block.type, block.entry->address, next.entry->address);
}

/// Registers from the start of `block` to the end of `next`.
int joinedCount(const Span& next, const Span& block)
{
    const int distance = wrapSub(next.entry->address, block.entry->address);
    return wrapAdd(next.count, wrapMul(registersPerAddress(next.type), distance));
}

/// Widens `block` to take in `next`, or returns false when it would grow past
/// `maxWords`.
bool takesIn(Span& block, const Span& next, int maxWords)
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
Spans joinTouching(const Spans& entries, int maxWords, QList<int>* blockStarts)
{
    Spans blocks;
    const size_t size = entries.size();
    Span block = entries[0];
    if (blockStarts)
        blockStarts->append(0);
    if (size == 1)
        blocks.push_back(block);
    for (size_t i = 0; i < size; ++i) {
        const Span& next = entries[i];
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
Spans bridgeGaps(const Spans& blocks, int maxWords)
{
    Spans bridged;
    Span block = blocks[0];
    for (size_t i = 1; i < blocks.size(); ++i) {
        if (startsAnew(blocks[i], block, maxWords) || !takesIn(block, blocks[i], maxWords)) {
            bridged.push_back(block);
            block = blocks[i];
        }
    }
    bridged.push_back(block);
    return bridged;
}

QList<AddressBlock> asBlocks(const Spans& spans)
{
    QList<AddressBlock> blocks;
    for (size_t i = 0; i < spans.size(); ++i) {
        const AddressBlock block = {spans[i].index, spans[i].count};
        blocks.append(block);
    }
    return blocks;
}

} // namespace

QList<AddressBlock> mergedForReading(const QList<KEY_ADDRESS>& entries, int maxWords)
{
    if (entries.isEmpty())
        return QList<AddressBlock>();
    Spans spans = spansOf(entries);
    sortByWeight(spans);
    return asBlocks(bridgeGaps(joinTouching(spans, maxWords, nullptr), maxWords));
}

QList<AddressBlock> mergedForRecipe(const QList<KEY_ADDRESS>& entries, int maxWords,
                                    QList<int>& blockStarts)
{
    if (entries.isEmpty())
        return QList<AddressBlock>();
    return asBlocks(joinTouching(spansOf(entries), maxWords, &blockStarts));
}

void addrMerge(QList<KEY_ADDRESS>& list, int mode)
{
    const QList<AddressBlock> blocks = mode == RECIPE_MERGE
                                           ? mergedForRecipe(list, driver.maxWords, driver.intList)
                                           : mergedForReading(list, driver.maxWords);
    QList<KEY_ADDRESS> merged;
    for (int i = 0; i < blocks.size(); ++i) {
        merged.append(list.at(blocks.at(i).opener));
        merged.last().count = blocks.at(i).count;
    }
    list = merged;
}
