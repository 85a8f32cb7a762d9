#include "support/counting_heap.h"

#include <cstddef>

namespace
{

long allocations = 0;

} // namespace

long heapAllocations()
{
    return allocations;
}

// The dynamic linker finds these before the C library's, whose own remain under
// other names.
extern "C" {

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);

void* malloc(size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

void* calloc(size_t count, size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

void* realloc(void* block, size_t size)
{
    ++allocations;
    return __libc_realloc(block, size);
}
}
