#include "panel/sequence/step_parser.h"

#include "panel/text/counted.h"
#include "panel/text/duration.h"
#include "panel/values/value_address.h"

namespace kx
{

namespace
{

const qint64 LONGEST_TIME = 86400000000; // microseconds: a day

bool isEquality(Comparison comparison)
{
    return comparison == Comparison::Equal || comparison == Comparison::NotEqual;
}

} // namespace

StepParser::StepParser(const QHash<QString, Tag>* tags, const SequenceContext& context,
                       const QString& line)
    : m_tags(tags), m_context(context), m_reader(line)
{
}

bool StepParser::fail(int column, const QString& fault)
{
    m_column = column;
    m_fault = fault;
    return false;
}

bool StepParser::parse(Step* step)
{
    const LinePart word = m_reader.takeWord();
    step->text = word.text;
    if (word.text == QLatin1String("write"))
        return parseWrite(step);
    if (word.text == QLatin1String("wait"))
        return parseWait(step);
    if (word.text == QLatin1String("expect"))
        return parseExpect(step);
    step->kind = StepKind::Pause;
    if (word.text == QLatin1String("pause"))
        return parseTime("pause", &step->time);
    return fail(word.column,
                QStringLiteral("'%1' is no step; a line begins with write, wait, expect, pause, "
                               "finally or tags")
                    .arg(word.text));
}

bool StepParser::parseWrite(Step* step)
{
    step->kind = StepKind::Write;
    if (!parseOperand(&step->tag))
        return false;
    const int column = m_reader.column();
    QString fault;
    if (!m_reader.takes("="))
        return fail(column, QStringLiteral("a value must follow: write NAME = VALUE"));
    if (!isWritable(step->tag, &fault))
        return fail(column, fault);
    QStringList typed;
    const int valueColumn = m_reader.column();
    do {
        LinePart value;
        if (!takeValue(&value))
            return false;
        typed << value.text;
    } while (m_reader.takes(","));
    if (!parseValues(step->tag, typed, &step->values, &fault))
        return fail(valueColumn, fault);
    return isAtEnd();
}

bool StepParser::parseWait(Step* step)
{
    step->kind = StepKind::Wait;
    if (!parseOperand(&step->tag) || !parseCondition(step->tag, &step->condition))
        return false;
    const LinePart word = m_reader.takeWord();
    if (word.text != QLatin1String("within"))
        return fail(word.column, QStringLiteral("a wait ends with its longest time: within 10s"));
    return parseTime("within", &step->time);
}

bool StepParser::parseExpect(Step* step)
{
    step->kind = StepKind::Expect;
    return parseOperand(&step->tag) && parseCondition(step->tag, &step->condition) && isAtEnd();
}

// A number alone is refused: some would mean seconds, others milliseconds.
bool StepParser::parseTime(const char* what, qint64* microseconds)
{
    const LinePart time = m_reader.takeRest();
    const bool hasUnit = !time.text.isEmpty() && time.text.back().isLetter();
    if (hasUnit && parseDuration(time.text, LONGEST_TIME, microseconds) && *microseconds > 0)
        return true;
    return fail(time.column, QStringLiteral("%1 %2: must be a time of at most a day with its unit, "
                                            "such as 200ms, 10s or 5min")
                                 .arg(QLatin1String(what), time.text));
}

bool StepParser::parseOperand(Tag* tag)
{
    LinePart name;
    if (!m_reader.takeName(&name, &m_fault))
        return fail(name.column, m_fault);
    if (name.text.isEmpty())
        return fail(name.column, QStringLiteral("the name of a tag, or an address, must follow"));
    if (!findOperand(name, tag))
        return false;
    if (tag->range.station < 0)
        tag->range.station = m_context.station;
    takeOrder(m_context.order, &tag->format);
    QString fault;
    return fitsRequest(*tag, m_context.maxWords, &fault) || fail(name.column, fault);
}

bool StepParser::findOperand(const LinePart& name, Tag* tag)
{
    const auto found = m_tags->constFind(name.text);
    const bool isTag = found != m_tags->constEnd();
    if (name.isQuoted && !isTag)
        return fail(name.column, QStringLiteral("no tag is named '%1'").arg(name.text));
    if (isTag)
        *tag = found.value();
    if (name.isQuoted)
        return true;
    Tag typed;
    QString fault;
    const bool isAddress = parseValueAddress(name.text, &typed.range, &typed.format, &fault);
    if (isTag && isAddress)
        return fail(name.column,
                    QStringLiteral("%1 is an address, and the name of the tag at %2; write \"%1\" "
                                   "in quotes for the tag, or the address with its @STATION")
                        .arg(name.text, valueAddressText(tag->range, tag->format)));
    if (!isTag)
        *tag = typed;
    return isTag || isAddress
           || fail(name.column,
                   QStringLiteral("'%1' is no tag, and as an address %2").arg(name.text, fault));
}

bool StepParser::parseCondition(const Tag& tag, Condition* condition)
{
    const int values = valuesIn(tag.range, tag.format);
    const int column = m_reader.column();
    if (values != 1)
        return fail(column, QStringLiteral("%1 holds %2 values; compare one of them")
                                .arg(operandText(tag), QString::number(values)));
    QString comparison = m_reader.takeComparison();
    if (comparison.isEmpty())
        comparison = m_reader.takeWord().text;
    if (!comparisonOf(comparison, &condition->comparison))
        return fail(column, QStringLiteral("a comparison must follow: = != < <= > >= or in 1..5"));
    condition->text = comparison + QLatin1Char(' ');
    if (!isEquality(condition->comparison) && !isNumeric(tag.format))
        return fail(
            column,
            QStringLiteral("%1 is not a number; compare it with = or !=").arg(operandText(tag)));
    return parseComparison(tag, condition);
}

bool StepParser::parseComparison(const Tag& tag, Condition* condition)
{
    LinePart value;
    if (!takeValue(&value))
        return false;
    condition->text += value.isQuoted ? QStringLiteral("\"%1\"").arg(value.text) : value.text;
    if (condition->comparison == Comparison::Within)
        return parseRange(value, condition);
    if (m_reader.takes("+-"))
        return parseTolerance(tag, value, condition);
    if (!isEquality(condition->comparison))
        return takeNumber(value, &condition->low);
    QString fault;
    return parseExpected(tag, value.text, &condition->shown, &fault) || fail(value.column, fault);
}

// What stands behind the first value of "in 1..5".
bool StepParser::parseRange(const LinePart& first, Condition* condition)
{
    const int column = m_reader.column();
    LinePart last;
    if (!m_reader.takes(".."))
        return fail(column, QStringLiteral("the highest value must follow: in 1..5"));
    if (!takeValue(&last) || !takeNumber(first, &condition->low)
        || !takeNumber(last, &condition->high))
        return false;
    condition->text += QLatin1String("..") + last.text;
    return condition->low.compare(condition->high) <= 0
           || fail(first.column,
                   QStringLiteral("nothing is in %1..%2; the lower value stands first")
                       .arg(first.text, last.text));
}

// What stands behind "= 7 +-".
bool StepParser::parseTolerance(const Tag& tag, const LinePart& middle, Condition* condition)
{
    LinePart tolerance;
    Decimal number;
    Decimal distance;
    if (condition->comparison != Comparison::Equal)
        return fail(middle.column, QStringLiteral("+- goes with = alone"));
    if (!takeValue(&tolerance) || !takeNumber(middle, &number) || !takeNumber(tolerance, &distance))
        return false;
    if (!isNumeric(tag.format) || distance.isNegative())
        return fail(
            tolerance.column,
            isNumeric(tag.format)
                ? QStringLiteral("a tolerance is not negative")
                : QStringLiteral("%1 is not a number, and has no tolerance").arg(operandText(tag)));
    condition->comparison = Comparison::Within;
    condition->text += QLatin1String(" +- ") + tolerance.text;
    condition->low = number.minus(distance);
    condition->high = number.plus(distance);
    return true;
}

bool StepParser::takeValue(LinePart* value)
{
    if (!m_reader.takeValue(value, &m_fault))
        return fail(value->column, m_fault);
    return value->isQuoted || !value->text.isEmpty()
           || fail(value->column, QStringLiteral("a value must follow"));
}

bool StepParser::takeNumber(const LinePart& value, Decimal* number)
{
    return (!value.isQuoted && Decimal::parse(value.text, number))
           || fail(value.column, QStringLiteral("'%1' is not a decimal number").arg(value.text));
}

bool StepParser::isAtEnd()
{
    const LinePart rest = m_reader.takeRest();
    return rest.text.isEmpty()
           || fail(rest.column, QStringLiteral("'%1' is too much on this line").arg(rest.text));
}

} // namespace kx
