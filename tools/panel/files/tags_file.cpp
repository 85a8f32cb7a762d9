#include "panel/files/tags_file.h"

#include "panel/files/tag_row.h"
#include "panel/files/text_file.h"
#include "system/translated_text.h"

#include <QtCore/QHash>

#include <algorithm>

namespace kx
{

namespace
{

QString faultText(const QString& path, const CsvFault& fault)
{
    const QString place =
        fault.line > 0 ? path + QLatin1Char(':') + QString::number(fault.line) : path;
    return QStringLiteral("%1: %2").arg(place, fault.text);
}

QList<Tag> takeTags(const QList<CsvRow>& rows, QList<CsvFault>* faults)
{
    QList<Tag> tags;
    QHash<QString, int> lineOf;
    for (const CsvRow& row : rows) {
        QStringList texts;
        const Tag tag = tagOfRow(row, &texts);
        if (!tag.name.isEmpty() && lineOf.contains(tag.name))
            texts << Text::tr("the name '%1' is taken by line %2")
                         .arg(tag.name, QString::number(lineOf.value(tag.name)));
        else
            lineOf.insert(tag.name, row.line);
        for (const QString& text : texts)
            *faults << CsvFault{row.line, text};
        tags << tag;
    }
    return tags;
}

QList<CsvFault> allFaults(const QByteArray& content, QList<Tag>* tags)
{
    CsvTable table;
    QList<CsvFault> faults;
    CsvTable::parse(content, tagColumns(), &table, &faults);
    *tags = takeTags(table.rows(), &faults);
    std::stable_sort(faults.begin(), faults.end(), [](const CsvFault& one, const CsvFault& other) {
        return one.line < other.line;
    });
    return faults;
}

} // namespace

bool loadTags(const QString& path, QList<Tag>* tags, QString* error)
{
    QByteArray content;
    return readTextFile(path, &content, error) && parseTags(content, path, tags, error);
}

bool parseTags(const QByteArray& content, const QString& path, QList<Tag>* tags, QString* error)
{
    QList<Tag> taken;
    const QList<CsvFault> faults = allFaults(content, &taken);
    if (faults.isEmpty())
        *tags = taken;
    else
        *error = faultText(path, faults.first());
    return faults.isEmpty();
}

QStringList tagFaults(const QByteArray& content, const QString& path, QList<Tag>* tags)
{
    QStringList texts;
    for (const CsvFault& fault : allFaults(content, tags))
        texts << faultText(path, fault);
    return texts;
}

QList<AddressRange> rangesOf(const QList<Tag>& tags)
{
    QList<AddressRange> ranges;
    for (const Tag& tag : tags)
        ranges << tag.range;
    return ranges;
}

} // namespace kx
