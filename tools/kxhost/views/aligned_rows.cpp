#include "kxhost/views/aligned_rows.h"

#include <algorithm>

namespace kx
{

namespace
{

QList<int> columnWidths(const QList<QStringList>& rows)
{
    QList<int> widths;
    for (const QStringList& row : rows) {
        for (int column = 0; column < static_cast<int>(row.size()); ++column) {
            if (column == static_cast<int>(widths.size()))
                widths << 0;
            widths[column] = std::max(widths[column], static_cast<int>(row[column].size()));
        }
    }
    return widths;
}

} // namespace

QStringList alignedRows(const QList<QStringList>& rows, const QList<int>& numbers)
{
    const QList<int> widths = columnWidths(rows);
    QStringList lines;
    for (const QStringList& row : rows) {
        QString line;
        for (int column = 0; column < static_cast<int>(row.size()); ++column) {
            line += QLatin1String(column > 0 ? "  " : "");
            line += numbers.contains(column) ? row[column].rightJustified(widths[column])
                                             : row[column].leftJustified(widths[column]);
        }
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        lines << line;
    }
    return lines;
}

} // namespace kx
