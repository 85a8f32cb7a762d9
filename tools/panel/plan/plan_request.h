/// One request of the driver's read cycle, and how the watched addresses lie in it.
#ifndef KX_PANEL_PLAN_PLAN_REQUEST_H
#define KX_PANEL_PLAN_PLAN_REQUEST_H

#include "addresses/export.h"
#include "panel/plan/watched_ranges.h"

#include <QtCore/QString>

#include <vector>

namespace kx
{

struct KXRUNTIME_EXPORT PlannedRequest {
    int station = 1;
    const RegisterType* type = nullptr;
    int address = 0; ///< first device address, as a number
    int count = 0;   ///< bits, or 16-bit registers (two per 32CV value)
    int bytesSent = 0;
    int bytesExpected = 0; ///< of a good reply

    /// The device addresses that it covers.
    int firstAddress() const { return address; }
    int lastAddress() const;
    /// More than Modbus allows in one request.
    bool isTooLong() const;
};

/// What a request's bits or registers are for.
struct Coverage {
    std::vector<bool> asked; ///< one per bit or register, false: read along
    int askedCount = 0;
    int bridgedCount = 0; ///< read along because they lie in a gap
    /// Asked for, but past the split of the type: the request reads the coils or
    /// registers that follow the first range, not those of these addresses.
    int misreadCount = 0;
};

/// The coverage of a request by what is watched; other stations and types do not count.
KXRUNTIME_EXPORT Coverage coverageOf(const PlannedRequest& request, const WatchedRanges& watched);

/// A picture of a coverage, at most `width` characters: '#' asked for, '.' read
/// along, '+' both when one character stands for several.
KXRUNTIME_EXPORT QString coverageBar(const std::vector<bool>& asked, int width);

} // namespace kx

#endif
