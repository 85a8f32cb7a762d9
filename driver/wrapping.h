/// 32-bit arithmetic that wraps on overflow, for addresses and counts that come
/// from outside and may lie at the edges of int.
#ifndef TARVELAN_DRIVER_WRAPPING_H
#define TARVELAN_DRIVER_WRAPPING_H

#include <QtCore/QtGlobal>

inline int wrapAdd(int a, int b)
{
    return static_cast<int>(static_cast<quint32>(a) + static_cast<quint32>(b));
}

inline int wrapSub(int a, int b)
{
    return static_cast<int>(static_cast<quint32>(a) - static_cast<quint32>(b));
}

inline int wrapMul(int a, int b)
{
    return static_cast<int>(static_cast<quint32>(a) * static_cast<quint32>(b));
}

#endif
