#include "kxpanel/tags/tag_rows.h"

#include "kxpanel/tags/cell_table.h"
#include "kxpanel/tags/tag_text.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>

namespace kxpanel
{

namespace
{

/// A row, and where in it addresses stand.
struct Row {
    int number; ///< from 1
    QStringList cells;
    QList<int> places;
    QString fault; ///< of the first cell with a text, where there is no address
};

QString translated(const char* text)
{
    return QCoreApplication::translate("kxpanel::Cells", text);
}

Row rowOf(int number, const QStringList& cells, int station)
{
    Row row = {number, cells, {}, QString()};
    for (int i = 0; i < cells.size(); ++i) {
        kx::Tag tag;
        QString reason;
        const QString text = cells.at(i).trimmed();
        if (text.isEmpty())
            continue;
        if (parseTypedTag(text, station, &tag, &reason))
            row.places << i;
        else if (row.fault.isEmpty())
            row.fault = kx::faultyText(text, reason);
    }
    return row;
}

QSet<int> setOf(const QList<int>& places)
{
    return QSet<int>(places.begin(), places.end());
}

QString ambiguity(const Row& row)
{
    return translated(QT_TRANSLATE_NOOP("kxpanel::Cells",
                                        "%1 and %2 are both addresses; put 'name' and 'address' "
                                        "above the columns"))
        .arg(row.cells.at(row.places.at(0)).trimmed(), row.cells.at(row.places.at(1)).trimmed());
}

QString textOf(const QStringList& cells)
{
    return inOneLine(cells.join(QLatin1Char(' '))).simplified();
}

/// @param common columns that have an address in each row
bool takeRow(const Row& row, const QSet<int>& common, int station, kx::Tag* tag, QString* fault)
{
    const bool isPlain = row.places.size() == 1;
    if (!isPlain && (row.places.isEmpty() || common.size() != 1)) {
        *fault = row.places.isEmpty() ? row.fault : ambiguity(row);
        return false;
    }
    const int place = isPlain ? row.places.first() : *common.begin();
    parseTypedTag(row.cells.at(place).trimmed(), station, tag, fault);
    tag->name = textOf(row.cells.mid(0, place));
    tag->comment = textOf(row.cells.mid(place + 1));
    return true;
}

} // namespace

bool isEmptyRow(const QStringList& cells)
{
    return cells.join(QString()).trimmed().isEmpty();
}

bool tagsOfRows(const QList<QStringList>& rows, int station, QList<kx::Tag>* tags, QString* fault)
{
    QList<Row> filled;
    for (int i = 0; i < rows.size(); ++i) {
        if (!isEmptyRow(rows.at(i)))
            filled << rowOf(i + 1, rows.at(i), station);
    }
    QSet<int> common = filled.isEmpty() ? QSet<int>() : setOf(filled.first().places);
    for (const Row& row : filled)
        common.intersect(setOf(row.places));
    QList<kx::Tag> taken;
    for (const Row& row : filled) {
        kx::Tag tag;
        QString reason;
        if (!takeRow(row, common, station, &tag, &reason)) {
            *fault = rowFault(row.number, reason);
            return false;
        }
        taken << tag;
    }
    if (taken.isEmpty())
        *fault = translated(QT_TRANSLATE_NOOP("kxpanel::Cells", "no addresses"));
    else
        *tags = taken;
    return !taken.isEmpty();
}

} // namespace kxpanel
