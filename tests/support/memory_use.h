#ifndef KX_TESTS_SUPPORT_MEMORY_USE_H
#define KX_TESTS_SUPPORT_MEMORY_USE_H

#include <QtCore/QtGlobal>

/// Bytes that this process uses.
struct MemoryUse {
    qint64 heap;     ///< allocated and not freed: mallinfo2, small and mapped blocks
    qint64 resident; ///< pages of its own in memory: /proc/self/statm
};

MemoryUse memoryUse();

/// True under valgrind, where everything takes some fifty times as long.
bool runsUnderValgrind();

/// False under AddressSanitizer and valgrind, whose allocators keep what is freed.
bool isMemoryMeasurable();

/// Lowest and highest of several measurements. Whether a freed piece leaves a whole
/// page empty is chance, so that the resident size goes up and down by some 20 pages:
/// of it, averages of eight measurements count.
class MemorySpread
{
public:
    void add(const MemoryUse& use);

    int measurements() const { return m_measurements; }
    MemoryUse lowest() const { return m_lowest; }
    MemoryUse highest() const { return m_highest; }

    /// Eight measurements were made at least, and neither figure moved by more than
    /// `bytes`.
    bool isWithin(qint64 bytes) const;

private:
    int m_measurements = 0;
    qint64 m_residentSum = 0;
    MemoryUse m_lowest = {0, 0};
    MemoryUse m_highest = {0, 0};
};

#endif
