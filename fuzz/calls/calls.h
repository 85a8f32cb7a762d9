/// Calls that a fuzzer's bytes are turned into, each taking its arguments from the
/// input.
#ifndef KX_FUZZ_CALLS_CALLS_H
#define KX_FUZZ_CALLS_CALLS_H

#include "support/steps.h"

typedef void (*Call)(InputReader* input, Panel* panel);

/// The entry points that a runtime calls, but intf_setAddrValueChangeCallBack().
extern const Call ENTRY_POINTS[];
extern const int ENTRY_POINT_COUNT;

/// The exported functions behind them, and what a runtime may do to `driver`.
extern const Call INNER_CALLS[];
extern const int INNER_CALL_COUNT;

/// Whether records were appended to the cache from outside since forgetTampering():
/// there may then be two of one address.
bool isCacheTamperedWith();
void forgetTampering();

#endif
