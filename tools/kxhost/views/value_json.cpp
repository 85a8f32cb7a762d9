#include "kxhost/views/value_json.h"

#include "panel/values/format_text.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"

#include <QtCore/QJsonArray>

namespace kx
{

QString withUnit(const ValueFormat& format, const QString& text)
{
    return format.unit.isEmpty() ? text : text + QLatin1Char(' ') + format.unit;
}

QJsonObject tagJson(const Tag& tag)
{
    QJsonObject json;
    json[QLatin1String("station")] = tag.range.station;
    json[QLatin1String("address")] = valueName(tag.range, tag.format, 0);
    if (!tag.name.isEmpty())
        json[QLatin1String("name")] = tag.name;
    if (!tag.format.unit.isEmpty())
        json[QLatin1String("unit")] = tag.format.unit;
    ValueFormat format = tag.format;
    format.unit.clear();
    const QString text = formatText(format);
    if (!text.isEmpty())
        json[QLatin1String("format")] = text;
    return json;
}

void addValues(const Tag& tag, const QList<qint64>& raw, QJsonObject* json)
{
    QJsonArray values;
    for (int i = 0; i < valuesIn(tag.range, tag.format); ++i)
        values.append(valueJson(tag.format, rawOfValue(raw, tag.format, i)));
    (*json)[QLatin1String("values")] = values;
    const bool isPlain = formatText(tag.format).isEmpty() && tag.format.bit < 0;
    if (isPlain)
        return;
    QJsonArray registers;
    for (const qint64 value : raw)
        registers.append(value);
    (*json)[QLatin1String("raw")] = registers;
}

} // namespace kx
