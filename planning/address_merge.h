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

/// Plans the blocks for entries in the order of sortedByWeight() without touching any state.
/// @param maxWords length limit of a block, and limit of a bridged gap
/// @return the blocks in the order in which they close, each the span of the entry that
///         opened it with `count` widened. An entry is never cut.
///         The first of several entries, or any single one, that is longer than
///         `maxWords` appears more than once; runtimes count on these copies.
AddressSpans mergedForReading(const AddressSpans& sorted, int maxWords);

/// The same for the entries of a recipe as they are, whose single entry appears twice.
/// @param blockStarts the index of each entry that opens a block is appended
AddressSpans mergedForRecipe(const AddressSpans& entries, int maxWords, QList<int>& blockStarts);

/// Replaces `list` by its blocks, copies of the opening entries with `count`
/// widened. The limit is the `maxWords` of the driver. RECIPE_MERGE appends to the
/// driver's `intList`. An empty list stays empty.
KX_EXPORT void addrMerge(QList<KEY_ADDRESS>& list, int mode);

#endif
