#include "panel/files/tag_assignment.h"

#include "addresses/count_fault.h"
#include "panel/files/whole_range.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <QtCore/QRegularExpression>

namespace kx
{

namespace
{

const QLatin1Char PAIR_COMMA(',');
const QLatin1Char BACKSLASH('\\');

bool refuseAssignment(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

/// The tag with the longest name that stands before an equals sign.
const Tag* findTag(const QString& typed, const QList<Tag>& tags)
{
    const Tag* found = nullptr;
    for (const Tag& tag : tags) {
        const bool isNamed = !tag.name.isEmpty() && typed.startsWith(tag.name + QLatin1Char('='));
        if (isNamed && (!found || tag.name.size() > found->name.size()))
            found = &tag;
    }
    return found;
}

/// The first that is not of a format's option, such as min=0; -1 when there is none.
int equalsOf(const QString& typed)
{
    static const QRegularExpression pattern(QStringLiteral("(?<!,decimals|,min|,max|,unit)="));
    return static_cast<int>(typed.indexOf(pattern));
}

/// At commas without a backslash in front, where texts may hold one.
QStringList splitTexts(const QString& typed)
{
    QStringList texts = {QString()};
    for (int i = 0; i < typed.size(); ++i) {
        if (typed.at(i) == PAIR_COMMA) {
            texts << QString();
            continue;
        }
        texts.last() += typed.at(i);
        if (typed.at(i) == BACKSLASH && i + 1 < typed.size())
            texts.last() += typed.at(++i);
    }
    return texts;
}

QString checkWritable(const AddressRange& range, const ValueFormat& format)
{
    const QString name = valueName(range, format, 0);
    if (!range.type->writable)
        return Text::tr("%1 is an input and cannot be written").arg(name);
    if (format.bit >= 0 && !keepsItsWords(range.type))
        return Text::tr("%1 cannot be written; the bits of %2 change by themselves between "
                        "the read and the write of the word, so write all of it")
            .arg(name, QString::fromLatin1(range.type->name));
    return QString();
}

/// Makes the range as long as there are values.
bool takeCount(int values, bool countGiven, TagAssignment* assignment, QString* fault)
{
    Tag& tag = assignment->tag;
    const int wanted = valuesIn(tag.range, tag.format);
    if (countGiven && values != wanted)
        return refuseAssignment(fault, countFault(values, wanted));
    if (countGiven)
        return true;
    tag.range.values = values;
    return coverValues(&tag.range, &tag.format, fault);
}

bool takeValues(const QString& typed, bool countGiven, TagAssignment* assignment, QString* fault)
{
    const Tag& tag = assignment->tag;
    const bool isText = tag.format.kind == ValueKind::Ascii;
    const bool isOne = isText && valuesIn(tag.range, tag.format) == 1;
    const QStringList values = isOne    ? QStringList{typed}
                               : isText ? splitTexts(typed)
                                        : typed.split(PAIR_COMMA);
    for (const QString& value : values) {
        QList<qint64> raw;
        if (!parseValue(tag.range.type, tag.format, value, &raw, fault))
            return false;
        assignment->assignment.values << raw;
    }
    return takeCount(static_cast<int>(values.size()), countGiven || isOne, assignment, fault);
}

bool takeAddress(const QString& address, TagAssignment* assignment, bool* countGiven,
                 QString* error)
{
    Tag& tag = assignment->tag;
    QString fault;
    *countGiven = address.section(QLatin1Char('/'), 0, 0).contains(QLatin1Char(':'));
    return parseValueAddress(address, &tag.range, &tag.format, &fault)
           || refuseAssignment(error, faultyText(address, fault));
}

} // namespace

bool parseTagAssignment(const QString& typed, const QList<Tag>& tags, const ValueFormat& order,
                        TagAssignment* assignment, QString* error)
{
    *assignment = TagAssignment();
    bool countGiven = true;
    const Tag* const named = findTag(typed, tags);
    const auto equals = named ? named->name.size() : equalsOf(typed);
    if (equals < 0)
        return refuseAssignment(error,
                                faultyText(typed, Text::tr("not an assignment; write "
                                                           "ADDRESS=VALUE[,VALUE...], such as "
                                                           "D100=1234")));
    if (named)
        assignment->tag = *named;
    else if (!takeAddress(typed.left(equals), assignment, &countGiven, error))
        return refuseAssignment(
            error,
            tags.isEmpty() ? *error : Text::tr("%1; nor is it the name of a tag").arg(*error));
    Tag& tag = assignment->tag;
    takeOrder(order, &tag.format);
    QString fault = checkWritable(tag.range, tag.format);
    if (!fault.isEmpty() || !takeValues(typed.mid(equals + 1), countGiven, assignment, &fault))
        return refuseAssignment(error, faultyText(typed, fault));
    assignment->assignment.range = wholeRange(tag);
    assignment->assignment.bit = tag.format.bit;
    return true;
}

QString valuesText(const TagAssignment& assignment)
{
    QStringList texts;
    for (int i = 0; i < valuesIn(assignment.tag.range, assignment.tag.format); ++i)
        texts << valueText(assignment.tag.format, rawOfValue(assignment, i));
    if (assignment.tag.format.kind == ValueKind::Ascii && texts.size() > 1)
        texts.replaceInStrings(QStringLiteral(","), QStringLiteral("\\,"));
    return texts.join(PAIR_COMMA);
}

QList<qint64> rawOfValue(const TagAssignment& assignment, int value)
{
    QList<qint64> raw = rawOfValue(assignment.assignment.values, assignment.tag.format, value);
    const int bit = assignment.tag.format.bit;
    if (bit >= 0 && !raw.isEmpty())
        raw.first() = withBit(0, bit, raw.first() != 0);
    return raw;
}

} // namespace kx
