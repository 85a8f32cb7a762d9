#include "kxhost/record/replay_text.h"

#include "kxhost/views/watch/printed_views.h"
#include "panel/text/json_time.h"
#include "panel/values/format_text.h"
#include "panel/values/value_codec.h"

namespace kx
{

namespace
{

QDateTime timeOf(const RecordedEvent& event)
{
    return QDateTime::fromMSecsSinceEpoch(event.time);
}

/// As a number where JSON holds it exactly.
QJsonValue jsonValue(const RecordedValue& value)
{
    double number = 0;
    return value.isDouble(&number) ? QJsonValue(number) : QJsonValue(value.text);
}

/// Without its format.
QString placeOf(const RecordedTag& tag)
{
    return tag.address.section(QLatin1Char('/'), 0, 0);
}

/// As a watch shows it: hex and bin are recorded in decimal.
RecordedValue shownValue(const RecordedTag& tag, const RecordedValue& value)
{
    ValueFormat format;
    QString fault;
    bool isWord = false;
    const ushort word = value.text.toUShort(&isWord);
    const bool isFormat = parseFormat(tag.address.section(QLatin1Char('/'), 1), &format, &fault);
    if (!isFormat || !isWord || (format.kind != ValueKind::Hex && format.kind != ValueKind::Bin))
        return value;
    format.swapsBytes = false; // which has been done
    return {valueText(format, {word}), false};
}

QString valueOf(const RecordedTag& tag, const RecordedEvent& event)
{
    if (event.isGap)
        return gapText(event.reason);
    const QString text = shownValue(tag, event.value).text;
    return tag.unit.isEmpty() ? text : text + QLatin1Char(' ') + tag.unit;
}

} // namespace

QString replayRow(const RecordedTag& tag, const RecordedEvent& event)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(timeOf(event).toString(Qt::ISODateWithMs), QString::number(tag.station),
             withName(placeOf(tag), tag.name), valueOf(tag, event));
}

QJsonObject replayJson(const RecordedTag& tag, const RecordedEvent& event)
{
    QJsonObject json;
    json[QLatin1String("event")] = QLatin1String(event.isGap ? "failure" : "change");
    json[QLatin1String("time")] = jsonTime(timeOf(event));
    json[QLatin1String("station")] = tag.station;
    json[QLatin1String("address")] = placeOf(tag);
    const QString format = tag.address.section(QLatin1Char('/'), 1);
    if (!format.isEmpty())
        json[QLatin1String("format")] = format;
    if (!tag.name.isEmpty())
        json[QLatin1String("name")] = tag.name;
    if (!tag.unit.isEmpty())
        json[QLatin1String("unit")] = tag.unit;
    if (event.isGap)
        json[QLatin1String("state")] = gapText(event.reason);
    else
        json[QLatin1String("value")] = jsonValue(shownValue(tag, event.value));
    return json;
}

bool ReplayFilter::isNews(const RecordedEvent& event)
{
    RecordedEvent& last = m_last[event.tag];
    const bool isFirst = last.time == 0;
    const bool isSame = last.isGap == event.isGap
                        && (event.isGap ? last.reason == event.reason : last.value == event.value);
    last = event;
    return isFirst || !isSame;
}

} // namespace kx
