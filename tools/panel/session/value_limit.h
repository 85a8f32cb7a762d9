#ifndef KX_PANEL_SESSION_VALUE_LIMIT_H
#define KX_PANEL_SESSION_VALUE_LIMIT_H

#include "addresses/address_text.h"
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

} // namespace kx

#endif
