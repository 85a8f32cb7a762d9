#include "kxpanel/grid/model/cell_values.h"

#include "kxpanel/tags/cell_numbers.h"
#include "kxpanel/tags/cell_table.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

namespace kxpanel
{

namespace
{

QString translated(const char* text)
{
    return QCoreApplication::translate("kxpanel::Cells", text);
}

} // namespace

bool parseColumn(const QString& text, QStringList* cells, QString* fault)
{
    QList<QStringList> rows;
    cells->clear();
    if (!parseCells(text, &rows, fault))
        return false;
    for (const QStringList& row : rows) {
        if (row.size() != 1) {
            *fault =
                translated(QT_TRANSLATE_NOOP("kxpanel::Cells", "one column of values is needed"));
            return false;
        }
        *cells << row.first().trimmed();
    }
    while (!cells->isEmpty() && cells->last().isEmpty())
        cells->removeLast();
    const int empty = static_cast<int>(cells->indexOf(QString(QLatin1String(""))));
    if (empty >= 0 || cells->isEmpty())
        *fault = translated(QT_TRANSLATE_NOOP("kxpanel::Cells", "row %1 is empty"))
                     .arg(qMax(0, empty) + 1);
    return empty < 0 && !cells->isEmpty();
}

QString typedValue(const kx::Tag& tag, const QString& cell, const QLocale& locale)
{
    return tag.format.kind == kx::ValueKind::Ascii ? cell : withDecimalPoint(cell, locale);
}

QString thousandsFault(const kx::Tag& tag, const QString& cell, const QLocale& locale)
{
    return tag.format.kind == kx::ValueKind::Ascii ? QString() : thousandsFault(cell, locale);
}

bool looksLikeNumber(const QString& cell)
{
    static const QRegularExpression begin(QStringLiteral("\\A[-+]?[0-9]"));
    return begin.match(cell).hasMatch();
}

} // namespace kxpanel
