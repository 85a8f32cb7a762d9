#ifndef TARVELAN_DATA_VALUE_SIZE_H
#define TARVELAN_DATA_VALUE_SIZE_H

#include "registers/register_types.h"

/// Bytes of one value in the cache and in payloads; 0 for an unknown class.
inline int valueSize(RegisterClass registerClass)
{
    switch (registerClass) {
    case BIT_CLASS:
        return 1;
    case WORD_CLASS:
        return 2;
    case DOUBLE_WORD_CLASS:
        return 4;
    case UNKNOWN_CLASS:
        break;
    }
    return 0;
}

#endif
