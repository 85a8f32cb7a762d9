/// Builds a recipe's passes and buffer, one unbroken run of addresses after the
/// other; see recipe_layout.h for the rules.
#ifndef KX_PANEL_RECIPE_RECIPE_LAYOUT_BUILDER_H
#define KX_PANEL_RECIPE_RECIPE_LAYOUT_BUILDER_H

#include "panel/recipe/recipe_cells.h"
#include "panel/recipe/recipe_layout.h"

#include <map>

namespace kx
{

/// Whether the driver joins `next`, which does not begin before it, to the block that `previous`
/// is. It takes the end of a 32CV block for an address, although it counts registers.
bool driverJoins(const AddressRange& previous, const AddressRange& next, int maxWords);

class RecipeLayoutBuilder
{
public:
    RecipeLayoutBuilder(const RecipeCells& cells, int maxWords, RecipeLayout* layout)
        : m_cells(cells), m_maxWords(maxWords), m_layout(layout)
    {
    }

    void addRegisters(const AddressRange& run);
    void addPieces(const AddressRange& run);
    /// The last step.
    void doubleLoneVariables();
    int offsetOf(const AddressRange& range) const;

private:
    int takeWords(int words);
    RecipePass& registerPass(int station);
    /// Registers from there on that are of one piece with it, itself included.
    int restOfPiece(const AddressRange& run, int index) const;
    int blocksOf(const AddressRange& run) const;
    RecipePass& passFor(const AddressRange& piece);
    void storeCoils(const AddressRange& piece, int offset);
    void storeDoubleWords(const AddressRange& piece, int offset);
    quint32 valueAt(const AddressRange& range, int index) const;

    const RecipeCells& m_cells;
    int m_maxWords;
    RecipeLayout* m_layout;
    std::map<int, int> m_registerPasses;        ///< pass of each station
    std::map<int, AddressRange> m_lastOfPass;   ///< latest run of each pass of runs
    std::map<RecipeCellKey, int> m_cellOffsets; ///< of registers and 32CV
};

} // namespace kx

#endif
