#ifndef KX_TESTS_LONG_SOAK_PLANS_H
#define KX_TESTS_LONG_SOAK_PLANS_H

#include "long/device_ranges.h"
#include "model/random_source.h"

typedef std::vector<DeviceRange> Ranges;

const DeviceRange& anyOf(RandomSource& random, const Ranges& ranges);

/// A part of `whole` of at most `most` elements. Never a multiple of eight coils,
/// the last eight of which a write turns off.
DeviceRange pieceOf(RandomSource& random, const DeviceRange& whole, int most);

/// Every setpoint, and parts of what the process changes, of at most `mostBits`.
Ranges randomPlan(RandomSource& random, int maxWords, int mostBits);

/// Every address of the soak, in pieces that one request of `maxWords` can read.
Ranges wholePlan(int maxWords);

/// Every address that reads of at most `maxWords` registers or eight times as many
/// bits can bring into the cache, also by failing.
Ranges everythingInReach(int maxWords);

#endif
