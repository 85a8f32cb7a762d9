#include "kxhost/record/recorded_entries.h"

#include "kxhost/views/entry_text.h"
#include "panel/values/format_text.h"
#include "panel/values/value_codec.h"

namespace kx
{

namespace
{

/// What tells one value of an address from another; how many digits are shown does not.
QString meaningText(ValueFormat format)
{
    format.unit.clear();
    format.decimals = -1;
    format.lowest.reset();
    format.highest.reset();
    const QString text = formatText(format);
    return text.isEmpty() ? text : QLatin1Char('/') + text;
}

} // namespace

QList<RecordedTag> recordedTags(const QVector<WatchEntry>& entries)
{
    QList<RecordedTag> tags;
    for (const WatchEntry& entry : entries)
        tags << RecordedTag{entry.name, entry.station,
                            entryAddress(entry) + meaningText(entry.valueFormat()),
                            entry.valueFormat().unit};
    return tags;
}

RecordedValue recordedValue(const WatchEntry& entry)
{
    const ValueFormat& format = entry.valueFormat();
    const QString text = valueText(format, entry.raw());
    double number = 0;
    Decimal decimal;
    if (!valueNumber(format, entry.raw(), &number))
        return {text, false};
    if (format.kind == ValueKind::Hex || format.kind == ValueKind::Bin)
        return {QString::number(static_cast<int>(number)), true};
    return {text, Decimal::parse(text, &decimal)}; // infinity is text
}

GapReason gapReason(const WatchEntry& entry)
{
    if (entry.state == WatchState::Refused)
        return GapReason::Refused;
    return entry.state == WatchState::NoAnswer ? GapReason::NoAnswer : GapReason::NotYetRead;
}

} // namespace kx
