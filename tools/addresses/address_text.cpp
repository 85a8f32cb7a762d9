#include "addresses/address_text.h"

#include "addresses/count_fault.h"
#include "addresses/digits.h"
#include "addresses/station_text.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <limits>

namespace kx
{

namespace
{

bool fail(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

bool takeType(const QString& name, AddressRange* range, QString* fault)
{
    range->type = findRegisterType(name);
    return range->type
           || fail(fault, Text::tr("unknown register type '%1'; the types are %2")
                              .arg(name, registerTypeNames()));
}

// The number, or the highest int when it is larger than that.
int numberOf(const QString& digits, int radix)
{
    bool fits = false;
    const int number = digits.toInt(&fits, radix);
    return fits ? number : std::numeric_limits<int>::max();
}

bool parseNumber(const QString& digits, AddressRange* range, QString* fault)
{
    const RegisterType* const type = range->type;
    if (!hasOnlyDigits(digits, type->radix))
        return fail(fault, (type->radix == 8
                                ? Text::tr("'%1' is not an octal number; the addresses are %2")
                                : Text::tr("'%1' is not a decimal number; the addresses are %2"))
                               .arg(digits, addressesOf(type)));
    range->address = numberOf(digits, type->radix);
    return (range->address >= type->lowestAddress && range->address <= highestAddress(type))
           || fail(fault, Text::tr("out of range; the addresses are %1").arg(addressesOf(type)));
}

bool parseCount(const QString& digits, AddressRange* range, QString* fault)
{
    if (digits.isNull())
        return true;
    range->values = hasOnlyDigits(digits, 10) ? numberOf(digits, 10) : 0;
    if (range->values < 1)
        return fail(fault, Text::tr("the count must be 1 or more"));
    return range->values - 1 <= highestAddress(range->type) - range->address
           || fail(fault, Text::tr("%1 values run past the last address; the addresses are %2")
                              .arg(digits, addressesOf(range->type)));
}

bool parseStationOption(const QString& digits, AddressRange* range, QString* fault)
{
    return digits.isNull() || parseStation(digits, &range->station)
           || fail(fault,
                   Text::tr("the station must be %1 to %2")
                       .arg(QString::number(LOWEST_STATION), QString::number(HIGHEST_STATION)));
}

bool parseValue(const QString& digits, Assignment* assignment, QString* fault)
{
    const bool isHex = digits.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive);
    const bool isNegative = digits.startsWith(QLatin1Char('-'));
    const int radix = isHex ? 16 : 10;
    if (!hasOnlyDigits(digits.mid(isHex ? 2 : isNegative ? 1 : 0), radix))
        return fail(fault, Text::tr("'%1' is not a decimal or 0x hexadecimal number").arg(digits));
    bool fits = false;
    const qint64 value = digits.toLongLong(&fits, radix);
    const RegisterType* const type = assignment->range.type;
    if (!fits || value < lowestValue(type) || value > highestValue(type))
        return fail(fault, Text::tr("%1 does not fit; %2 takes %3 to %4")
                               .arg(digits, QString::fromLatin1(type->name),
                                    QString::number(lowestValue(type)),
                                    QString::number(highestValue(type))));
    assignment->values << value;
    return true;
}

bool takeValues(const QStringList& values, bool countGiven, Assignment* assignment, QString* fault)
{
    for (const QString& value : values) {
        if (!parseValue(value, assignment, fault))
            return false;
    }
    if (countGiven && values.size() != assignment->range.values)
        return fail(fault, countFault(values.size(), assignment->range.values));
    return parseCount(QString::number(values.size()), &assignment->range, fault);
}

} // namespace

int AddressRange::driverCount() const
{
    return values * registersPerAddress(type);
}

bool parseAddressParts(const QString& typed, AddressParts* parts)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A((?:32)?[A-Za-z]+)([^:@]*)(?::([^@]*))?(?:@(.*))?\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = pattern.match(typed);
    *parts = {match.captured(1), match.captured(2), match.captured(3), match.captured(4)};
    return match.hasMatch();
}

bool parseAddress(const QString& typed, AddressRange* range, QString* fault)
{
    *range = AddressRange();
    AddressParts parts;
    if (!parseAddressParts(typed, &parts))
        return fail(fault, Text::tr("not an address; write TYPENUMBER[:COUNT][@STATION] without "
                                    "spaces, such as D100:4, X17 or 32CV200@2"));
    return takeType(parts.type, range, fault) && parseNumber(parts.number, range, fault)
           && parseCount(parts.count, range, fault)
           && parseStationOption(parts.station, range, fault);
}

QString faultyText(const QString& typed, const QString& fault)
{
    QString line = QStringLiteral("%1: %2").arg(typed, fault);
    line.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    return line;
}

bool parseAddressRange(const QString& address, AddressRange* range, QString* error)
{
    QString fault;
    return parseAddress(address, range, &fault) || fail(error, faultyText(address, fault));
}

bool parseAssignment(const QString& whole, Assignment* assignment, QString* error)
{
    const auto equals = whole.indexOf(QLatin1Char('='));
    if (equals < 0)
        return fail(error,
                    faultyText(whole, Text::tr("not an assignment; write "
                                               "ADDRESS=VALUE[,VALUE...], such as D100=1234")));
    *assignment = Assignment();
    const QString address = whole.left(equals);
    if (!parseAddressRange(address, &assignment->range, error))
        return false;
    QString fault;
    return takeValues(whole.mid(equals + 1).split(QLatin1Char(',')),
                      address.contains(QLatin1Char(':')), assignment, &fault)
           || fail(error, faultyText(whole, fault));
}

QString addressText(const RegisterType* type, int address)
{
    return QString::fromLatin1(type->name) + QString::number(address, type->radix);
}

QString addressesOf(const RegisterType* type)
{
    return (type->radix == 8 ? Text::tr("%1%2 to %1%3 (octal)")
                             : Text::tr("%1%2 to %1%3 (decimal)"))
        .arg(QString::fromLatin1(type->name), QString::fromLatin1(type->lowest),
             QString::fromLatin1(type->highest));
}

QString registerTypeNames()
{
    QStringList names;
    for (const RegisterType& type : REGISTER_TYPES)
        names << QString::fromLatin1(type.name);
    return names.join(QStringLiteral(", "));
}

int highestAddress(const RegisterType* type)
{
    return QString::fromLatin1(type->highest).toInt(nullptr, type->radix);
}

qint64 lowestValue(const RegisterType* type)
{
    if (type->registerClass == BIT_CLASS)
        return 0;
    return type->registerClass == WORD_CLASS ? std::numeric_limits<qint16>::min()
                                             : std::numeric_limits<qint32>::min();
}

qint64 highestValue(const RegisterType* type)
{
    if (type->registerClass == BIT_CLASS)
        return 1;
    return type->registerClass == WORD_CLASS ? std::numeric_limits<quint16>::max()
                                             : std::numeric_limits<quint32>::max();
}

} // namespace kx
