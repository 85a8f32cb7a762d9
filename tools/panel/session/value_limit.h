#ifndef KX_PANEL_SESSION_VALUE_LIMIT_H
#define KX_PANEL_SESSION_VALUE_LIMIT_H

#include "addresses/address_text.h"
#include "addresses/request_limits.h"
#include "driver/tarvelan.h"

#include <QtCore/QtGlobal>

namespace kx
{

/// While it lives, the driver takes a read or write of the range as one request, though it is
/// longer than its limit: it would cut the registers of one value apart.
class ValueLimit
{
public:
    /// @param object the driver's; stays the caller's
    ValueLimit(tarvelan* object, const AddressRange& range)
        : m_object(object), m_usual(object->maxWordsPerJob)
    {
        if (range.width > 1)
            m_object->maxWordsPerJob = qMax(m_usual, range.driverCount());
    }
    ~ValueLimit() { m_object->maxWordsPerJob = m_usual; }
    Q_DISABLE_COPY(ValueLimit)

private:
    tarvelan* m_object;
    int m_usual;
};

/// While it lives, the driver joins variables of a recipe to blocks that a write can carry. A poll
/// may have more registers.
class RecipeLimit
{
public:
    /// @param object the driver's; stays the caller's
    explicit RecipeLimit(tarvelan* object) : m_object(object), m_usual(object->maxWords)
    {
        m_object->maxWords = qMin(m_usual, MOST_REGISTERS_PER_WRITE);
    }
    ~RecipeLimit() { m_object->maxWords = m_usual; }
    Q_DISABLE_COPY(RecipeLimit)

private:
    tarvelan* m_object;
    int m_usual;
};

} // namespace kx

#endif
