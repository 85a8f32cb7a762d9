#include "panel/session/recipe_memory.h"

#include "panel/recipe/recipe_layout.h"

#include <QtCore/QMutexLocker>

#include <algorithm>

namespace kx
{

namespace
{

const size_t SHARED_BLOCK_SIZE = 60117; // bytes
const size_t WRITE_REQUEST = 60115;     // byte of the shared block
const size_t READ_REQUEST = 60116;
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
    m_shared[WRITE_REQUEST] = kind == RECIPE_WRITE_JOB ? REQUESTED : 0;
    m_shared[READ_REQUEST] = kind == RECIPE_READ_JOB ? REQUESTED : 0;
}

void RecipeMemory::lower()
{
    raise(NO_JOB);
}

JobKind RecipeMemory::requested()
{
    const QMutexLocker lock(&m_mutex);
    if (m_shared[WRITE_REQUEST] == REQUESTED)
        return RECIPE_WRITE_JOB;
    return m_shared[READ_REQUEST] == REQUESTED ? RECIPE_READ_JOB : NO_JOB;
}

} // namespace kx
