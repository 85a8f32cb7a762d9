#include "panel/values/format_text.h"

#include "addresses/digits.h"
#include "system/translated_text.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <iterator>

namespace kx
{

namespace
{

struct KindName {
    const char* name;
    ValueKind kind;
};

const KindName KIND_NAMES[] = {
    {"u16", ValueKind::U16}, {"s16", ValueKind::S16},       {"hex", ValueKind::Hex},
    {"bin", ValueKind::Bin}, {"bcd", ValueKind::Bcd},       {"u32", ValueKind::U32},
    {"s32", ValueKind::S32}, {"float", ValueKind::Float},   {"u64", ValueKind::U64},
    {"s64", ValueKind::S64}, {"double", ValueKind::Double}, {"ascii", ValueKind::Ascii},
    {"bit", ValueKind::Bit},
};

const QLatin1Char COMMA(',');

bool refuseFormat(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

bool parseWords(const QString& digits, int* words, QString* fault)
{
    *words = hasOnlyDigits(digits, 10) ? digits.toInt() : 0;
    return (*words >= 1 && *words <= MOST_TEXT_WORDS)
           || refuseFormat(fault, Text::tr("ascii needs its registers, 1 to %1, such as ascii:8")
                                      .arg(MOST_TEXT_WORDS));
}

bool parseNumber(const QString& text, Decimal* number, QString* fault)
{
    return Decimal::parse(text, number)
           || refuseFormat(fault, Text::tr("must be a decimal number such as 12.5"));
}

bool parseBound(const QString& text, std::optional<Decimal>* bound, QString* fault)
{
    Decimal number;
    if (!parseNumber(text, &number, fault))
        return false;
    *bound = number;
    return true;
}

/// Parses one part, and says what it was when it is wrong.
using PartParser = bool (*)(const QString&, ValueFormat*, QString*);

bool parsePart(const char* name, PartParser parse, const QString& text, ValueFormat* format,
               QString* fault)
{
    QString reason;
    return parse(text, format, &reason)
           || refuseFormat(
               fault, QStringLiteral("%1 %2: %3").arg(QString::fromLatin1(name), text, reason));
}

struct Option {
    const char* name;
    PartParser parse;
};

const Option FORMAT_OPTIONS[] = {
    {"decimals", parseDecimals}, {"min", parseLowest}, {"max", parseHighest}};

bool parseOption(const QString& option, const QString& name, ValueFormat* format, QString* fault)
{
    for (const Option& row : FORMAT_OPTIONS) {
        if (name == QLatin1String(row.name))
            return parsePart(row.name, row.parse, option.section(QLatin1Char('='), 1), format,
                             fault);
    }
    return (!option.contains(QLatin1Char(' ')) && parseOrder(option, format, fault))
           || refuseFormat(fault, Text::tr("'%1' is no option of a format here; they are low or "
                                           "high, swapped, decimals=N, min=NUMBER, max=NUMBER and, "
                                           "last, unit=TEXT")
                                      .arg(option));
}

bool parseOptions(QString options, ValueFormat* format, QString* fault)
{
    QStringList given;
    while (options.startsWith(COMMA)) {
        options.remove(0, 1);
        if (options.startsWith(QLatin1String("unit="))) {
            format->unit = options.mid(5);
            return true;
        }
        const QString option = options.section(COMMA, 0, 0);
        const QString name = option.section(QLatin1Char('='), 0, 0);
        if (given.contains(name))
            return refuseFormat(fault, Text::tr("%1 is given twice").arg(name));
        given << name;
        if (!parseOption(option, name, format, fault))
            return false;
        options.remove(0, option.size());
    }
    return true;
}

QString kindText(const ValueFormat& format)
{
    if (format.bit >= 0)
        return QString(); // stands before the slash
    for (const KindName& row : KIND_NAMES) {
        if (row.kind != format.kind)
            continue;
        const QString name = QString::fromLatin1(row.name);
        return row.kind == ValueKind::Ascii ? QStringLiteral("%1:%2").arg(name).arg(format.words)
                                            : name;
    }
    return QString();
}

QString scaleText(const ValueFormat& format)
{
    QString text;
    if (format.scale.compare(Decimal(1)) != 0)
        text = QLatin1Char('*') + format.scale.text();
    if (!format.offset.isZero())
        text += QLatin1String(format.offset.isNegative() ? "" : "+") + format.offset.text();
    return text;
}

} // namespace

bool parseKind(const QString& text, ValueFormat* format, QString* fault)
{
    const QString name = text.section(QLatin1Char(':'), 0, 0);
    const bool hasWords = text.contains(QLatin1Char(':'));
    for (const KindName& row : KIND_NAMES) {
        if (name != QLatin1String(row.name) || (hasWords && row.kind != ValueKind::Ascii))
            continue;
        format->kind = row.kind;
        return row.kind != ValueKind::Ascii
               || parseWords(text.section(QLatin1Char(':'), 1), &format->words, fault);
    }
    return refuseFormat(
        fault, Text::tr("unknown format '%1'; the formats are %2").arg(text, formatNames()));
}

bool parseOrder(const QString& text, ValueFormat* format, QString* fault)
{
    for (const QString& word : text.split(QLatin1Char(' '))) {
        if (word == QLatin1String("low") && format->order != WordOrder::HighFirst)
            format->order = WordOrder::LowFirst;
        else if (word == QLatin1String("high") && format->order != WordOrder::LowFirst)
            format->order = WordOrder::HighFirst;
        else if (word == QLatin1String("swapped"))
            format->swapsBytes = true;
        else
            return refuseFormat(
                fault, Text::tr("must be low, high, swapped, 'low swapped' or 'high swapped'"));
    }
    return true;
}

bool parseScale(const QString& text, ValueFormat* format, QString* fault)
{
    if (!parseNumber(text, &format->scale, fault))
        return false;
    return (!format->scale.isZero() && format->scale.significantDigits() <= MOST_SCALE_DIGITS)
           || refuseFormat(
               fault, Text::tr("must not be 0, and have at most %1 digits").arg(MOST_SCALE_DIGITS));
}

bool parseOffset(const QString& text, ValueFormat* format, QString* fault)
{
    return parseNumber(text, &format->offset, fault);
}

bool parseDecimals(const QString& text, ValueFormat* format, QString* fault)
{
    if (!hasOnlyDigits(text, 10) || text.size() > 2 || text.toInt() > MOST_DECIMALS)
        return refuseFormat(fault, Text::tr("must be 0 to %1").arg(MOST_DECIMALS));
    format->decimals = text.toInt();
    return true;
}

bool parseLowest(const QString& text, ValueFormat* format, QString* fault)
{
    return parseBound(text, &format->lowest, fault);
}

bool parseHighest(const QString& text, ValueFormat* format, QString* fault)
{
    return parseBound(text, &format->highest, fault);
}

bool parseFormat(const QString& text, ValueFormat* format, QString* fault)
{
    // The sign of an exponent is no offset's: *1e-3.
    static const QRegularExpression pattern(
        QStringLiteral("\\A([^*+-]*)(?:\\*(-?[0-9.]+(?:[eE][-+]?[0-9]+)?))?([-+][0-9].*)?\\z"));
    const QString numbers = text.section(COMMA, 0, 0);
    const QRegularExpressionMatch match = pattern.match(numbers);
    if (text.isEmpty() || !match.hasMatch())
        return refuseFormat(fault, Text::tr("'%1' is not a format; write KIND[*SCALE][+OFFSET]"
                                            "[,OPTION]..., such as s16*0.1+5 or u32,high")
                                       .arg(text));
    return (match.captured(1).isEmpty() || parseKind(match.captured(1), format, fault))
           && (match.captured(2).isEmpty()
               || parsePart("scale", parseScale, match.captured(2), format, fault))
           && (match.captured(3).isEmpty()
               || parsePart("offset", parseOffset, match.captured(3), format, fault))
           && parseOptions(text.mid(numbers.size()), format, fault);
}

QString formatText(const ValueFormat& format)
{
    QStringList parts = {kindText(format) + scaleText(format)};
    if (format.order != WordOrder::Unset)
        parts << QString::fromLatin1(format.order == WordOrder::HighFirst ? "high" : "low");
    if (format.swapsBytes)
        parts << QStringLiteral("swapped");
    if (format.decimals >= 0)
        parts << QStringLiteral("decimals=%1").arg(format.decimals);
    if (format.lowest)
        parts << QStringLiteral("min=") + format.lowest->text();
    if (format.highest)
        parts << QStringLiteral("max=") + format.highest->text();
    if (!format.unit.isEmpty())
        parts << QStringLiteral("unit=") + format.unit;
    return parts.join(COMMA);
}

QString formatNames()
{
    QStringList names;
    for (const KindName& row : KIND_NAMES)
        names << QString::fromLatin1(row.name)
                     + QLatin1String(row.kind == ValueKind::Ascii ? ":N" : "");
    return names.join(QStringLiteral(", "));
}

} // namespace kx
