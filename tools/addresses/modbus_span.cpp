#include "addresses/modbus_span.h"

#include "registers/register_types.h"
#include "system/translated_text.h"

#include <QtCore/QStringList>

namespace kx
{

namespace
{

QString namedText(const RegisterType* type, bool isOne)
{
    if (type->registerClass == BIT_CLASS)
        return isOne ? Text::tr("coil %1") : Text::tr("coils %1");
    return isOne ? Text::tr("holding register %1") : Text::tr("holding registers %1");
}

} // namespace

QList<ModbusSpan> modbusSpans(const AddressRange& range)
{
    QList<ModbusSpan> spans;
    const int each = registersPerAddress(range.type);
    for (int i = 0; i < range.values; ++i) {
        const int number = modbusNumber(range.type, range.address + i);
        if (spans.isEmpty() || number != spans.last().last + 1)
            spans << ModbusSpan{number, number};
        spans.last().last = number + each - 1;
    }
    return spans;
}

QString modbusText(const RegisterType* type, const QList<ModbusSpan>& spans)
{
    QStringList numbers;
    for (const ModbusSpan& span : spans)
        numbers << (span.first == span.last ? QString::number(span.first)
                                            : Text::tr("%1 to %2").arg(span.first).arg(span.last));
    const bool isOne = spans.size() == 1 && spans.first().first == spans.first().last;
    return namedText(type, isOne).arg(numbers.join(Text::tr(" and ")));
}

int readFunction(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS ? 1 : 3;
}

} // namespace kx
