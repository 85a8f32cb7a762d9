#include "recording/recorded.h"

#include "panel/values/decimal.h"

#include <QtCore/QLocale>

namespace kx
{

namespace
{

struct ReasonText {
    GapReason reason;
    const char* text;
};

const ReasonText REASONS[] = {
    {GapReason::NotYetRead, "not yet read"}, {GapReason::NotRead, "not read"},
    {GapReason::NoAnswer, "no answer"},      {GapReason::Refused, "refused"},
    {GapReason::LineLost, "line lost"},      {GapReason::RecorderStopped, "recorder stopped"},
};

} // namespace

bool RecordedTag::operator==(const RecordedTag& other) const
{
    return name == other.name && station == other.station && address == other.address
           && unit == other.unit;
}

bool RecordedValue::isDouble(double* number) const
{
    *number = text.toDouble();
    const QString kept = QString::number(*number, 'g', QLocale::FloatingPointShortest);
    Decimal recorded;
    Decimal nearest;
    return isNumber && Decimal::parse(text, &recorded) && Decimal::parse(kept, &nearest)
           && recorded.compare(nearest) == 0;
}

bool RecordedValue::operator==(const RecordedValue& other) const
{
    return text == other.text && isNumber == other.isNumber;
}

QString gapText(GapReason reason)
{
    for (const ReasonText& row : REASONS) {
        if (row.reason == reason)
            return QString::fromLatin1(row.text);
    }
    return QString();
}

bool parseGapText(const QString& text, GapReason* reason)
{
    for (const ReasonText& row : REASONS) {
        if (text == QLatin1String(row.text)) {
            *reason = row.reason;
            return true;
        }
    }
    return false;
}

} // namespace kx
