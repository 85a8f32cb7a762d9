#ifndef KX_ADDRESSES_COUNT_FAULT_H
#define KX_ADDRESSES_COUNT_FAULT_H

#include "system/translated_text.h"

namespace kx
{

/// "1 value for a count of 2": what is wrong with so many values.
inline QString countFault(qint64 values, qint64 count)
{
    return Text::tr("%1 for a count of %2")
        .arg(countedText(values, "%1 value", QT_TRANSLATE_N_NOOP("kx", "%1 values")))
        .arg(count);
}

} // namespace kx

#endif
