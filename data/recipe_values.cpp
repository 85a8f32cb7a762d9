#include "data/recipe_values.h"

#include "data/data_areas.h"
#include "data/read_frame.h"
#include "data/reply_bytes.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "modbus/frame_bytes.h"

namespace
{

const int NO_STATION = -1;
const int RECIPE_LINK = 0;

bool hasBlockStart(int index)
{
    return index >= 0 && index < driver.intList.size();
}

bool hasVariable(int index)
{
    return index >= 0 && index < driver.rcpVarsA.size();
}

// A word before the start of the buffer is neither stored nor reported.
bool storeWordInBuffer(int offset, int word)
{
    if (!driver.recipeBuffer || offset < 0)
        return false;
    driver.recipeBuffer[offset] = static_cast<unsigned short>(word);
    return true;
}

void reportWord(int offset)
{
    tellRuntime(RECIPE_LINK, NO_STATION, QString::fromLatin1("RWI"), offset);
}

} // namespace

RecipeRange currentRecipeRange()
{
    RecipeRange range = {0, 0};
    if (driver.currentKind != RECIPE_READ_JOB || !hasBlockStart(driver.rcpIndex))
        return range;
    const int next = driver.rcpIndex + 1;
    range.first = driver.intList.at(driver.rcpIndex);
    range.end =
        hasBlockStart(next) ? driver.intList.at(next) : static_cast<int>(driver.rcpVarsA.size());
    return range;
}

void storeRecipeWords(const RecipeRange& range, const ReadRequest& request, const ReplyBytes& reply)
{
    // The value-change function may have ended the transfer since the range was fixed.
    if (driver.currentKind != RECIPE_READ_JOB)
        return;
    for (int j = range.first; j < range.end; ++j) {
        if (!hasVariable(j))
            return;
        const int distance =
            wrapSub(driver.rcpVarsA.at(j).address, driver.rcpVarsA.at(range.first).address);
        const int first = wrapAdd(request.firstDataByte, wrapMul(distance, BYTES_PER_REGISTER));
        const int offset = driver.rcpVarsA.at(j).bufOffset;
        const int word = reply.wordAt(first);
        if (storeWordInBuffer(offset, word))
            reportWord(offset);
    }
}

void storeRecipeDoubleWord(int k, quint32 value)
{
    if (!hasVariable(driver.rcpIndex))
        return;
    const int low = wrapAdd(driver.rcpVarsA.at(driver.rcpIndex).bufOffset, wrapMul(k, 2));
    const int high = wrapAdd(low, 1);
    const bool lowStored = storeWordInBuffer(low, static_cast<int>(value & 0xFFFF));
    const bool highStored = storeWordInBuffer(high, static_cast<int>(value >> 16));
    if (lowStored)
        reportWord(low);
    if (highStored)
        reportWord(high);
}
