#include "long/soak_plans.h"

#include "long/known_addresses.h"

#include <algorithm>

namespace
{

const int BITS_PER_WORD_OF_LIMIT = 8;

/// All of the ranges in pieces that one request can read.
void appendWhole(Ranges& plan, const Ranges& ranges, int most)
{
    for (const DeviceRange& whole : ranges) {
        const int step = holdsDoubleWords(whole.regType) ? 2 : 1;
        const int limit = most / step * step;
        for (int done = 0; done < whole.count; done += limit) {
            DeviceRange piece = whole;
            piece.address += done / step;
            piece.count = std::min(limit, whole.count - done);
            plan.push_back(piece);
        }
    }
}

} // namespace

const DeviceRange& anyOf(RandomSource& random, const Ranges& ranges)
{
    return ranges[static_cast<size_t>(random.below(static_cast<int>(ranges.size())))];
}

DeviceRange pieceOf(RandomSource& random, const DeviceRange& whole, int most)
{
    const int step = holdsDoubleWords(whole.regType) ? 2 : 1;
    DeviceRange piece = whole;
    piece.count = step * random.between(1, std::min(most, whole.count) / step);
    if (holdsBits(piece.regType) && piece.count % 8 == 0)
        --piece.count;
    piece.address += random.between(0, (whole.count - piece.count) / step);
    return piece;
}

Ranges randomPlan(RandomSource& random, int maxWords, int mostBits)
{
    Ranges plan;
    appendWhole(plan, setpointRanges(), maxWords);
    for (const DeviceRange& process : processRanges()) {
        for (int i = random.below(5); i > 0; --i)
            plan.push_back(
                pieceOf(random, process, holdsBits(process.regType) ? mostBits : maxWords));
    }
    return plan;
}

Ranges wholePlan(int maxWords)
{
    Ranges plan;
    for (const Ranges* ranges : {&processRanges(), &setpointRanges(), &recipeRanges()})
        appendWhole(plan, *ranges, maxWords);
    return plan;
}

// A failed read marks a 32CV address per register, and every eighth address of bits.
Ranges everythingInReach(int maxWords)
{
    Ranges reach;
    for (const Ranges* ranges : {&processRanges(), &setpointRanges(), &recipeRanges()}) {
        for (DeviceRange range : *ranges) {
            if (holdsDoubleWords(range.regType))
                range.count *= 2;
            if (holdsBits(range.regType))
                range.count += MARK_STRIDE_OF_BITS * BITS_PER_WORD_OF_LIMIT * maxWords;
            reach.push_back(range);
        }
    }
    return reach;
}
