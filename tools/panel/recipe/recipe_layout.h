/// How a recipe's values lie in the runtime's recipe buffer, and which variables
/// tell the driver so. Pure functions.
///
/// The driver joins variables that touch into blocks, one request each. A block
/// takes its values from the buffer without gaps, starting at its first variable;
/// on a read only the first register of each variable comes back. And:
/// - coils take one byte each from the buffer, the low byte of a word first, so a
///   coil variable that is joined to another would find its values in the wrong
///   place; a block of 8, 16, ... coils would switch its last eight off; coils that
///   were read reach the cache but never the buffer;
/// - SM variables are joined across the jump in their Modbus numbers;
/// - 32CV variables are joined across gaps as wide as the block is long, and on
///   a read the block's number is taken for the variable's number.
///
/// So a recipe is transferred in passes, each a recipe of its own for the driver:
/// - registers, one pass per station: one variable per register, in the order of their
///   addresses. It covers the rest of its value, which lies behind it, so that the driver cuts
///   between values alone: one that does not fit into a block any more opens the next. Values
///   that share registers are one piece.
/// - 32CV and coils, as many passes as it takes (mostly one or two): one variable
///   per unbroken run, cut so that a write carries it, in the first pass in which
///   the driver joins it to no other. Each variable is then a block of its own.
/// An upload finds registers and 32CV in the buffer, coils in the driver's cache.
/// The driver sends a recipe of one variable as two blocks, but joins equal ones: such
/// a pass names its variable twice and is sent once.
#ifndef KX_PANEL_RECIPE_RECIPE_LAYOUT_H
#define KX_PANEL_RECIPE_RECIPE_LAYOUT_H

#include "addresses/export.h"
#include "driver/records.h"
#include "panel/recipe/recipe_file.h"

#include <QtCore/QVector>

#include <vector>

namespace kx
{

struct KXRUNTIME_EXPORT RecipePass {
    QVector<_RCP_VAR_PRO> variables; ///< of link 0; see forLink()
    int blocks = 0;                  ///< requests that transfer the pass

    QVector<_RCP_VAR_PRO> forLink(int link) const;
};

struct KXRUNTIME_EXPORT RecipeLayout {
    QList<RecipePass> passes;
    std::vector<unsigned short> buffer; ///< filled with the rows' values
    QList<int> offsets;                 ///< of each row in the buffer, words; -1: coil

    int blocks() const;
};

/// Returns false and one line in `*error` that names the rows when two of them
/// give one register different values, when a value, or several that share registers, do not fit
/// into one request of `maxWords` registers, or when the values do not fit into the buffer.
/// @param maxWords the driver's limit, 1 to MOST_REGISTERS_PER_WRITE
KXRUNTIME_EXPORT bool layOutRecipe(const QList<RecipeRow>& rows, int maxWords, RecipeLayout* layout,
                                   QString* error);

/// Returns false and one line in `*error` when a row has no value or one outside of its min and
/// max, or is an input.
KXRUNTIME_EXPORT bool canBeDownloaded(const QList<RecipeRow>& rows, QString* error);

/// The row's value in a buffer that an upload filled, as RecipeRow::value; not for coils. Words
/// outside the buffer count as 0.
KXRUNTIME_EXPORT QList<qint64> valueInBuffer(const RecipeRow& row, int offset,
                                             const std::vector<unsigned short>& buffer);

} // namespace kx

#endif
