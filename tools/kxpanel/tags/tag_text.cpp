#include "kxpanel/tags/tag_text.h"

#include "kxpanel/tags/tag_fields.h"
#include "panel/values/value_address.h"

namespace kxpanel
{

namespace
{

const QLatin1Char TAB('\t');
const QLatin1Char NEWLINE('\n');
const QLatin1Char QUOTE('"');

/// A cell of a spreadsheet; a tags file has no line breaks in its texts.
QString cellText(QString text)
{
    text.replace(NEWLINE, QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    const bool isPlain = !text.contains(TAB) && !text.contains(QUOTE) && text == text.trimmed()
                         && !text.startsWith(QLatin1Char('#'));
    if (isPlain)
        return text;
    return QUOTE + text.replace(QString(QUOTE), QStringLiteral("\"\"")) + QUOTE;
}

QString rowText(const QStringList& fields)
{
    QStringList cells;
    for (const QString& field : fields)
        cells << cellText(field);
    return cells.join(TAB);
}

bool hasHeader(const QString& text)
{
    const QString first = text.trimmed().section(NEWLINE, 0, 0);
    for (const QString& cell : first.split(TAB)) {
        if (cell.trimmed() == QLatin1String("address"))
            return true;
    }
    return first.contains(QLatin1String("address,")) || first.contains(QLatin1String("address;"))
           || first.endsWith(QLatin1String("address"));
}

bool parseRow(const QString& row, int station, kx::Tag* tag, QString* fault)
{
    const QStringList cells = row.split(TAB);
    for (int i = 0; i < cells.size(); ++i) {
        QString reason;
        if (!parseTypedTag(cells.at(i).trimmed(), station, tag, &reason)) {
            if (fault->isEmpty() && !cells.at(i).trimmed().isEmpty())
                *fault = kx::faultyText(cells.at(i).trimmed(), reason);
            continue;
        }
        tag->name = QStringList(cells.mid(0, i)).join(QLatin1Char(' ')).simplified();
        tag->comment = QStringList(cells.mid(i + 1)).join(QLatin1Char(' ')).simplified();
        return true;
    }
    return false;
}

bool parseRows(const QString& text, int station, QList<kx::Tag>* tags, QString* fault)
{
    const QStringList rows = text.split(NEWLINE);
    QList<kx::Tag> taken;
    for (int i = 0; i < rows.size(); ++i) {
        if (rows.at(i).trimmed().isEmpty())
            continue;
        kx::Tag tag;
        QString reason;
        if (!parseRow(rows.at(i), station, &tag, &reason)) {
            *fault = QStringLiteral("row %1: %2").arg(QString::number(i + 1), reason);
            return false;
        }
        taken << tag;
    }
    if (taken.isEmpty())
        *fault = QStringLiteral("no addresses");
    *tags = taken.isEmpty() ? *tags : taken;
    return !taken.isEmpty();
}

} // namespace

bool parseTypedTag(const QString& typed, int station, kx::Tag* tag, QString* fault)
{
    kx::Tag parsed;
    *tag = kx::Tag();
    if (!kx::parseValueAddress(typed, &parsed.range, &parsed.format, fault))
        return false;
    if (parsed.range.station < 0)
        parsed.range.station = station;
    *tag = parsed;
    return true;
}

QString typedText(const kx::Tag& tag)
{
    return kx::valueAddressText(tag.range, tag.format);
}

QString tagsText(const QList<kx::Tag>& tags)
{
    QString text = rowText(tagFieldNames()) + NEWLINE;
    for (const kx::Tag& tag : tags)
        text += rowText(tagFields(tag)) + NEWLINE;
    return text;
}

bool parseTagsText(const QString& text, int station, QList<kx::Tag>* tags, QString* fault)
{
    QString plain = text;
    plain.remove(QLatin1Char('\r'));
    if (!hasHeader(plain))
        return parseRows(plain, station, tags, fault);
    QList<kx::Tag> taken;
    if (!kx::parseTags(plain.toUtf8(), QStringLiteral("row"), &taken, fault))
        return false;
    for (kx::Tag& tag : taken) {
        dropAddressName(&tag);
        if (tag.range.station < 0)
            tag.range.station = station;
    }
    *tags = taken;
    return true;
}

} // namespace kxpanel
