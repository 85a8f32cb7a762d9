/// Merging of addresses into few blocks, each of which one request can fetch.
#ifndef TARVELAN_PLANNING_ADDRESS_MERGE_H
#define TARVELAN_PLANNING_ADDRESS_MERGE_H

#include "driver/export.h"
#include "driver/records.h"
#include "registers/register_types.h"

#include <QtCore/QList>

#include <vector>

/// What a merge serves. Any value other than RECIPE_MERGE merges for reading.
enum MergeMode {
    READ_MERGE = 1,  ///< sorts, joins touching entries, then bridges gaps
    RECIPE_MERGE = 2 ///< keeps the order, joins touching entries only
};

/// A light stand-in for an entry or a block, so that no payload is touched while
/// marking, sorting and joining.
struct AddressSpan {
    const RegisterType* type; ///< null when no register type has the name
    const QString* regType;   ///< the entry's
    int station;
    int address;
    int count;
    int index; ///< of the entry in the caller's list
};

typedef std::vector<AddressSpan> AddressSpans;

/// The spans of `entries`, which must outlive them.
AddressSpans spansOf(const QList<KEY_ADDRESS>& entries);

/// One merged request: the entry that opened it, and its widened length.
struct AddressBlock {
    int opener; ///< index of the opening entry in the caller's list
    int count;  ///< registers or bits, as `KEY_ADDRESS::count`
};

/// Plans the blocks for `entries` without touching any state.
/// @param maxWords length limit of a block, and limit of a bridged gap
/// @return the blocks in the order in which they close. An entry is never cut.
///         The first of several entries, or any single one, that is longer than
///         `maxWords` appears more than once; runtimes count on these copies.
QList<AddressBlock> mergedForReading(const AddressSpans& entries, int maxWords);

/// The same for a recipe, whose single entry appears twice.
/// @param blockStarts the index of each entry that opens a block is appended
QList<AddressBlock> mergedForRecipe(const AddressSpans& entries, int maxWords,
                                    QList<int>& blockStarts);

/// Replaces `list` by its blocks, copies of the opening entries with `count`
/// widened. The limit is the `maxWords` of the driver. RECIPE_MERGE appends to the
/// driver's `intList`. An empty list stays empty.
KX_EXPORT void addrMerge(QList<KEY_ADDRESS>& list, int mode);

#endif
