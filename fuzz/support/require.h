#ifndef KX_FUZZ_SUPPORT_REQUIRE_H
#define KX_FUZZ_SUPPORT_REQUIRE_H

#include <cstdio>
#include <cstdlib>

/// Ends the run as a finding when `holds` is false.
inline void require(bool holds, const char* promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "BROKEN PROMISE: %s\n", promise);
    std::abort();
}

#endif
