#include "registers/register_types.h"

#include "driver/wrapping.h"

namespace
{

// The controller counts its 32-bit counters from 100 upward, two registers each.
const int DOUBLE_WORD_ORIGIN = 100;
const int REGISTERS_PER_DOUBLE_WORD = 2;

// Asked once or more per request: most types differ in their first letter.
bool isNamed(const RegisterType& type, const QString& name)
{
    const int size = static_cast<int>(name.size());
    const QChar* const letters = name.constData();
    for (int i = 0; i < size; ++i) {
        if (letters[i] != QLatin1Char(type.name[i]) || type.name[i] == '\0')
            return false;
    }
    return type.name[size] == '\0';
}

} // namespace

const RegisterType* findRegisterType(const QString& name)
{
    for (int row = 0; row < REGISTER_TYPE_COUNT; ++row) {
        if (isNamed(REGISTER_TYPES[row], name))
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
