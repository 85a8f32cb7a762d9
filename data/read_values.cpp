#include "data/read_values.h"

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/recipe_values.h"
#include "data/unchanged_run.h"
#include "driver/tarvelan.h"
#include "modbus/frame_bytes.h"
#include "registers/type_names.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace
{

const int BYTES_PER_DOUBLE_WORD = 4;
const int BITS_PER_BYTE = 8;

/// The elements of a reply, of whatever class, and where they belong.
struct Elements {
    const int station;
    const QString& regType;
    const int address;
    const int firstDataByte;
    const ReplyBytes reply;

    Elements(const ReadRequest& request, const ReplyBytes& replyBytes)
        : station(request.station),
          regType(typeNames->of(request.type)),
          address(request.address),
          firstDataByte(request.firstDataByte),
          reply(replyBytes)
    {
    }

    _DATA_& record(int element) const
    {
        return dataArea(station, regType, wrapAdd(address, element));
    }

    /// With the mark of an unanswered read taken off.
    _DATA_& answeredRecord(int element) const
    {
        _DATA_& area = record(element);
        area.commError = 0;
        return area;
    }
};

// A bit is compared with the whole reply byte at its own position, not with the
// packed bit, so replies other than 0 and 1 report bits at every poll.
struct Bits : Elements {
    Bits(const ReadRequest& request, const ReplyBytes& replyBytes) : Elements(request, replyBytes)
    {
    }

    // All: bytes past the reply count as 0.
    int comparable(int count) const { return count; }

    int compared(int i) const { return reply.at(wrapAdd(firstDataByte, i)); }

    unsigned char bit(int i) const
    {
        const int packed = reply.at(wrapAdd(firstDataByte, i / BITS_PER_BYTE));
        return static_cast<unsigned char>(packed >> i % BITS_PER_BYTE & 1);
    }

    bool areIn(const _DATA_& area, int i) const
    {
        return area.value[0] == compared(i) && area.value[0] == bit(i);
    }

    void store(int i) const
    {
        _DATA_& area = answeredRecord(i);
        if (area.value[0] == compared(i)) {
            area.value[0] = bit(i);
            return;
        }
        area.writePending = 0;
        tellRuntime(driver.linkId, station, regType, wrapAdd(address, i));
        record(i).value[0] = bit(i);
    }
};

struct Words : Elements {
    Words(const ReadRequest& request, const ReplyBytes& replyBytes) : Elements(request, replyBytes)
    {
    }

    int word(int k) const { return reply.wordAt(wrapAdd(firstDataByte, BYTES_PER_REGISTER * k)); }

    // Those whose bytes are in the reply.
    int comparable(int count) const
    {
        return std::min(count, reply.wholeElements(firstDataByte, BYTES_PER_REGISTER));
    }

    bool areIn(const _DATA_& area, int k) const
    {
        const unsigned char* const bytes = reply.from(firstDataByte) + BYTES_PER_REGISTER * k;
        return qFromLittleEndian<quint16>(area.value) == qFromBigEndian<quint16>(bytes);
    }

    void store(int k) const
    {
        _DATA_& area = answeredRecord(k);
        int oldWord = wordOf(area.value);
        int newWord = word(k);
        if (oldWord == newWord)
            return;
        if (area.writePending == 1 && area.reserved == 0)
            area.writePending = 0;
        _wordDataChange(&oldWord, &newWord, station, regType, wrapAdd(address, k), 0);
        qToLittleEndian(static_cast<quint16>(newWord), record(k).value);
    }
};

struct DoubleWords : Elements {
    DoubleWords(const ReadRequest& request, const ReplyBytes& replyBytes)
        : Elements(request, replyBytes)
    {
    }

    quint32 doubleWord(int k) const
    {
        const int first = wrapAdd(firstDataByte, BYTES_PER_DOUBLE_WORD * k);
        const quint32 high = static_cast<quint32>(reply.wordAt(first));
        return high << 16 | static_cast<quint32>(reply.wordAt(wrapAdd(first, BYTES_PER_REGISTER)));
    }

    // The same, but none for a recipe, which takes every value, changed or not.
    int comparable(int count) const
    {
        return driver.currentKind != RECIPE_READ_JOB
                   ? std::min(count, reply.wholeElements(firstDataByte, BYTES_PER_DOUBLE_WORD))
                   : 0;
    }

    bool areIn(const _DATA_& area, int k) const
    {
        const unsigned char* const bytes = reply.from(firstDataByte) + BYTES_PER_DOUBLE_WORD * k;
        return qFromLittleEndian<quint32>(area.value) == qFromBigEndian<quint32>(bytes);
    }

    void store(int k) const
    {
        _DATA_& area = answeredRecord(k);
        const quint32 value = doubleWord(k);
        if (qFromLittleEndian<quint32>(area.value) != value) {
            area.writePending = 0;
            _OnlyOneDataTypeDataChange(station, regType, wrapAdd(address, k), 0, 0, 0, 0);
            qToLittleEndian(value, record(k).value);
        }
        if (driver.currentKind == RECIPE_READ_JOB)
            storeRecipeDoubleWord(k, value);
    }
};

// `comparable()` elements may be passed over when they are unchanged. It is asked anew behind
// each element stored, since the runtime may have been called.
template <typename Kind>
void storeAll(const Kind& elements, int count)
{
    for (int k = 0; k < count; ++k) {
        const int comparable = elements.comparable(count);
        if (k < comparable)
            k = endOfUnchangedRun(elements, k, comparable);
        if (k < count)
            elements.store(k);
    }
}

RegisterClass classOf(const ReadRequest& request)
{
    return request.type ? request.type->registerClass : UNKNOWN_CLASS;
}

} // namespace

void storeReadValues(const ReadRequest& request, const ReplyBytes& reply)
{
    const UndisturbedAreas undisturbed;
    const RecipeRange recipe = currentRecipeRange();
    switch (classOf(request)) {
    case BIT_CLASS:
        storeAll(Bits(request, reply), request.dataLength);
        break;
    case WORD_CLASS:
        storeAll(Words(request, reply), request.dataLength / BYTES_PER_REGISTER);
        storeRecipeWords(recipe, request, reply);
        break;
    case DOUBLE_WORD_CLASS:
        storeAll(DoubleWords(request, reply), request.dataLength / BYTES_PER_DOUBLE_WORD);
        break;
    case UNKNOWN_CLASS:
        break;
    }
}

// Bits are marked with a stride of eight addresses and 32CV with one address per
// register, on purpose: the marks reach beyond the addresses read.
void markUnanswered(const ReadRequest& request)
{
    const RegisterClass registerClass = classOf(request);
    if (registerClass == UNKNOWN_CLASS)
        return;
    const UndisturbedAreas undisturbed;
    const QString& regType = typeNames->of(request.type);
    const bool areBits = registerClass == BIT_CLASS;
    const int marks = areBits ? request.dataLength : request.dataLength / BYTES_PER_REGISTER;
    const int stride = areBits ? BITS_PER_GROUP : 1;
    for (int i = 0; i < marks; ++i)
        dataArea(request.station, regType, wrapAdd(request.address, wrapMul(i, stride))).commError =
            1;
}
