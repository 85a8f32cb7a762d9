#include "addresses/modbus_span.h"

#include "registers/register_types.h"

#include <QtCore/QStringList>

namespace kx
{

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
        numbers << (span.first == span.last
                        ? QString::number(span.first)
                        : QStringLiteral("%1 to %2").arg(span.first).arg(span.last));
    const bool isOne = spans.size() == 1 && spans.first().first == spans.first().last;
    return QStringLiteral("%1%2 %3").arg(
        QLatin1String(type->registerClass == BIT_CLASS ? "coil" : "holding register"),
        QLatin1String(isOne ? "" : "s"), numbers.join(QLatin1String(" and ")));
}

int readFunction(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS ? 1 : 3;
}

} // namespace kx
