#include "panel/recipe/recipe_layout.h"

#include "addresses/read_pieces.h"
#include "exchange/driver_memory.h"
#include "panel/recipe/recipe_cells.h"
#include "panel/recipe/recipe_layout_builder.h"
#include "registers/register_types.h"

#include <numeric>

namespace kx
{

namespace
{

QString bufferOverflow(size_t words)
{
    return QStringLiteral("the rows need %1 words of the recipe buffer, which holds %2")
        .arg(words)
        .arg(RECIPE_BUFFER_WORDS);
}

bool doubleWordsFit(const QList<RecipeRow>& rows, int maxWords, QString* error)
{
    for (const RecipeRow& row : rows) {
        if (addressesPerRead(row.range.type, maxWords) < 1) {
            *error =
                QStringLiteral("%1: %2").arg(row.place(), tooLongText(row.range.type, maxWords));
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
    if (!doubleWordsFit(rows, maxWords, error) || !takeRecipeCells(rows, &cells, error))
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
        if (!row.range.type->writable) {
            *error = QStringLiteral("%1: %2 is an input and cannot be written")
                         .arg(row.place(), address);
            return false;
        }
        if (!row.hasValue) {
            *error = QStringLiteral("%1: no value for %2").arg(row.place(), address);
            return false;
        }
    }
    return true;
}

quint32 valueInBuffer(const RecipeRow& row, int offset, const std::vector<unsigned short>& buffer)
{
    const auto word = [&buffer](qint64 index) -> quint32 {
        const bool isInside = index >= 0 && static_cast<size_t>(index) < buffer.size();
        return isInside ? buffer[static_cast<size_t>(index)] : 0;
    };
    if (row.type->bits == WORD_BITS)
        return word(offset);
    return word(offset) | word(qint64(offset) + 1) << WORD_BITS;
}

} // namespace kx
