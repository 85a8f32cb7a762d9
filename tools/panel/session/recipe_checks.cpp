#include "panel/session/recipe_checks.h"

#include "exchange/driver_memory.h"
#include "panel/recipe/recipe_layout_builder.h"
#include "panel/session/driver_values.h"
#include "panel/session/request_checks.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace kx
{

namespace
{

const int COILS_OF_A_WORD = 2; // of the recipe buffer

bool isBits(const AddressRange& range)
{
    return range.type->registerClass == BIT_CLASS;
}

bool isOfDoubleWords(const AddressRange& range)
{
    return registersPerAddress(range.type) > 1;
}

/// Station, type and address where variables of a pass begin.
using Begins = std::set<std::tuple<int, const RegisterType*, int>>;

Begins beginsOf(const QVector<_RCP_VAR_PRO>& variables)
{
    Begins begins;
    for (const _RCP_VAR_PRO& variable : variables)
        begins.insert({variable.station, findRegisterType(variable.regType), variable.address});
    return begins;
}

/// A read stores the first register of each variable, so that the others need variables, too.
bool isReadWhole(const AddressRange& range, const Begins& begins)
{
    if (isBits(range) || isOfDoubleWords(range))
        return true;
    for (int i = 1; i < range.values; ++i) {
        if (begins.count({range.station, range.type, range.address + i}) == 0)
            return false;
    }
    return true;
}

Failure variableRefusal(const _RCP_VAR_PRO& variable, RecipeDirection direction, int maxWords,
                        const Begins& begins)
{
    const AddressRange range = rangeOf(variable);
    const bool isUpload = direction == RecipeDirection::Upload;
    Failure failure = isUpload ? readRefusal(range, maxWords) : writeRefusal(range, maxWords);
    if (!failure.isNone())
        return failure;
    if (variable.count > maxWords || variable.count != range.driverCount())
        return refusal(FailureKind::TooLong, range,
                       Text::tr("takes no whole block of at most %1").arg(maxWords));
    if (isUpload && !isReadWhole(range, begins))
        return refusal(FailureKind::TooLong, range,
                       Text::tr("only the first of its registers would be uploaded"));
    const int coilWords = (variable.count + COILS_OF_A_WORD - 1) / COILS_OF_A_WORD;
    const int words = isBits(range) ? coilWords : variable.count;
    if (variable.bufOffset < 0 || variable.bufOffset > RECIPE_BUFFER_WORDS - words)
        return refusal(FailureKind::OutOfRange, range,
                       Text::tr("its words lie outside the recipe buffer"));
    return Failure();
}

bool isStoredBefore(const _RCP_VAR_PRO& one, const _RCP_VAR_PRO& other)
{
    return std::make_tuple(one.station, registerTypeRow(findRegisterType(one.regType)), one.address)
           < std::make_tuple(other.station, registerTypeRow(findRegisterType(other.regType)),
                             other.address);
}

bool isSameVariable(const _RCP_VAR_PRO& one, const _RCP_VAR_PRO& other)
{
    return one.station == other.station && one.regType == other.regType
           && one.address == other.address && one.count == other.count
           && one.bufOffset == other.bufOffset;
}

/// A block takes its words one after the other from where its first variable has them.
bool findsItsWords(const _RCP_VAR_PRO& variable, const _RCP_VAR_PRO& first,
                   RecipeDirection direction)
{
    const AddressRange range = rangeOf(variable);
    if (isSameVariable(variable, first))
        return true;
    if (isBits(range) || isOfDoubleWords(range))
        return false;
    return direction == RecipeDirection::Upload
           || variable.bufOffset - first.bufOffset == variable.address - first.address;
}

/// Of variables that exist.
Failure joinRefusal(QVector<_RCP_VAR_PRO> variables, RecipeDirection direction, int maxWords)
{
    std::stable_sort(variables.begin(), variables.end(), isStoredBefore);
    _RCP_VAR_PRO first = variables.first(); // of the block
    AddressRange block = rangeOf(first);
    bool hasJoined = false; // variables that are not the pass's only one
    for (int i = 1; i < variables.size(); ++i) {
        const AddressRange range = rangeOf(variables.at(i));
        if (!driverJoins(block, range, maxWords)) {
            first = variables.at(i);
            block = range;
            continue;
        }
        if (!findsItsWords(variables.at(i), first, direction))
            return refusal(FailureKind::OutOfRange, range,
                           Text::tr("its words do not follow those of its neighbour"));
        block.values =
            std::max(block.address + block.values, range.address + range.values) - block.address;
        hasJoined = hasJoined || !isSameVariable(variables.first(), variables.last());
    }
    // The driver takes the number of a 32CV's block for the number of its variable.
    const auto found = std::find_if(variables.begin(), variables.end(), [](const auto& variable) {
        return isOfDoubleWords(rangeOf(variable));
    });
    if (direction == RecipeDirection::Download || !hasJoined || found == variables.end())
        return Failure();
    return refusal(FailureKind::OutOfRange, rangeOf(*found),
                   Text::tr("must not be uploaded in one pass with joined registers"));
}

} // namespace

Failure recipeRefusal(RecipeDirection direction, const QList<RecipePass>& passes, int maxWords)
{
    const bool hasEmptyPass = std::any_of(passes.begin(), passes.end(), [](const RecipePass& pass) {
        return pass.variables.isEmpty();
    });
    if (passes.isEmpty() || hasEmptyPass)
        return failureOf(FailureKind::OutOfRange, Text::tr("nothing to transfer"));
    for (const RecipePass& pass : passes) {
        const Begins begins = beginsOf(pass.variables);
        for (const _RCP_VAR_PRO& variable : pass.variables) {
            Failure failure = variableRefusal(variable, direction, maxWords, begins);
            if (!failure.isNone())
                return failure;
        }
        Failure failure = joinRefusal(pass.variables, direction, maxWords);
        if (!failure.isNone())
            return failure;
    }
    return Failure();
}

} // namespace kx
