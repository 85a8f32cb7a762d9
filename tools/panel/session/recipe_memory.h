#ifndef KX_PANEL_SESSION_RECIPE_MEMORY_H
#define KX_PANEL_SESSION_RECIPE_MEMORY_H

#include "driver/records.h"

#include <QtCore/QMutex>

#include <vector>

namespace kx
{

/// What the driver shares with its runtime for recipes: the block with the two request
/// bytes, the mutex that guards them, and the buffer of values.
class RecipeMemory
{
public:
    RecipeMemory();

    unsigned char* sharedBlock() { return m_shared.data(); }
    unsigned short* buffer() { return m_buffer.data(); }
    QMutex* mutex() { return &m_mutex; }

    /// Copies `words` to the beginning of the buffer; no more than it holds.
    void load(const std::vector<quint16>& words);
    /// 0 outside the buffer.
    quint16 word(int offset) const;

    /// RECIPE_WRITE_JOB or RECIPE_READ_JOB; lowers the other request.
    void raise(JobKind kind);
    void lower();
    /// What is requested: RECIPE_WRITE_JOB, RECIPE_READ_JOB, or NO_JOB.
    JobKind requested();

private:
    std::vector<unsigned char> m_shared;
    std::vector<unsigned short> m_buffer;
    QMutex m_mutex;
};

} // namespace kx

#endif
