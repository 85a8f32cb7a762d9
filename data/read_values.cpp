#include "data/read_values.h"

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/recipe_values.h"
#include "driver/tarvelan.h"
#include "driver/value_change.h"
#include "driver/wrapping.h"
#include "registers/register_types.h"

#include <cstring>

namespace
{

const int BYTES_PER_REGISTER = 2;
const int BYTES_PER_DOUBLE_WORD = 4;
const int BITS_PER_BYTE = 8;

// Written only when it changes, which leaves an unchanged record untouched.
void clearError(_DATA_& area)
{
    if (area.commError != 0)
        area.commError = 0;
}

// A bit is compared with the whole reply byte at its own position, not with the
// packed bit, so replies other than 0 and 1 report bits at every poll.
void storeBit(const ReadRequest& request, const ReplyBytes& reply, int i)
{
    const int address = wrapAdd(request.address, i);
    const int packed = reply.at(wrapAdd(request.firstDataByte, i / BITS_PER_BYTE));
    const unsigned char bit = static_cast<unsigned char>(packed >> i % BITS_PER_BYTE & 1);
    _DATA_& area = dataArea(request.station, request.regType, address);
    clearError(area);
    if (area.value[0] == reply.at(wrapAdd(request.firstDataByte, i))) {
        area.value[0] = bit;
        return;
    }
    area.writePending = 0;
    callRuntime(driver.linkId, request.station, request.regType, address);
    dataArea(request.station, request.regType, address).value[0] = bit;
}

void storeWord(const ReadRequest& request, const ReplyBytes& reply, int k)
{
    const int address = wrapAdd(request.address, k);
    const int first = wrapAdd(request.firstDataByte, BYTES_PER_REGISTER * k);
    const int high = reply.at(first);
    const int low = reply.at(wrapAdd(first, 1));
    _DATA_& area = dataArea(request.station, request.regType, address);
    clearError(area);
    if (area.value[0] == low && area.value[1] == high)
        return;
    if (area.writePending == 1 && area.reserved == 0)
        area.writePending = 0;
    int oldWord = wordOf(area.value);
    int newWord = low | high << 8;
    _wordDataChange(&oldWord, &newWord, request.station, request.regType, address, 0);
    unsigned char* const value = dataArea(request.station, request.regType, address).value;
    value[0] = static_cast<unsigned char>(low);
    value[1] = static_cast<unsigned char>(high);
}

void storeDoubleWord(const ReadRequest& request, const ReplyBytes& reply, int k)
{
    const int address = wrapAdd(request.address, k);
    const int first = wrapAdd(request.firstDataByte, BYTES_PER_DOUBLE_WORD * k);
    unsigned char bytes[BYTES_PER_DOUBLE_WORD];
    for (int byte = 0; byte < BYTES_PER_DOUBLE_WORD; ++byte)
        bytes[byte] =
            static_cast<unsigned char>(reply.at(wrapAdd(first, BYTES_PER_DOUBLE_WORD - 1 - byte)));
    _DATA_& area = dataArea(request.station, request.regType, address);
    clearError(area);
    if (std::memcmp(area.value, bytes, sizeof bytes) != 0) {
        area.writePending = 0;
        _OnlyOneDataTypeDataChange(request.station, request.regType, address, 0, 0, 0, 0);
        std::memcpy(dataArea(request.station, request.regType, address).value, bytes, sizeof bytes);
    }
    if (driver.currentKind == RECIPE_READ_JOB)
        storeRecipeDoubleWord(k, bytes);
}

} // namespace

ReadRequest::ReadRequest(const FRAME_PRO& frame)
    : station(frame.job.station),
      regType(frame.job.regType),
      address(frame.job.address),
      firstDataByte(frame.frameFunc),
      dataLength(frame.dataLen)
{
}

void storeReadValues(const ReadRequest& request, const ReplyBytes& reply)
{
    const UndisturbedAreas undisturbed;
    const RecipeRange recipe = currentRecipeRange();
    const RegisterClass registerClass = registerClassOf(request.regType);
    switch (registerClass) {
    case BIT_CLASS:
        for (int i = 0; i < request.dataLength; ++i)
            storeBit(request, reply, i);
        break;
    case WORD_CLASS:
        for (int k = 0; k < request.dataLength / BYTES_PER_REGISTER; ++k)
            storeWord(request, reply, k);
        storeRecipeWords(recipe, request, reply);
        break;
    case DOUBLE_WORD_CLASS:
        for (int k = 0; k < request.dataLength / BYTES_PER_DOUBLE_WORD; ++k)
            storeDoubleWord(request, reply, k);
        break;
    case UNKNOWN_CLASS:
        break;
    }
}

// Bits are marked with a stride of eight addresses and 32CV with one address per
// register, on purpose: the marks reach beyond the addresses read.
void markUnanswered(const ReadRequest& request)
{
    const RegisterClass registerClass = registerClassOf(request.regType);
    if (registerClass == UNKNOWN_CLASS)
        return;
    const UndisturbedAreas undisturbed;
    const bool areBits = registerClass == BIT_CLASS;
    const int marks = areBits ? request.dataLength : request.dataLength / BYTES_PER_REGISTER;
    const int stride = areBits ? BITS_PER_GROUP : 1;
    for (int i = 0; i < marks; ++i)
        dataArea(request.station, request.regType, wrapAdd(request.address, wrapMul(i, stride)))
            .commError = 1;
}
