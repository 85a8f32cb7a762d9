#include "kxhost/views/check_answer.h"

#include "kxhost/views/modbus_json.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const int MOST_VALUES = 65536;

bool isWordTag(const RegisterType* type, const CheckedTag& tag)
{
    if (tag.kind != TagKind::AsRegister)
        return tag.kind == TagKind::Word;
    return !type || type->registerClass != BIT_CLASS;
}

QString kindFault(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS ? QStringLiteral("%1 holds bits and suits no word tag")
                                                  .arg(QString::fromLatin1(type->name))
                                            : QStringLiteral("%1 holds words and suits no bit tag")
                                                  .arg(QString::fromLatin1(type->name));
}

/// @param parserFault what the parser says; empty when it takes the address
QString faultOf(int code, const AddressRange& range, const CheckedTag& tag,
                const QString& parserFault)
{
    switch (code) {
    case ADDRESS_KIND_MISMATCH:
        return kindFault(range.type);
    case ADDRESS_DATA_TYPE_REFUSED:
        return QStringLiteral("data type %1 is not allowed on 32CV, only 1, 3, 5, 6 and 9")
            .arg(tag.dataType);
    case ADDRESS_ACCESS_REFUSED:
        return QStringLiteral("access code %1 is refused; X addresses are inputs").arg(tag.access);
    default:
        break;
    }
    if (!parserFault.isEmpty())
        return parserFault;
    // The driver counts registers and keeps the last 32CV from being the second of two.
    if (code == ADDRESS_OUT_OF_RANGE)
        return QStringLiteral("%1 values run past the last address; the addresses are %2")
            .arg(QString::number(range.values), addressesOf(range.type));
    return QStringLiteral("the driver answers with code %1").arg(code);
}

int askDriver(const DriverEntryPoints& entryPoints, const AddressParts& parts,
              const AddressRange& range, const CheckedTag& tag)
{
    // More than any type has, and far from where an int ends.
    const int length = qMin(range.values, MOST_VALUES) * registersPerAddress(range.type);
    const bool isWord = isWordTag(range.type, tag);
    int number = 0;
    const int code =
        entryPoints.checkAddrValidity(parts.type, parts.number, &number, length, isWord ? 1 : 0);
    if (code != ADDRESS_VALID || !tag.typed)
        return code;
    return entryPoints.checkAddr(parts.type, parts.number, &number, isWord ? tag.dataType : -1,
                                 length, tag.access);
}

} // namespace

CheckAnswer checkAddress(const DriverEntryPoints& entryPoints, const QString& typed,
                         const CheckedTag& tag)
{
    CheckAnswer answer;
    answer.typed = typed;
    QString parserFault;
    const bool isAddress = parseValueAddress(typed, &answer.range, &answer.format, &parserFault);
    AddressParts parts;
    if (parseAddressParts(typed.section(QLatin1Char('/'), 0, 0), &parts)) {
        if (answer.format.bit >= 0) // which the driver does not know
            parts.number = parts.number.section(QLatin1Char('.'), 0, 0);
        answer.code = askDriver(entryPoints, parts, answer.range, tag);
    }
    // The driver takes blanks and signs, and knows no station; people mistype them.
    if (!isAddress && answer.code == ADDRESS_VALID)
        answer.code = -1;
    if (!answer.isValid())
        answer.fault = faultOf(answer.code, answer.range, tag, parserFault);
    return answer;
}

QString answerRow(const CheckAnswer& answer)
{
    if (!answer.isValid())
        return faultyText(answer.typed, answer.fault);
    const AddressRange& range = answer.range;
    const QString numbers = range.values == 1 ? QStringLiteral("number %1").arg(range.address)
                                              : QStringLiteral("numbers %1 to %2")
                                                    .arg(range.address)
                                                    .arg(range.address + range.values - 1);
    return QStringLiteral("%1: valid; %2, %3, read with function %4")
        .arg(answer.typed, numbers, modbusText(range.type, modbusSpans(range)),
             QString::number(readFunction(range.type)));
}

QJsonObject answerJson(const CheckAnswer& answer)
{
    QJsonObject json;
    json[QStringLiteral("address")] = answer.typed;
    json[QStringLiteral("valid")] = answer.isValid();
    if (answer.code >= 0)
        json[QStringLiteral("code")] = answer.code;
    if (!answer.isValid()) {
        json[QStringLiteral("fault")] = answer.fault;
        return json;
    }
    json[QStringLiteral("type")] = QString::fromLatin1(answer.range.type->name);
    json[QStringLiteral("number")] = answer.range.address;
    json[QStringLiteral("count")] = valuesIn(answer.range, answer.format);
    const QString format = formatText(answer.format);
    if (!format.isEmpty())
        json[QStringLiteral("format")] = format;
    if (answer.range.station >= 0)
        json[QStringLiteral("station")] = answer.range.station;
    json[QStringLiteral("function")] = readFunction(answer.range.type);
    json[QStringLiteral("modbus")] = modbusJson(modbusSpans(answer.range));
    return json;
}

} // namespace kx
