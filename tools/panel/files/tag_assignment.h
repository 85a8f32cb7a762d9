/// Assignments as people type them, to addresses or to the names of tags: D100=1234,
/// D100/s16*0.1=12.5, pump_speed=12.5.
#ifndef KX_PANEL_FILES_TAG_ASSIGNMENT_H
#define KX_PANEL_FILES_TAG_ASSIGNMENT_H

#include "addresses/export.h"
#include "panel/files/tags_file.h"

namespace kx
{

struct TagAssignment {
    Tag tag;               ///< its range covers the values assigned; without a name when typed
    Assignment assignment; ///< as a WriteJob takes it, once it names its station
};

/// Parses TAG=VALUE[,VALUE...], or ADDRESS=VALUE[,VALUE...] with an address as of
/// parseValueAddress(). A count, also that of a tag, must equal the number of values; without one
/// it is that number, but a text is taken whole, its commas too.
/// @param tags their names go before addresses
/// @param order of values that name none, see takeOrder()
/// @return false and one line in `*error` when a value does not fit, or the addresses cannot be
///         written: inputs, and single bits of words that change by themselves
KXRUNTIME_EXPORT bool parseTagAssignment(const QString& typed, const QList<Tag>& tags,
                                         const ValueFormat& order, TagAssignment* assignment,
                                         QString* error);

/// The values as they read, separated by commas: "12.5,0".
KXRUNTIME_EXPORT QString valuesText(const TagAssignment& assignment);

/// The raw values of one of them, as of rawOfValue(); a single bit in its place in a word.
KXRUNTIME_EXPORT QList<qint64> rawOfValue(const TagAssignment& assignment, int value);

} // namespace kx

#endif
