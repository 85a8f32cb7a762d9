#include "panel/session/recipe_memory.h"

#include "exchange/driver_memory.h"

#include <QtCore/QMutexLocker>

#include <algorithm>

namespace kx
{

namespace
{

const unsigned char REQUESTED = 1;
// A block that starts at the buffer's last word may be as long as a payload.
const size_t WORDS_BEHIND = PAYLOAD_SIZE;

} // namespace

RecipeMemory::RecipeMemory()
    : m_shared(SHARED_BLOCK_SIZE, 0), m_buffer(RECIPE_BUFFER_WORDS + WORDS_BEHIND, 0)
{
}

void RecipeMemory::load(const std::vector<quint16>& words)
{
    std::copy(words.begin(), words.end(), m_buffer.begin());
}

quint16 RecipeMemory::word(int offset) const
{
    const bool isInside = offset >= 0 && offset < RECIPE_BUFFER_WORDS;
    return isInside ? m_buffer[static_cast<size_t>(offset)] : quint16(0);
}

void RecipeMemory::raise(JobKind kind)
{
    const QMutexLocker lock(&m_mutex);
    m_shared[RECIPE_WRITE_REQUEST] = kind == RECIPE_WRITE_JOB ? REQUESTED : 0;
    m_shared[RECIPE_READ_REQUEST] = kind == RECIPE_READ_JOB ? REQUESTED : 0;
}

void RecipeMemory::lower()
{
    raise(NO_JOB);
}

JobKind RecipeMemory::requested()
{
    const QMutexLocker lock(&m_mutex);
    if (m_shared[RECIPE_WRITE_REQUEST] == REQUESTED)
        return RECIPE_WRITE_JOB;
    return m_shared[RECIPE_READ_REQUEST] == REQUESTED ? RECIPE_READ_JOB : NO_JOB;
}

} // namespace kx
