#include "panel/recipe/recipe_layout.h"

#include "exchange/driver_memory.h"
#include "panel/files/whole_range.h"
#include "panel/recipe/recipe_cells.h"
#include "panel/recipe/recipe_layout_builder.h"
#include "panel/recipe/recipe_row.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <numeric>

namespace kx
{

namespace
{

QString bufferOverflow(size_t words)
{
    return Text::tr("the rows need %1 words of the recipe buffer, which holds %2")
        .arg(words)
        .arg(RECIPE_BUFFER_WORDS);
}

/// Why the row's value may not be written although the file may hold it; empty when it may.
QString boundsFault(const RecipeRow& row)
{
    QList<qint64> value;
    QString fault;
    if (!row.type)
        parseValue(row.range.type, row.format, recipeText(row, row.value), &value, &fault);
    return fault;
}

/// None is cut, and what shares registers is one piece.
bool valuesFit(const QList<RecipeRow>& rows, int maxWords, QString* error)
{
    for (const RecipeRow& row : rows) {
        Tag tag;
        tag.range = row.range;
        tag.format = row.format;
        const QString fault = requestFault(tag, maxWords);
        if (!fault.isEmpty()) {
            *error = QStringLiteral("%1: %2").arg(row.place(), fault);
            return false;
        }
    }
    return true;
}

bool piecesFit(const RecipeCells& cells, int maxWords, QString* error)
{
    const RecipeRow* first = nullptr;
    int words = 0;
    for (const auto& cell : cells) {
        first = cell.second.followsInValue ? first : cell.second.row;
        words = cell.second.followsInValue ? words + 1 : 1;
        if (words > maxWords) {
            *error = Text::tr("%1: values that share registers are of one request, and those "
                              "from here on take more than %2")
                         .arg(first->place())
                         .arg(maxWords);
            return false;
        }
    }
    return true;
}

} // namespace

QVector<_RCP_VAR_PRO> RecipePass::forLink(int link) const
{
    QVector<_RCP_VAR_PRO> linked = variables;
    for (_RCP_VAR_PRO& variable : linked)
        variable.rcpId = link;
    return linked;
}

int RecipeLayout::blocks() const
{
    return std::accumulate(passes.begin(), passes.end(), 0,
                           [](int sum, const RecipePass& pass) { return sum + pass.blocks; });
}

bool layOutRecipe(const QList<RecipeRow>& rows, int maxWords, RecipeLayout* layout, QString* error)
{
    *layout = RecipeLayout();
    RecipeCells cells;
    if (!valuesFit(rows, maxWords, error) || !takeRecipeCells(rows, &cells, error)
        || !piecesFit(cells, maxWords, error))
        return false;
    RecipeLayoutBuilder builder(cells, maxWords, layout);
    for (const AddressRange& run : runsOf(cells)) {
        if (run.type->registerClass == WORD_CLASS)
            builder.addRegisters(run);
        else
            builder.addPieces(run);
    }
    builder.doubleLoneVariables();
    if (layout->buffer.size() > RECIPE_BUFFER_WORDS) {
        *error = bufferOverflow(layout->buffer.size());
        return false;
    }
    for (const RecipeRow& row : rows)
        layout->offsets.append(builder.offsetOf(row.range));
    return true;
}

bool canBeDownloaded(const QList<RecipeRow>& rows, QString* error)
{
    for (const RecipeRow& row : rows) {
        const QString address = addressText(row.range.type, row.range.address);
        QString fault;
        if (!row.range.type->writable)
            fault = Text::tr("%1 is an input and cannot be written").arg(address);
        else if (!row.hasValue)
            fault = Text::tr("no value for %1").arg(address);
        else
            fault = boundsFault(row);
        if (!fault.isEmpty()) {
            *error = QStringLiteral("%1: %2").arg(row.place(), fault);
            return false;
        }
    }
    return true;
}

QList<qint64> valueInBuffer(const RecipeRow& row, int offset,
                            const std::vector<unsigned short>& buffer)
{
    const auto word = [&buffer](qint64 index) -> qint64 {
        const bool isInside = index >= 0 && static_cast<size_t>(index) < buffer.size();
        return isInside ? buffer[static_cast<size_t>(index)] : 0;
    };
    if (row.range.type->registerClass == DOUBLE_WORD_CLASS)
        return {word(offset) | word(qint64(offset) + 1) << WORD_BITS};
    QList<qint64> words;
    for (int i = 0; i < row.range.values; ++i)
        words << word(qint64(offset) + i);
    return words;
}

} // namespace kx
