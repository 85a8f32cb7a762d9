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

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QString kindOf(const QString& dataType)
{
    if (dataType == text("0"))
        return text("bit");
    return text(dataType == text("1") ? "word" : "32-bit");
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

QStringList catalogueLines(const QList<CatalogueRow>& rows)
{
    QList<QStringList> table = {{text("TYPE"), text("KIND"), text("LOWEST"), text("HIGHEST"),
                                 text("DIGITS"), text("FORMAT"), text("FUNCTION"), text("MODBUS")}};
    for (const CatalogueRow& row : rows)
        table << QStringList{row.type,
                             row.kind,
                             row.type + row.lowest,
                             row.type + row.highest,
                             text(row.isOctal ? "octal" : "decimal"),
                             row.format,
                             QString::number(row.readFunction),
                             spansText(row)};
    return alignedRows(table);
}

QJsonObject catalogueJson(const CatalogueRow& row)
{
    return QJsonObject{{text("type"), row.type},
                       {text("kind"), row.kind},
                       {text("lowest"), row.lowest},
                       {text("highest"), row.highest},
                       {text("radix"), row.isOctal ? 8 : 10},
                       {text("format"), row.format},
                       {text("function"), row.readFunction},
                       {text("modbus"), modbusJson(row.spans)}};
}

} // namespace kx
