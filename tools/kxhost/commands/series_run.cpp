#include "kxhost/commands/series_run.h"

#include "kxhost/views/aligned_rows.h"
#include "kxhost/views/modbus_json.h"
#include "panel/text/counted.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const int SOME_CLAMPED = 2; // the driver's result

SeriesPlace placeOfType(const RegisterType* type, qint64 asked, int result)
{
    if (result == SOME_CLAMPED && asked > highestAddress(type))
        return SeriesPlace::Clamped;
    return asked < type->lowestAddress ? SeriesPlace::BelowLowest : SeriesPlace::AsAsked;
}

QList<ModbusSpan> spansOf(const RegisterType* type, const SeriesRow& row)
{
    AddressRange range;
    range.type = type;
    range.address = row.number;
    return modbusSpans(range);
}

int countOfPlace(const Series& series, SeriesPlace place)
{
    int count = 0;
    for (const SeriesRow& row : series.rows)
        count += row.place == place ? 1 : 0;
    return count;
}

const char* placeName(SeriesPlace place)
{
    switch (place) {
    case SeriesPlace::Clamped:
        return "clamped";
    case SeriesPlace::BelowLowest:
        return "below the lowest";
    default:
        return "";
    }
}

} // namespace

Series askForSeries(const DriverEntryPoints& entryPoints, const AddressRange& start, int count,
                    int step)
{
    QVector<QString> texts;
    QVector<int> numbers;
    const int result = entryPoints.multiCopy(QString::fromLatin1(start.type->name), start.address,
                                             count, step, texts, numbers);
    Series series;
    series.type = start.type;
    for (int i = 0; i < static_cast<int>(numbers.size()); ++i) {
        const qint64 asked = start.address + qint64(i) * step;
        series.rows << SeriesRow{texts[i], numbers[i], placeOfType(start.type, asked, result)};
    }
    return series;
}

QStringList seriesRows(const Series& series)
{
    QList<QStringList> rows;
    for (const SeriesRow& row : series.rows) {
        const bool exists = row.place != SeriesPlace::BelowLowest;
        rows << QStringList{QString::fromLatin1(series.type->name) + row.digits,
                            QStringLiteral("number %1").arg(row.number),
                            exists ? modbusText(series.type, spansOf(series.type, row)) : QString(),
                            QString::fromLatin1(placeName(row.place))};
    }
    return alignedRows(rows);
}

QJsonObject seriesJson(const RegisterType* type, const SeriesRow& row)
{
    QJsonObject json{{QStringLiteral("address"), QString::fromLatin1(type->name) + row.digits},
                     {QStringLiteral("number"), row.number},
                     {QStringLiteral("clamped"), row.place == SeriesPlace::Clamped},
                     {QStringLiteral("belowLowest"), row.place == SeriesPlace::BelowLowest}};
    if (row.place != SeriesPlace::BelowLowest)
        json[QStringLiteral("modbus")] = modbusJson(spansOf(type, row));
    return json;
}

QString seriesNotice(const Series& series)
{
    const QString type = QString::fromLatin1(series.type->name);
    const QString addresses = counted(series.rows.size(), "address", "addresses");
    QStringList notices;
    if (const int clamped = countOfPlace(series, SeriesPlace::Clamped))
        notices << QStringLiteral("past %1 and replaced by it: %2 of %3")
                       .arg(type + QString::fromLatin1(series.type->highest),
                            QString::number(clamped), addresses);
    if (const int below = countOfPlace(series, SeriesPlace::BelowLowest))
        notices << QStringLiteral("below %1, the lowest: %2 of %3")
                       .arg(type + QString::fromLatin1(series.type->lowest), QString::number(below),
                            addresses);
    return notices.join(QStringLiteral("; "));
}

} // namespace kx
