#include "panel/values/value_format.h"

#include "addresses/address_text.h"
#include "addresses/modbus_span.h"
#include "panel/values/format_text.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <algorithm>
#include <initializer_list>

namespace kx
{

namespace
{

bool refuseKind(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

bool isOneOf(ValueKind kind, std::initializer_list<ValueKind> kinds)
{
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

bool suits(const RegisterType* type, const ValueFormat& format)
{
    switch (type->registerClass) {
    case BIT_CLASS:
        return isOneOf(format.kind, {ValueKind::Plain, ValueKind::Bit}) && format.bit < 0;
    case DOUBLE_WORD_CLASS:
        return isOneOf(format.kind, {ValueKind::Plain, ValueKind::U32, ValueKind::S32});
    default:
        return format.kind != ValueKind::Bit || format.bit >= 0;
    }
}

QString unsuitableText(const RegisterType* type)
{
    const QString name = QString::fromLatin1(type->name);
    if (type->registerClass == BIT_CLASS)
        return Text::tr("%1 holds bits, which have no format but bit").arg(name);
    if (type->registerClass == DOUBLE_WORD_CLASS)
        return Text::tr("%1 holds 32-bit counters, whose formats are u32 and s32").arg(name);
    return Text::tr("%1 holds words; name one bit as in %1%2.5")
        .arg(name, QString::fromLatin1(type->lowest));
}

/// Where several words stand behind each other.
bool hasWordOrder(const ValueFormat& format)
{
    return registersOf(format) > 1 && format.kind != ValueKind::Ascii;
}

bool checkOrder(const ValueFormat& format, QString* fault)
{
    if (format.order != WordOrder::Unset && !hasWordOrder(format))
        return refuseKind(fault, Text::tr("low and high are for numbers of several registers"));
    if (format.swapsBytes
        && (format.isCounter || isOneOf(format.kind, {ValueKind::Plain, ValueKind::Bit})))
        return refuseKind(fault, Text::tr("swapped is for words with a format of their own"));
    return true;
}

/// A rounded number must tell which register it came from.
bool tellsSteps(const ValueFormat& format, int decimals)
{
    const Decimal lastDigit = Decimal(1).timesPowerOfTen(-decimals);
    return decimals >= std::max(format.scale.places(), format.offset.places())
           || lastDigit.compare(format.scale.absolute()) < 0;
}

bool checkDecimals(const ValueFormat& format, QString* fault)
{
    if (format.decimals < 0 || isFloating(format) || tellsSteps(format, format.decimals))
        return true;
    int fewest = format.decimals;
    while (!tellsSteps(format, fewest))
        ++fewest;
    return refuseKind(fault,
                      Text::tr("with decimals %1 values %2 apart look alike; take %3 or more")
                          .arg(QString::number(format.decimals), format.scale.absolute().text(),
                               QString::number(fewest)));
}

QString noNumbersText(const ValueFormat& format)
{
    switch (format.kind) {
    case ValueKind::Hex:
        return Text::tr("hex values have no scale, offset, decimals, min or max");
    case ValueKind::Bin:
        return Text::tr("bin values have no scale, offset, decimals, min or max");
    case ValueKind::Ascii:
        return Text::tr("text has no scale, offset, decimals, min or max");
    default:
        return Text::tr("bits have no scale, offset, decimals, min or max");
    }
}

bool checkNumbers(const ValueFormat& format, QString* fault)
{
    const bool hasNumbers =
        format.isScaled() || format.decimals >= 0 || format.lowest || format.highest;
    if (hasNumbers && !isNumeric(format))
        return refuseKind(fault, noNumbersText(format));
    if (format.scale.isZero() || format.scale.significantDigits() > MOST_SCALE_DIGITS)
        return refuseKind(
            fault,
            Text::tr("the scale must not be 0, and have at most %1 digits").arg(MOST_SCALE_DIGITS));
    if (format.lowest && format.highest && format.lowest->compare(*format.highest) > 0)
        return refuseKind(
            fault,
            Text::tr("min %1 is above max %2").arg(format.lowest->text(), format.highest->text()));
    return checkDecimals(format, fault);
}

} // namespace

bool ValueFormat::isScaled() const
{
    return !offset.isZero() || scale.compare(Decimal(1)) != 0;
}

int registersOf(const ValueFormat& format)
{
    switch (format.kind) {
    case ValueKind::U32:
    case ValueKind::S32:
        return format.isCounter ? 1 : 2;
    case ValueKind::Float:
        return 2;
    case ValueKind::U64:
    case ValueKind::S64:
    case ValueKind::Double:
        return 4;
    case ValueKind::Ascii:
        return format.words;
    default:
        return 1;
    }
}

bool isFloating(const ValueFormat& format)
{
    return isOneOf(format.kind, {ValueKind::Float, ValueKind::Double});
}

bool isNumeric(const ValueFormat& format)
{
    return !isOneOf(format.kind,
                    {ValueKind::Hex, ValueKind::Bin, ValueKind::Bit, ValueKind::Ascii});
}

int shownDecimals(const ValueFormat& format)
{
    return format.decimals >= 0 ? format.decimals
                                : std::max(format.scale.places(), format.offset.places());
}

bool fitFormat(const RegisterType* type, ValueFormat* format, QString* fault)
{
    if (format->bit >= 0 && format->kind != ValueKind::Bit)
        return refuseKind(fault, Text::tr("one bit of a word has no format"));
    if (!suits(type, *format))
        return refuseKind(fault, unsuitableText(type));
    format->isCounter = type->registerClass == DOUBLE_WORD_CLASS;
    ValueFormat checked = *format;
    if (type->registerClass == BIT_CLASS)
        checked.kind = ValueKind::Bit;
    return checkOrder(checked, fault) && checkNumbers(checked, fault);
}

void takeOrder(const ValueFormat& order, ValueFormat* format)
{
    if (!hasWordOrder(*format) || format->order != WordOrder::Unset || format->swapsBytes)
        return;
    format->order = order.order;
    format->swapsBytes = order.swapsBytes;
}

bool liesInOneRun(const AddressRange& range, const ValueFormat& format, QString* fault)
{
    const int registers = registersOf(format);
    for (int address = range.address; registers > 1 && address < range.address + range.values;
         address += registers) {
        AddressRange value = range;
        value.address = address;
        value.values = registers;
        if (modbusSpans(value).size() > 1)
            return refuseKind(fault, Text::tr("the value from %1 to %2 lies on both sides of a gap "
                                              "in the controller's registers")
                                         .arg(addressText(range.type, address),
                                              addressText(range.type, address + registers - 1)));
    }
    return true;
}

bool keepsItsWords(const RegisterType* type)
{
    const QString name = QString::fromLatin1(type->name);
    return name == QLatin1String("D") || name == QLatin1String("Z");
}

} // namespace kx
