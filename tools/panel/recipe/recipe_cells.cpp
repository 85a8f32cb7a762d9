#include "panel/recipe/recipe_cells.h"

#include "registers/register_types.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

/// Registers on both sides of a gap are never of one request.
bool followsInValue(const AddressRange& range, int index)
{
    const int address = range.address + index;
    return index > 0 && !liesPastSplit(range.type, address - 1, address);
}

QString conflict(const RecipeRow& earlier, quint32 earlierPart, const RecipeRow& later,
                 quint32 laterPart, int address)
{
    return Text::tr("%1 and %2 give %3@%4 different values: %5 and %6")
        .arg(earlier.place(), later.place(), addressText(later.range.type, address),
             QString::number(later.range.station), QString::number(earlierPart),
             QString::number(laterPart));
}

bool takeCell(const RecipeRow& row, int index, RecipeCells* cells, QString* error)
{
    RecipeCell& cell = (*cells)[recipeCellKey(row.range, index)];
    cell.followsInValue = cell.followsInValue || followsInValue(row.range, index);
    if (!row.hasValue && cell.row)
        return true;
    const quint32 value = row.hasValue ? static_cast<quint32>(row.value.value(index)) : 0;
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
