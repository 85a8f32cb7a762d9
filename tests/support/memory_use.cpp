#include "support/memory_use.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace
{

const int AVERAGED = 8; // measurements of the resident size

qint64 heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

// Without the pages of files, such as the code of libraries, which the kernel takes
// away and brings back as it likes.
qint64 residentBytes()
{
#ifdef KX_EMULATED
    return 0; // the pages are those of the emulator, which keeps what it has translated
#else
    long size = 0;
    long resident = 0;
    long ofFiles = 0;
    std::FILE* const file = std::fopen("/proc/self/statm", "r");
    if (!file || std::fscanf(file, "%ld %ld %ld", &size, &resident, &ofFiles) != 3)
        resident = ofFiles = 0;
    if (file)
        std::fclose(file);
    return static_cast<qint64>(resident - ofFiles) * sysconf(_SC_PAGESIZE);
#endif
}

} // namespace

MemoryUse memoryUse()
{
    malloc_trim(0); // so that pages that are merely kept for later do not count
    const MemoryUse use = {heapBytes(), residentBytes()};
    return use;
}

bool runsUnderValgrind()
{
#ifdef __SANITIZE_ADDRESS__
    return false;
#else
    return heapBytes() == 0; // since its own allocator serves all requests
#endif
}

bool isMemoryMeasurable()
{
#ifdef __SANITIZE_ADDRESS__
    return false;
#else
    return !runsUnderValgrind();
#endif
}

void MemorySpread::add(const MemoryUse& use)
{
    const bool isFirst = m_measurements++ == 0;
    m_lowest.heap = isFirst ? use.heap : std::min(m_lowest.heap, use.heap);
    m_highest.heap = isFirst ? use.heap : std::max(m_highest.heap, use.heap);
    m_residentSum += use.resident;
    if (m_measurements % AVERAGED != 0)
        return;
    const qint64 resident = m_residentSum / AVERAGED;
    const bool isFirstAverage = m_measurements == AVERAGED;
    m_residentSum = 0;
    m_lowest.resident = isFirstAverage ? resident : std::min(m_lowest.resident, resident);
    m_highest.resident = isFirstAverage ? resident : std::max(m_highest.resident, resident);
}

bool MemorySpread::isWithin(qint64 bytes) const
{
    return m_measurements >= AVERAGED && m_highest.heap - m_lowest.heap <= bytes
           && m_highest.resident - m_lowest.resident <= bytes;
}
