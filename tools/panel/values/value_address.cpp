#include "panel/values/value_address.h"

#include "addresses/digits.h"
#include "panel/values/format_text.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

const int HIGHEST_BIT = 15;

bool refuseAddress(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

bool takeBit(const QString& digits, ValueFormat* format, QString* fault)
{
    const bool isNumber = hasOnlyDigits(digits, 10) && digits.size() <= 2;
    if (!isNumber || digits.toInt() > HIGHEST_BIT)
        return refuseAddress(fault, Text::tr("'%1' is not a bit of a word; they are 0 to %2")
                                        .arg(digits, QString::number(HIGHEST_BIT)));
    if (format->kind != ValueKind::Plain)
        return refuseAddress(fault, Text::tr("one bit of a word has no format"));
    format->kind = ValueKind::Bit;
    format->bit = digits.toInt();
    return true;
}

/// @param place what stands before the slash
bool takePlace(const QString& place, AddressRange* range, ValueFormat* format, QString* fault)
{
    AddressParts parts;
    const auto dot = parseAddressParts(place, &parts) ? parts.number.indexOf(QLatin1Char('.')) : -1;
    if (dot < 0)
        return parseAddress(place, range, fault);
    if (!takeBit(parts.number.mid(dot + 1), format, fault))
        return false;
    const QString count = parts.count.isNull() ? QString() : QLatin1Char(':') + parts.count;
    const QString station = parts.station.isNull() ? QString() : QLatin1Char('@') + parts.station;
    return parseAddress(parts.type + parts.number.left(dot) + count + station, range, fault);
}

QString pastEndText(const AddressRange& range, int registers)
{
    const QString addresses = addressesOf(range.type);
    if (range.values == 1 && registers == 1)
        return Text::tr("the value runs past the last address; the addresses are %1")
            .arg(addresses);
    if (range.values == 1)
        return Text::tr("the value runs past the last address, %1 registers each; the addresses "
                        "are %2")
            .arg(QString::number(registers), addresses);
    if (registers == 1)
        return Text::tr("%1 values run past the last address; the addresses are %2")
            .arg(QString::number(range.values), addresses);
    return Text::tr("%1 values run past the last address, %2 registers each; the addresses are %3")
        .arg(QString::number(range.values), QString::number(registers), addresses);
}

} // namespace

bool parseValueAddress(const QString& typed, AddressRange* range, ValueFormat* format,
                       QString* fault)
{
    *range = AddressRange();
    *format = ValueFormat();
    const auto slash = typed.indexOf(QLatin1Char('/'));
    if (slash >= 0 && !parseFormat(typed.mid(slash + 1), format, fault))
        return false;
    return takePlace(typed.left(slash), range, format, fault) && coverValues(range, format, fault);
}

bool coverValues(AddressRange* range, ValueFormat* format, QString* fault)
{
    if (!fitFormat(range->type, format, fault))
        return false;
    if (format->bit >= 0 && range->values != 1)
        return refuseAddress(fault, Text::tr("one bit of a word has no count"));
    const int registers = registersOf(*format);
    const int room = highestAddress(range->type) - range->address + 1;
    if (range->values > room / registers)
        return refuseAddress(fault, pastEndText(*range, registers));
    range->values *= registers;
    return liesInOneRun(*range, *format, fault);
}

int valuesIn(const AddressRange& range, const ValueFormat& format)
{
    return range.values / registersOf(format);
}

QString valueAddressText(const AddressRange& range, const ValueFormat& format)
{
    QString text = valueName(range, format, 0);
    const int values = valuesIn(range, format);
    if (values != 1)
        text += QStringLiteral(":%1").arg(values);
    if (range.station > 0)
        text += QStringLiteral("@%1").arg(range.station);
    const QString formatted = formatText(format);
    return formatted.isEmpty() ? text : text + QLatin1Char('/') + formatted;
}

QString valueName(const AddressRange& range, const ValueFormat& format, int value)
{
    const QString name = addressText(range.type, range.address + value * registersOf(format));
    return format.bit < 0 ? name : QStringLiteral("%1.%2").arg(name).arg(format.bit);
}

} // namespace kx
