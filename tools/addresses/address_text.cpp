#include "addresses/address_text.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <limits>

namespace
{

const int LOWEST_STATION = 1;
const int HIGHEST_STATION = 247;

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

bool fail(QString* error, const QString& message)
{
    *error = message;
    error->replace(QLatin1Char('\n'), text("\\n"));
    return false;
}

bool takeType(const QString& name, const QString& whole, AddressRange* range, QString* error)
{
    range->type = findRegisterType(name);
    if (range->type)
        return true;
    return fail(error, text("%1: unknown register type '%2'; the types are %3")
                           .arg(whole, name, registerTypeNames()));
}

// Digits only, unlike QString's conversion, which takes signs, spaces and prefixes.
bool hasOnlyDigits(const QString& digits, int radix)
{
    for (const QChar& digit : digits) {
        const auto value = text("0123456789abcdef").indexOf(digit.toLower());
        if (value < 0 || value >= radix)
            return false;
    }
    return !digits.isEmpty();
}

// The number, or the highest int when it is larger than that.
int numberOf(const QString& digits, int radix)
{
    bool fits = false;
    const int number = digits.toInt(&fits, radix);
    return fits ? number : std::numeric_limits<int>::max();
}

bool takeAddress(const QString& digits, const QString& whole, AddressRange* range, QString* error)
{
    if (!hasOnlyDigits(digits, range->type->radix))
        return fail(error, text("%1: '%2' is not %3 number; the addresses are %4")
                               .arg(whole, digits,
                                    text(range->type->radix == 8 ? "an octal" : "a decimal"),
                                    addressesOf(range->type)));
    range->address = numberOf(digits, range->type->radix);
    if (range->address < range->type->lowestAddress || range->address > highestAddress(range->type))
        return fail(
            error,
            text("%1: out of range; the addresses are %2").arg(whole, addressesOf(range->type)));
    return true;
}

bool takeCount(const QString& digits, const QString& whole, AddressRange* range, QString* error)
{
    if (digits.isNull())
        return true;
    range->values = hasOnlyDigits(digits, 10) ? numberOf(digits, 10) : 0;
    if (range->values < 1)
        return fail(error, text("%1: the count must be 1 or more").arg(whole));
    if (range->values - 1 > highestAddress(range->type) - range->address)
        return fail(error, text("%1: %2 values run past the last address; the addresses are %3")
                               .arg(whole, digits, addressesOf(range->type)));
    return true;
}

bool takeStation(const QString& digits, const QString& whole, AddressRange* range, QString* error)
{
    if (digits.isNull())
        return true;
    range->station = hasOnlyDigits(digits, 10) ? numberOf(digits, 10) : 0;
    if (range->station >= LOWEST_STATION && range->station <= HIGHEST_STATION)
        return true;
    return fail(error,
                text("%1: the station must be %2 to %3")
                    .arg(whole, QString::number(LOWEST_STATION), QString::number(HIGHEST_STATION)));
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

bool takeValue(const QString& digits, const QString& whole, Assignment* assignment, QString* error)
{
    const bool isHex = digits.startsWith(text("0x"), Qt::CaseInsensitive);
    const bool isNegative = digits.startsWith(QLatin1Char('-'));
    const int radix = isHex ? 16 : 10;
    if (!hasOnlyDigits(digits.mid(isHex ? 2 : isNegative ? 1 : 0), radix))
        return fail(error,
                    text("%1: '%2' is not a decimal or 0x hexadecimal number").arg(whole, digits));
    bool fits = false;
    const qint64 value = digits.toLongLong(&fits, radix);
    const RegisterType* const type = assignment->range.type;
    if (!fits || value < lowestValue(type) || value > highestValue(type))
        return fail(error,
                    text("%1: %2 does not fit; %3 takes %4 to %5")
                        .arg(whole, digits, text(type->name), QString::number(lowestValue(type)),
                             QString::number(highestValue(type))));
    assignment->values << value;
    return true;
}

} // namespace

bool parseAddressRange(const QString& address, AddressRange* range, QString* error)
{
    static const QRegularExpression pattern(
        text("\\A((?:32)?[A-Za-z]+)([^:@]*)(?::([^@]*))?(?:@(.*))?\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch parts = pattern.match(address);
    if (!parts.hasMatch())
        return fail(error, text("%1: not an address; write TYPENUMBER[:COUNT][@STATION] without "
                                "spaces, such as D100:4, X17 or 32CV200@2")
                               .arg(address));
    *range = AddressRange();
    return takeType(parts.captured(1), address, range, error)
           && takeAddress(parts.captured(2), address, range, error)
           && takeCount(parts.captured(3), address, range, error)
           && takeStation(parts.captured(4), address, range, error);
}

bool parseAssignment(const QString& whole, Assignment* assignment, QString* error)
{
    const auto equals = whole.indexOf(QLatin1Char('='));
    if (equals < 0)
        return fail(error, text("%1: not an assignment; write ADDRESS=VALUE[,VALUE...], such as "
                                "D100=1234")
                               .arg(whole));
    *assignment = Assignment();
    const QString address = whole.left(equals);
    if (!parseAddressRange(address, &assignment->range, error))
        return false;
    const QStringList values = whole.mid(equals + 1).split(QLatin1Char(','));
    for (const QString& value : values) {
        if (!takeValue(value, whole, assignment, error))
            return false;
    }
    const int count = static_cast<int>(assignment->values.size());
    const bool countGiven = address.contains(QLatin1Char(':'));
    if (countGiven && count != assignment->range.values)
        return fail(error, text("%1: %2 values for a count of %3")
                               .arg(whole, QString::number(count),
                                    QString::number(assignment->range.values)));
    return takeCount(QString::number(count), whole, &assignment->range, error);
}

QString addressText(const RegisterType* type, int address)
{
    return text(type->name) + QString::number(address, type->radix);
}

QString addressesOf(const RegisterType* type)
{
    return text("%1%2 to %1%3 (%4)")
        .arg(text(type->name), text(type->lowest), text(type->highest),
             text(type->radix == 8 ? "octal" : "decimal"));
}

QString registerTypeNames()
{
    QStringList names;
    for (const RegisterType& type : REGISTER_TYPES)
        names << text(type.name);
    return names.join(text(", "));
}

int highestAddress(const RegisterType* type)
{
    return text(type->highest).toInt(nullptr, type->radix);
}
