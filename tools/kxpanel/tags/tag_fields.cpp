#include "kxpanel/tags/tag_fields.h"

#include "panel/files/tag_row.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

namespace kxpanel
{

namespace
{

QString kindText(const kx::ValueFormat& format)
{
    kx::ValueFormat kind;
    kind.kind = format.bit < 0 ? format.kind : kx::ValueKind::Plain; // the address names the bit
    kind.words = format.words;
    return kx::formatText(kind);
}

QString orderText(const kx::ValueFormat& format)
{
    QStringList words;
    if (format.order != kx::WordOrder::Unset)
        words << QString::fromLatin1(format.order == kx::WordOrder::HighFirst ? "high" : "low");
    if (format.swapsBytes)
        words << QStringLiteral("swapped");
    return words.join(QLatin1Char(' '));
}

QString textUnlessUsual(const kx::Decimal& number, int usual)
{
    return number.compare(kx::Decimal(usual)) == 0 ? QString() : number.text();
}

QString boundText(const std::optional<kx::Decimal>& bound)
{
    return bound ? bound->text() : QString();
}

QString countText(const kx::Tag& tag)
{
    const int values = kx::valuesIn(tag.range, tag.format);
    return values == 1 ? QString() : QString::number(values);
}

} // namespace

QStringList tagFieldNames()
{
    QStringList names;
    for (const kx::CsvColumn& column : kx::tagColumns())
        names << QString::fromLatin1(column.name);
    return names;
}

QStringList tagFields(const kx::Tag& tag)
{
    const kx::ValueFormat& format = tag.format;
    const QString address = kx::valueName(tag.range, format, 0);
    return {
        tag.name.isEmpty() ? address : tag.name,
        tag.range.station < 0 ? QString() : QString::number(tag.range.station),
        address,
        countText(tag),
        tag.interval < 0 ? QString() : QStringLiteral("%1ms").arg(tag.interval),
        kindText(format),
        orderText(format),
        textUnlessUsual(format.scale, 1),
        textUnlessUsual(format.offset, 0),
        format.unit,
        format.decimals < 0 ? QString() : QString::number(format.decimals),
        boundText(format.lowest),
        boundText(format.highest),
        tag.comment,
    };
}

kx::Tag tagOfFields(const QStringList& fields, QStringList* faults)
{
    kx::CsvRow row;
    for (const QString& text : fields) {
        kx::CsvField field;
        field.text = text;
        row.fields << field;
    }
    return kx::tagOfRow(row, faults);
}

QString nameWithStation(const kx::Tag& tag)
{
    return QStringLiteral("%1@%2").arg(kx::valueName(tag.range, tag.format, 0),
                                       QString::number(tag.range.station));
}

void dropAddressName(kx::Tag* tag)
{
    if (tag->range.type
        && (tag->name == kx::valueName(tag->range, tag->format, 0)
            || tag->name == nameWithStation(*tag)))
        tag->name.clear();
}

} // namespace kxpanel
