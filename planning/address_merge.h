/// Merging of addresses into few blocks, each of which one request can fetch.
#ifndef TARVELAN_PLANNING_ADDRESS_MERGE_H
#define TARVELAN_PLANNING_ADDRESS_MERGE_H

#include "driver/export.h"
#include "driver/records.h"
#include "planning/address_span.h"

#include <QtCore/QList>

/// What a merge serves. Any value other than RECIPE_MERGE merges for reading.
enum MergeMode {
    READ_MERGE = 1,  ///< sorts, joins touching entries, then bridges gaps
    RECIPE_MERGE = 2 ///< keeps the order, joins touching entries only
};

/// Takes blocks in the order in which they close.
class BlockTaker
{
public:
    virtual ~BlockTaker() {}

    /// @param block the span of the entry that opened it with `count` widened
    virtual void take(const AddressSpan& block) = 0;
};

/// Plans the blocks for entries in any order without touching any state. An entry is never
/// cut. The first of several entries by weight, or any single one, that is longer than
/// `maxWords` is taken more than once; runtimes count on these copies.
/// @param maxWords length limit of a block, and limit of a bridged gap
void mergeForReading(const AddressSpans& entries, int maxWords, BlockTaker& blocks);

/// The same for the entries of a recipe in their order, whose single entry is taken twice.
/// @param blockStarts the index of each entry that opens a block is appended
void mergeForRecipe(const AddressSpans& entries, int maxWords, QList<int>& blockStarts,
                    BlockTaker& blocks);

/// Replaces `list` by its blocks, copies of the opening entries with `count`
/// widened. The limit is the `maxWords` of the driver. RECIPE_MERGE appends to the
/// driver's `intList`. An empty list stays empty.
KX_EXPORT void addrMerge(QList<KEY_ADDRESS>& list, int mode);

#endif
