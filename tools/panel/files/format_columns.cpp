#include "panel/files/format_columns.h"

#include "panel/values/format_text.h"

namespace kx
{

namespace
{

enum Column { FORMAT, ORDER, SCALE, OFFSET, UNIT, DECIMALS, MIN, MAX };

struct FormatColumn {
    Column column;
    bool (*parse)(const QString& text, ValueFormat* format, QString* fault);
};

/// In this order: decimals are checked with the scale, bounds with each other.
const FormatColumn PARTS[] = {
    {FORMAT, parseKind},       {ORDER, parseOrder}, {SCALE, parseScale}, {OFFSET, parseOffset},
    {DECIMALS, parseDecimals}, {MIN, parseLowest},  {MAX, parseHighest},
};

} // namespace

const QList<CsvColumn>& formatColumns()
{
    static const QList<CsvColumn> columns = {
        {"format", false}, {"order", false},    {"scale", false}, {"offset", false},
        {"unit", false},   {"decimals", false}, {"min", false},   {"max", false}};
    return columns;
}

QString columnFault(const CsvColumn& column, const QString& text, const QString& fault)
{
    return QStringLiteral("%1 %2: %3").arg(QLatin1String(column.name), text, fault);
}

void takeFormatColumns(const CsvRow& row, int first, const RegisterType* type, ValueFormat* format,
                       QStringList* faults)
{
    for (const FormatColumn& part : PARTS) {
        const QString text = row.fields.at(first + part.column).text;
        if (text.isEmpty())
            continue;
        ValueFormat taken = *format;
        QString fault;
        if (part.parse(text, &taken, &fault) && (!type || fitFormat(type, &taken, &fault)))
            *format = taken;
        else
            *faults << columnFault(formatColumns().at(part.column), text, fault);
    }
    format->unit = row.fields.at(first + UNIT).text;
}

} // namespace kx
