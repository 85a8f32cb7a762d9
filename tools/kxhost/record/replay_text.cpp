#include "kxhost/record/replay_text.h"

#include "kxhost/views/watch/printed_views.h"
#include "panel/text/json_time.h"
#include "panel/values/decimal.h"
#include "panel/values/format_text.h"
#include "panel/values/value_codec.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <cmath>

namespace kx
{

namespace
{

QDateTime timeOf(const RecordedEvent& event)
{
    return QDateTime::fromMSecsSinceEpoch(event.time);
}

/// Without its format.
QString placeOf(const RecordedTag& tag)
{
    return tag.address.section(QLatin1Char('/'), 0, 0);
}

/// False of a format that this program does not know.
bool takeFormat(const RecordedTag& tag, ValueFormat* format)
{
    QString fault;
    return parseFormat(tag.address.section(QLatin1Char('/'), 1), format, &fault);
}

/// A number or text, as valueJson() decides: many digits are for floats alone, and JSON may lose
/// the sign of -0.
QJsonValue jsonValue(const RecordedTag& tag, const RecordedValue& value)
{
    ValueFormat format;
    Decimal exact;
    double number = 0;
    if (!value.isDouble(&number) || !Decimal::parse(value.text, &exact)
        || (number == 0 && std::signbit(number)))
        return value.text;
    const bool isFloat = takeFormat(tag, &format) && isFloating(format);
    return isFloat || exact.significantDigits() <= EXACT_DIGITS ? QJsonValue(number)
                                                                : QJsonValue(value.text);
}

/// As a watch shows it: hex and bin are recorded in decimal.
RecordedValue shownValue(const RecordedTag& tag, const RecordedValue& value)
{
    ValueFormat format;
    bool isWord = false;
    const ushort word = value.text.toUShort(&isWord);
    if (!takeFormat(tag, &format) || !isWord
        || (format.kind != ValueKind::Hex && format.kind != ValueKind::Bin))
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

QStringList replayPlaces(const QList<RecordedTag>& tags)
{
    QHash<QString, QSet<QString>> formats; // by station and address
    const auto key = [](const RecordedTag& tag) {
        return QString::number(tag.station) + QLatin1Char(' ') + placeOf(tag);
    };
    for (const RecordedTag& tag : tags)
        formats[key(tag)].insert(tag.address);
    QStringList places;
    for (const RecordedTag& tag : tags)
        places << (formats.value(key(tag)).size() > 1 ? tag.address : placeOf(tag));
    return places;
}

QString replayRow(const RecordedTag& tag, const QString& place, const RecordedEvent& event)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(timeOf(event).toString(Qt::ISODateWithMs), QString::number(tag.station),
             withName(place, tag.name), valueOf(tag, event));
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
        json[QLatin1String("value")] = jsonValue(tag, shownValue(tag, event.value));
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
