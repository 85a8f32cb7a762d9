/// Counts what the whole program takes from the heap: malloc() and its kin pass
/// through here, operator new and Qt's lists among them.
#ifndef KX_BENCH_SUPPORT_COUNTING_HEAP_H
#define KX_BENCH_SUPPORT_COUNTING_HEAP_H

/// Allocations so far; a reallocation counts as one.
long heapAllocations();

#endif
