#ifndef KX_PANEL_POLLING_POLLED_RANGE_H
#define KX_PANEL_POLLING_POLLED_RANGE_H

#include "addresses/address_text.h"

namespace kx
{

/// Addresses that are read again and again.
struct PolledRange {
    AddressRange range;
    int interval = 0; ///< milliseconds from one read to the next; 0: in each cycle
};

} // namespace kx

#endif
