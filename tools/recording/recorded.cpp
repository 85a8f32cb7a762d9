#include "recording/recorded.h"

#include "panel/values/decimal.h"
#include "system/translated_text.h"

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
    {GapReason::NotYetRead, QT_TRANSLATE_NOOP("kx", "not yet read")},
    {GapReason::NotRead, QT_TRANSLATE_NOOP("kx", "not read")},
    {GapReason::NoAnswer, QT_TRANSLATE_NOOP("kx", "no answer")},
    {GapReason::Refused, QT_TRANSLATE_NOOP("kx", "refused")},
    {GapReason::LineLost, QT_TRANSLATE_NOOP("kx", "line lost")},
    {GapReason::RecorderStopped, QT_TRANSLATE_NOOP("kx", "recorder stopped")},
};

const char* textOf(GapReason reason)
{
    for (const ReasonText& row : REASONS) {
        if (row.reason == reason)
            return row.text;
    }
    return "";
}

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
    return forPrograms(textOf(reason));
}

QString gapWords(GapReason reason)
{
    return forPeople(textOf(reason));
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
