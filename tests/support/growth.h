/// How processor time grows with size, for tests that nothing is looked for among all.
#ifndef KX_TESTS_SUPPORT_GROWTH_H
#define KX_TESTS_SUPPORT_GROWTH_H

#include <algorithm>
#include <ctime>
#include <limits>

/// Times as much processor time as `few` that `many` take. The best of ten each, in turns:
/// other programs use the processor's caches, too.
/// @param cost takes a size; returns units of clock()
template <class Cost>
double growth(const Cost& cost, int few, int many)
{
    std::clock_t leastOfFew = std::numeric_limits<std::clock_t>::max();
    std::clock_t leastOfMany = leastOfFew;
    for (int attempt = 0; attempt < 10; ++attempt) {
        leastOfFew = std::min(leastOfFew, cost(few));
        leastOfMany = std::min(leastOfMany, cost(many));
    }
    return double(leastOfMany) / double(std::max<std::clock_t>(leastOfFew, 1));
}

#endif
