/// A recipe's rows as the single controller addresses that they cover.
#ifndef KX_PANEL_RECIPE_RECIPE_CELLS_H
#define KX_PANEL_RECIPE_RECIPE_CELLS_H

#include "addresses/export.h"
#include "panel/recipe/recipe_file.h"

#include <map>
#include <tuple>

namespace kx
{

const int WORD_BITS = 16;

/// Station, register type (of findRegisterType()), address: cells of one type lie
/// together, in the order of the register types.
typedef std::tuple<int, const RegisterType*, int> RecipeCellKey;

struct RecipeCell {
    const RecipeRow* row = nullptr; ///< the last one that covers the address
    quint32 value = 0;              ///< coil, register or 32CV; 0 when the row has none
    bool followsInValue = false;    ///< a value covers it and the register before it
};

typedef std::map<RecipeCellKey, RecipeCell> RecipeCells;

KXRUNTIME_EXPORT RecipeCellKey recipeCellKey(const AddressRange& range, int index);

/// Returns false and one line in `*error` when two rows give one address
/// different values. The cells point into `rows`.
KXRUNTIME_EXPORT bool takeRecipeCells(const QList<RecipeRow>& rows, RecipeCells* cells,
                                      QString* error);

/// The unbroken runs of addresses, in the order of the keys.
KXRUNTIME_EXPORT QList<AddressRange> runsOf(const RecipeCells& cells);

} // namespace kx

#endif
