#include "registers/address_check.h"

#include "driver/number_text.h"
#include "registers/register_types.h"

namespace
{

const int BIT_TAG = -1;

bool suitsTag(const RegisterType* type, bool wordTag)
{
    return !type || (type->registerClass != BIT_CLASS) == wordTag;
}

bool isDoubleWordDataType(int dataType)
{
    return dataType == 1 || dataType == 3 || dataType == 5 || dataType == 6 || dataType == 9;
}

int checkRange(const RegisterType* type, const QString& addrText, int* addr, int length)
{
    if (!type)
        return ADDRESS_UNKNOWN_TYPE;
    bool isNumber = false;
    *addr = numberIn(addrText, type->radix, &isNumber);
    if (!isNumber)
        return ADDRESS_NOT_A_NUMBER;
    // 64-bit: a length near the edge of int must not wrap into the range.
    const qint64 end = static_cast<qint64>(*addr) + length;
    if (*addr < type->lowestAddress || end > type->limit)
        return ADDRESS_OUT_OF_RANGE;
    return ADDRESS_VALID;
}

} // namespace

int intf_checkAddrValidity(const QString& regType, const QString& addrText, int* addr, int length,
                           int isWord)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!suitsTag(type, isWord != 0))
        return ADDRESS_KIND_MISMATCH;
    return checkRange(type, addrText, addr, length);
}

int intf_checkAddr(const QString& regType, const QString& addrText, int* addr, int dataType,
                   int length, int access)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!suitsTag(type, dataType != BIT_TAG))
        return ADDRESS_KIND_MISMATCH;
    if (regType == QLatin1String("X") && (access == 1 || access == 2))
        return ADDRESS_ACCESS_REFUSED;
    if (type && type->registerClass == DOUBLE_WORD_CLASS && !isDoubleWordDataType(dataType))
        return ADDRESS_DATA_TYPE_REFUSED;
    return checkRange(type, addrText, addr, length);
}
