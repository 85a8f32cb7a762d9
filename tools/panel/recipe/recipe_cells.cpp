#include "panel/recipe/recipe_cells.h"

namespace kx
{

namespace
{

const quint32 WORD_MASK = 0xFFFF;

// Low word first: the runtime's and the driver's order of 32 bits in 16-bit words.
quint32 partOf(const RecipeRow& row, int index)
{
    return row.range.values == 1 ? row.value : row.value >> (index * WORD_BITS) & WORD_MASK;
}

QString conflict(const RecipeRow& earlier, quint32 earlierPart, const RecipeRow& later,
                 quint32 laterPart, int address)
{
    return QStringLiteral("%1 and %2 give %3@%4 different values: %5 and %6")
        .arg(earlier.place(), later.place(), addressText(later.range.type, address),
             QString::number(later.range.station), QString::number(earlierPart),
             QString::number(laterPart));
}

bool takeCell(const RecipeRow& row, int index, RecipeCells* cells, QString* error)
{
    RecipeCell& cell = (*cells)[recipeCellKey(row.range, index)];
    if (!row.hasValue && cell.row)
        return true;
    const quint32 value = row.hasValue ? partOf(row, index) : 0;
    if (cell.row && cell.row->hasValue && cell.value != value) {
        *error = conflict(*cell.row, cell.value, row, value, row.range.address + index);
        return false;
    }
    cell.row = &row;
    cell.value = value;
    return true;
}

} // namespace

RecipeCellKey recipeCellKey(const AddressRange& range, int index)
{
    return RecipeCellKey(range.station, range.type, range.address + index);
}

bool takeRecipeCells(const QList<RecipeRow>& rows, RecipeCells* cells, QString* error)
{
    for (const RecipeRow& row : rows) {
        for (int i = 0; i < row.range.values; ++i) {
            if (!takeCell(row, i, cells, error))
                return false;
        }
    }
    return true;
}

QList<AddressRange> runsOf(const RecipeCells& cells)
{
    QList<AddressRange> runs;
    for (const auto& cell : cells) {
        if (!runs.isEmpty() && recipeCellKey(runs.last(), runs.last().values) == cell.first) {
            ++runs.last().values;
            continue;
        }
        const auto [station, type, address] = cell.first;
        runs.append({type, address, 1, station});
    }
    return runs;
}

} // namespace kx
