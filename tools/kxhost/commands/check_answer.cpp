#include "kxhost/commands/check_answer.h"

#include "kxhost/modbus_json.h"

#include <QtCore/QRegularExpression>

namespace
{

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// An address in the parts that the driver's checks take.
struct AddressParts {
    QString type;
    QString digits;
    int values = 1;
};

bool splitAddress(const QString& typed, AddressParts* parts)
{
    static const QRegularExpression pattern(
        text("\\A((?:32)?[A-Za-z]+)([^:@]*)(?::([1-9][0-9]{0,4}))?\\z"));
    const QRegularExpressionMatch match = pattern.match(typed);
    parts->type = match.captured(1);
    parts->digits = match.captured(2);
    if (!match.captured(3).isEmpty())
        parts->values = match.captured(3).toInt();
    return match.hasMatch();
}

bool isWordTag(const RegisterType* type, const CheckedTag& tag)
{
    if (tag.kind != TagKind::AsRegister)
        return tag.kind == TagKind::Word;
    return !type || type->registerClass != BIT_CLASS;
}

QString rangeFault(const RegisterType* type, int number, int values)
{
    if (number < type->lowestAddress || number > highestAddress(type))
        return text("out of range; the addresses are %1").arg(addressesOf(type));
    return text("%1 values run past the last address; the addresses are %2")
        .arg(QString::number(values), addressesOf(type));
}

QString digitsFault(const RegisterType* type, const QString& digits)
{
    return text("'%1' is not %2 number; the addresses are %3")
        .arg(digits, text(type->radix == 8 ? "an octal" : "a decimal"), addressesOf(type));
}

QString kindFault(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS
               ? text("%1 holds bits and suits no word tag").arg(text(type->name))
               : text("%1 holds words and suits no bit tag").arg(text(type->name));
}

QString faultOf(int code, const RegisterType* type, const AddressParts& parts, int number,
                const CheckedTag& tag)
{
    switch (code) {
    case ADDRESS_KIND_MISMATCH:
        return kindFault(type);
    case ADDRESS_OUT_OF_RANGE:
        return rangeFault(type, number, parts.values);
    case ADDRESS_UNKNOWN_TYPE:
        return text("unknown register type '%1'; the types are %2")
            .arg(parts.type, registerTypeNames());
    case ADDRESS_NOT_A_NUMBER:
        return digitsFault(type, parts.digits);
    case ADDRESS_DATA_TYPE_REFUSED:
        return text("data type %1 is not allowed on 32CV, only 1, 3, 5, 6 and 9").arg(tag.dataType);
    case ADDRESS_ACCESS_REFUSED:
        return text("access code %1 is refused; X addresses are inputs").arg(tag.access);
    default:
        return text("the driver answers with code %1").arg(code);
    }
}

/// Asks the driver; `*number` is what it makes of the digits.
int askDriver(const DriverEntryPoints& entryPoints, const AddressParts& parts,
              const RegisterType* type, const CheckedTag& tag, int* number)
{
    const int length = parts.values * registersPerAddress(type);
    const bool isWord = isWordTag(type, tag);
    const int code =
        entryPoints.checkAddrValidity(parts.type, parts.digits, number, length, isWord ? 1 : 0);
    if (code != ADDRESS_VALID || !tag.typed)
        return code;
    return entryPoints.checkAddr(parts.type, parts.digits, number, isWord ? tag.dataType : -1,
                                 length, tag.access);
}

} // namespace

CheckAnswer checkAddress(const DriverEntryPoints& entryPoints, const QString& typed,
                         const CheckedTag& tag)
{
    CheckAnswer answer;
    answer.typed = typed;
    AddressParts parts;
    if (!splitAddress(typed, &parts)) {
        answer.fault =
            typed.contains(QRegularExpression(text(":0+\\z")))
                ? text("the count must be 1 or more")
                : text("not an address; write TYPENUMBER[:COUNT] without spaces, such as D100:4, "
                       "X17 or 32CV200");
        return answer;
    }
    const RegisterType* const type = findRegisterType(parts.type);
    int number = 0;
    answer.code = askDriver(entryPoints, parts, type, tag, &number);
    if (!answer.isValid()) {
        answer.fault = faultOf(answer.code, type, parts, number, tag);
        return answer;
    }
    answer.range.type = type;
    answer.range.address = number;
    answer.range.values = parts.values;
    return answer;
}

QString answerLine(const CheckAnswer& answer)
{
    if (!answer.isValid())
        return text("%1: %2").arg(answer.typed, answer.fault);
    const AddressRange& range = answer.range;
    const QString numbers =
        range.values == 1
            ? text("number %1").arg(range.address)
            : text("numbers %1 to %2").arg(range.address).arg(range.address + range.values - 1);
    return text("%1: valid; %2, %3, read with function %4")
        .arg(answer.typed, numbers, modbusText(range.type, modbusSpans(range)),
             QString::number(readFunction(range.type)));
}

QJsonObject answerJson(const CheckAnswer& answer)
{
    QJsonObject json;
    json[text("address")] = answer.typed;
    json[text("valid")] = answer.isValid();
    if (answer.code >= 0)
        json[text("code")] = answer.code;
    if (!answer.isValid()) {
        json[text("fault")] = answer.fault;
        return json;
    }
    json[text("type")] = text(answer.range.type->name);
    json[text("number")] = answer.range.address;
    json[text("count")] = answer.range.values;
    json[text("function")] = readFunction(answer.range.type);
    json[text("modbus")] = modbusJson(modbusSpans(answer.range));
    return json;
}
