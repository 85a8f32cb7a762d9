#include "registers/register_types.h"

#include "driver/wrapping.h"

namespace
{

// The controller counts its 32-bit counters from 100 upward, two registers each.
const int DOUBLE_WORD_ORIGIN = 100;
const int REGISTERS_PER_DOUBLE_WORD = 2;

// Asked twice per request and once per watched address, so names are compared as a whole:
// their letters as one number, the first letter in the lowest byte.
const int LONGEST_NAME = 4;
const quint32 NO_NAME = 0;

constexpr int lengthOf(const char* name)
{
    return *name == '\0' ? 0 : 1 + lengthOf(name + 1);
}

constexpr bool namesFit(int row)
{
    return row == REGISTER_TYPE_COUNT
           || (lengthOf(REGISTER_TYPES[row].name) <= LONGEST_NAME && namesFit(row + 1));
}

static_assert(namesFit(0), "the letters of each name fill 32 bits at most");

constexpr quint32 packed(const char* name)
{
    return *name == '\0' ? 0u : static_cast<unsigned char>(*name) | packed(name + 1) << 8;
}

constexpr quint32 nameOf(int row)
{
    return packed(REGISTER_TYPES[row].name);
}

constexpr quint32 PACKED_NAMES[REGISTER_TYPE_COUNT] = {
    nameOf(0), nameOf(1), nameOf(2), nameOf(3),  nameOf(4),  nameOf(5), nameOf(6),
    nameOf(7), nameOf(8), nameOf(9), nameOf(10), nameOf(11), nameOf(12)};

// NO_NAME when a letter has no byte of its own.
quint32 packed(const QString& name)
{
    const int size = static_cast<int>(name.size());
    if (size > LONGEST_NAME)
        return NO_NAME;
    const QChar* const letters = name.constData();
    quint32 whole = NO_NAME;
    for (int i = 0; i < size; ++i) {
        const quint32 letter = letters[i].unicode();
        if (letter == 0 || letter > 0xFF)
            return NO_NAME;
        whole |= letter << 8 * i;
    }
    return whole;
}

} // namespace

const RegisterType* findRegisterType(const QString& name)
{
    const quint32 wanted = packed(name);
    for (int row = 0; row < REGISTER_TYPE_COUNT; ++row) {
        if (PACKED_NAMES[row] == wanted)
            return &REGISTER_TYPES[row];
    }
    return nullptr;
}

int registerTypeRow(const RegisterType* type)
{
    return static_cast<int>(type - REGISTER_TYPES);
}

RegisterClass registerClassOf(const QString& name)
{
    const RegisterType* const type = findRegisterType(name);
    return type ? type->registerClass : UNKNOWN_CLASS;
}

int modbusNumber(const RegisterType* type, int address)
{
    if (!type)
        return address;
    const int base = address < type->split ? type->baseBelow : type->baseFrom;
    if (type->registerClass == DOUBLE_WORD_CLASS)
        return wrapAdd(base,
                       wrapMul(wrapSub(address, DOUBLE_WORD_ORIGIN), REGISTERS_PER_DOUBLE_WORD));
    return wrapAdd(base, address);
}

int registersPerAddress(const RegisterType* type)
{
    return type && type->registerClass == DOUBLE_WORD_CLASS ? REGISTERS_PER_DOUBLE_WORD : 1;
}

bool liesPastSplit(const RegisterType* type, int first, int address)
{
    return type && type->splitKeepsApart && address >= type->split && first < type->split;
}
