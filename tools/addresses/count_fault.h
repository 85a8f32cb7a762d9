#ifndef KX_ADDRESSES_COUNT_FAULT_H
#define KX_ADDRESSES_COUNT_FAULT_H

#include <QtCore/QString>

namespace kx
{

/// "1 value for a count of 2": what is wrong with so many values.
inline QString countFault(qint64 values, qint64 count)
{
    return QStringLiteral("%1 for a count of %2")
        .arg(values == 1 ? QStringLiteral("1 value") : QStringLiteral("%1 values").arg(values))
        .arg(count);
}

} // namespace kx

#endif
