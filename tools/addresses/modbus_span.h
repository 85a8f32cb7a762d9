/// Where device addresses lie on the wire: zero-based Modbus numbers.
#ifndef KX_ADDRESSES_MODBUS_SPAN_H
#define KX_ADDRESSES_MODBUS_SPAN_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

/// Consecutive Modbus coils or holding registers.
struct ModbusSpan {
    int first = 0;
    int last = 0;
};

/// The spans of a range, in order: two when it covers the split of its type.
KXRUNTIME_EXPORT QList<ModbusSpan> modbusSpans(const AddressRange& range);

/// "coil 1455", "holding registers 100 to 103", "coils 4040 to 4047 and 12000 to
/// 12007".
KXRUNTIME_EXPORT QString modbusText(const RegisterType* type, const QList<ModbusSpan>& spans);

/// The Modbus function that reads a type: 1 for bits, 3 for words.
KXRUNTIME_EXPORT int readFunction(const RegisterType* type);

} // namespace kx

#endif
