#include "kxhost/views/watch/watch_table.h"

#include "kxhost/terminal/cell_width.h"
#include "kxhost/views/entry_text.h"
#include "registers/register_types.h"
#include "system/printable_text.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

namespace kx
{

namespace
{

const qint64 SHOWN_AS_CHANGED = 1000; // milliseconds
const QChar CUT_MARK(0x2026);
const int SHORTEST_NAME = 4; // cells, those of its heading

enum Column : size_t { STATION, TYPE, ADDRESS, NAME, MODBUS, VALUE, HEX, AGE, STATE, COLUMN_COUNT };

struct ColumnShape {
    const char* heading;
    int width; ///< cells; the name's depends on the names
    bool isNumber;
    int blanks; ///< before it, unless it is the first one
};

const ColumnShape SHAPES[COLUMN_COUNT] = {
    {"STATION", 7, true, 2}, {"TYPE", 4, false, 2},  {"ADDRESS", 7, true, 1},
    {"NAME", 0, false, 2},   {"MODBUS", 6, true, 2}, {"VALUE", 10, true, 2},
    {"HEX", 10, true, 2},    {"AGE", 8, true, 2},    {"STATE", 10, false, 2},
};

/// What a narrow terminal does without, first to last. A number is shown whole or not at all.
const Column DISPENSABLE[] = {MODBUS, AGE, HEX, NAME, STATION, STATE, VALUE};

/// Cells of each column of one row; 0: it is not shown.
using Widths = std::array<int, COLUMN_COUNT>;
using Cells = std::array<QString, COLUMN_COUNT>;

int totalOf(const Widths& widths)
{
    int total = 0;
    for (size_t column = 0; column < COLUMN_COUNT; ++column) {
        if (widths[column] > 0)
            total += (total > 0 ? SHAPES[column].blanks : 0) + widths[column];
    }
    return total;
}

int nameWidth(int longest)
{
    return longest == 0 ? 0 : std::max(SHORTEST_NAME, longest);
}

/// Cells that are left for values beside those columns, and `name` cells of names.
int roomBeside(std::initializer_list<Column> columns, int name, int terminalWidth)
{
    Widths others = {};
    for (const Column column : columns)
        others[column] = SHAPES[column].width;
    others[NAME] = name;
    const int room = terminalWidth - totalOf(others) - SHAPES[VALUE].blanks;
    return std::max(SHAPES[VALUE].width, room);
}

/// A long value must not cost the others their place: a text is cut so that names and states are
/// still seen, a number that fits beside no address is left out.
void fitValues(const QVector<WatchEntry>& entries, int longestName, int terminalWidth,
               std::vector<Cells>* rows)
{
    const int ofText =
        roomBeside({STATION, TYPE, ADDRESS, STATE}, nameWidth(longestName), terminalWidth);
    const int ofNumber = roomBeside({TYPE, ADDRESS}, 0, terminalWidth);
    for (size_t i = 0; i < rows->size(); ++i) {
        const bool isText = entries.at(static_cast<int>(i)).valueFormat().kind == ValueKind::Ascii;
        QString& value = (*rows)[i][VALUE];
        if (cellsOf(value) > (isText ? ofText : ofNumber))
            value = isText ? fittedCells(value, ofText) : QString(CUT_MARK);
    }
}

/// @param longest cells of the longest name; 0: none has one
/// @param rows those that are seen: a value of several registers may be longer than a column
Widths widthsFor(int longest, const std::vector<Cells>& rows, int terminalWidth)
{
    Widths widths = {};
    for (size_t column = 0; column < COLUMN_COUNT; ++column)
        widths[column] = SHAPES[column].width;
    for (const Cells& cells : rows) {
        for (const Column column : {ADDRESS, VALUE, HEX})
            widths[column] = std::max(widths[column], cellsOf(cells[column]));
    }
    widths[NAME] = nameWidth(longest);
    for (const Column column : DISPENSABLE) {
        const int excess = totalOf(widths) - terminalWidth;
        if (excess <= 0)
            break;
        const int shortened = column == NAME ? widths[NAME] - excess : 0;
        widths[column] = shortened >= SHORTEST_NAME ? shortened : 0;
    }
    return widths;
}

QString rowOf(const Cells& cells, const Widths& widths)
{
    QString row;
    for (size_t column = 0; column < COLUMN_COUNT; ++column) {
        if (widths[column] == 0)
            continue;
        if (!row.isEmpty())
            row += QString(SHAPES[column].blanks, QLatin1Char(' '));
        const int blanks = std::max(0, widths[column] - cellsOf(cells[column]));
        row += SHAPES[column].isNumber ? QString(blanks, QLatin1Char(' ')) + cells[column]
                                       : fittedCells(cells[column], widths[column]);
    }
    while (row.endsWith(QLatin1Char(' ')))
        row.chop(1);
    return row;
}

Cells headings()
{
    Cells cells;
    for (size_t column = 0; column < COLUMN_COUNT; ++column)
        cells[column] = QString::fromLatin1(SHAPES[column].heading);
    return cells;
}

/// Time since the last good read, in seconds.
QString ageText(const WatchEntry& entry, qint64 now)
{
    if (entry.readAt == 0)
        return QString();
    return QStringLiteral("%1 s").arg(
        QString::number(static_cast<double>(now - entry.readAt) / 1000, 'f', 1));
}

Cells cellsOf(const WatchEntry& entry, qint64 now)
{
    Cells cells;
    cells[STATION] = QString::number(entry.station);
    cells[TYPE] = QString::fromLatin1(entry.type->name);
    cells[ADDRESS] = shownAddress(entry).mid(cells[TYPE].size());
    cells[NAME] = printableText(entry.name);
    cells[MODBUS] = QString::number(modbusNumber(entry.type, entry.address));
    cells[VALUE] = entryValue(entry);
    cells[HEX] = hexValue(entry);
    cells[AGE] = ageText(entry, now);
    cells[STATE] = stateText(entry, now);
    return cells;
}

} // namespace

QString stateText(const WatchEntry& entry, qint64 now)
{
    switch (entry.state) {
    case WatchState::NeverRead:
        return QStringLiteral("never read");
    case WatchState::NoAnswer:
        return QStringLiteral("no answer");
    case WatchState::Refused:
        return QStringLiteral("refused");
    case WatchState::Ok:
        break;
    }
    const bool isRecent = entry.changedAt > 0 && now - entry.changedAt < SHOWN_AS_CHANGED;
    return QLatin1String(isRecent ? "changed" : "ok");
}

QString cutRow(const QString& line, int width)
{
    const QString printable = printableText(line);
    const QString cut = leftCells(printable, width);
    const bool isWhole = printable.mid(cut.size()).trimmed().isEmpty();
    return isWhole ? cut : fittedCells(printable, width).trimmed();
}

int longestName(const QVector<WatchEntry>& entries)
{
    int longest = 0;
    for (const WatchEntry& entry : entries)
        longest = std::max(longest, cellsOf(printableText(entry.name)));
    return longest;
}

QStringList tableRows(const QVector<WatchEntry>& entries, int longestName, qint64 now, int width)
{
    std::vector<Cells> all;
    for (const WatchEntry& entry : entries)
        all.push_back(cellsOf(entry, now));
    fitValues(entries, longestName, width, &all);
    const Widths widths = widthsFor(longestName, all, width);
    QStringList rows(rowOf(headings(), widths));
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        Cells& cells = all[static_cast<size_t>(i)];
        // Where no state is seen, an old value would pass for one that is good.
        if (widths[STATE] == 0 && entries.at(i).state != WatchState::Ok)
            cells[VALUE] = cells[STATE];
        rows << rowOf(cells, widths);
    }
    for (QString& row : rows)
        row = cutRow(row, width);
    return rows;
}

QStringList firstRows(const QVector<WatchEntry>& entries, int longestName, qint64 now, int width,
                      int height)
{
    const int total = static_cast<int>(entries.size());
    const int shown = total < height ? total : qMax(0, height - 2);
    QStringList rows = tableRows(entries.mid(0, shown), longestName, now, width);
    if (shown < total)
        rows << cutRow(QStringLiteral("... and %1 more").arg(total - shown), width);
    while (rows.size() > qMax(0, height))
        rows.removeLast();
    return rows;
}

} // namespace kx
