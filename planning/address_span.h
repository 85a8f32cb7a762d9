#ifndef TARVELAN_PLANNING_ADDRESS_SPAN_H
#define TARVELAN_PLANNING_ADDRESS_SPAN_H

#include "driver/records.h"
#include "registers/register_types.h"

#include <QtCore/QList>

#include <vector>

/// A light stand-in for an entry or a block, so that no payload is touched while
/// marking, sorting and joining.
struct AddressSpan {
    const RegisterType* type; ///< null when no register type has the name
    const QString* regType;   ///< the entry's
    int station;
    int address;
    int count;
    int index; ///< of the entry, or of the one that opened the block, in the caller's list
};

typedef std::vector<AddressSpan> AddressSpans;

/// The spans of `entries`, which must outlive them.
AddressSpans spansOf(const QList<KEY_ADDRESS>& entries);

#endif
