#include "kxhost/views/registers_catalogue.h"

#include "kxhost/views/aligned_rows.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

// The driver's codes of the two lists of types.
const int BIT_TYPES = 0;
const int WORD_TYPES = 1;

enum DescriptionColumn { FORMAT, LOWEST, HIGHEST, DATA_TYPE };

QString kindOf(const QString& dataType)
{
    if (dataType == QStringLiteral("0"))
        return QStringLiteral("bit");
    return QString::fromLatin1(dataType == QStringLiteral("1") ? "word" : "32-bit");
}

void placeOnTheWire(CatalogueRow* row)
{
    AddressRange range;
    range.type = findRegisterType(row->type);
    if (!range.type)
        return;
    range.address = row->lowest.toInt(nullptr, range.type->radix);
    range.values = row->highest.toInt(nullptr, range.type->radix) - range.address + 1;
    row->isOctal = range.type->radix == 8;
    row->spans = modbusSpans(range);
    row->readFunction = readFunction(range.type);
}

QString spansText(const CatalogueRow& row)
{
    const RegisterType* const type = findRegisterType(row.type);
    return type ? modbusText(type, row.spans) : QString();
}

} // namespace

QList<CatalogueRow> askForCatalogue(const DriverEntryPoints& entryPoints)
{
    QList<QString> names;
    entryPoints.getRegListByType(BIT_TYPES, names);
    entryPoints.getRegListByType(WORD_TYPES, names);
    QList<CatalogueRow> rows;
    for (const QString& name : names) {
        QList<QString> description;
        if (entryPoints.getRegDiscription(name, description) != 1)
            continue;
        CatalogueRow row;
        row.type = name;
        row.format = description.value(FORMAT);
        row.lowest = description.value(LOWEST);
        row.highest = description.value(HIGHEST);
        row.kind = kindOf(description.value(DATA_TYPE));
        placeOnTheWire(&row);
        rows << row;
    }
    return rows;
}

QStringList catalogueRows(const QList<CatalogueRow>& rows)
{
    QList<QStringList> table = {{QStringLiteral("TYPE"), QStringLiteral("KIND"),
                                 QStringLiteral("LOWEST"), QStringLiteral("HIGHEST"),
                                 QStringLiteral("DIGITS"), QStringLiteral("FORMAT"),
                                 QStringLiteral("FUNCTION"), QStringLiteral("MODBUS")}};
    for (const CatalogueRow& row : rows)
        table << QStringList{row.type,
                             row.kind,
                             row.type + row.lowest,
                             row.type + row.highest,
                             QString::fromLatin1(row.isOctal ? "octal" : "decimal"),
                             row.format,
                             QString::number(row.readFunction),
                             spansText(row)};
    return alignedRows(table);
}

QJsonObject catalogueJson(const CatalogueRow& row)
{
    return QJsonObject{{QStringLiteral("type"), row.type},
                       {QStringLiteral("kind"), row.kind},
                       {QStringLiteral("lowest"), row.lowest},
                       {QStringLiteral("highest"), row.highest},
                       {QStringLiteral("radix"), row.isOctal ? 8 : 10},
                       {QStringLiteral("format"), row.format},
                       {QStringLiteral("function"), row.readFunction},
                       {QStringLiteral("modbus"), modbusJson(row.spans)}};
}

} // namespace kx
