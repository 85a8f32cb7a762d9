#include "planning/address_span.h"

#include <algorithm>

namespace
{

const int ENTRIES_AHEAD = 16;

} // namespace

// Entries lie more than a kilobyte apart, too far for the processor to foresee them.
AddressSpans spansOf(const QList<KEY_ADDRESS>& entries)
{
    AddressSpans spans;
    spans.reserve(static_cast<size_t>(entries.size()));
    const int size = static_cast<int>(entries.size());
    for (int i = 0; i < size; ++i) {
        const KEY_ADDRESS& ahead = entries.at(std::min(i + ENTRIES_AHEAD, size - 1));
        __builtin_prefetch(&ahead.regType);
        __builtin_prefetch(&ahead.count);
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
