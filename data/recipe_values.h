/// Values of a recipe read on their way into the runtime's recipe buffer. Each
/// word stored is reported as (0, -1, "RWI", word offset).
#ifndef TARVELAN_DATA_RECIPE_VALUES_H
#define TARVELAN_DATA_RECIPE_VALUES_H

#include <QtCore/QtGlobal>

class ReplyBytes;
struct ReadRequest;

/// The recipe variables, indexes in `rcpVarsA` from `first` up to `end`, that the
/// block being read covers.
struct RecipeRange {
    int first;
    int end;
};

/// The range of the current block; empty unless a recipe is being read and its
/// position has a block start.
RecipeRange currentRecipeRange();

/// Copies the first register of each variable of a word-type block.
void storeRecipeWords(const RecipeRange& range, const ReadRequest& request,
                      const ReplyBytes& reply);

/// Copies 32CV value number `k` of the block, low word first. The position among
/// the recipe variables is `rcpIndex` itself, on purpose.
void storeRecipeDoubleWord(int k, quint32 value);

#endif
