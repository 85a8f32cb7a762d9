#include "registers/address_series.h"

#include "driver/number_text.h"
#include "driver/wrapping.h"
#include "registers/register_types.h"

namespace
{

const int UNKNOWN_TYPE = 0;
const int ALL_WITHIN = 1;
const int SOME_CLAMPED = 2;

} // namespace

int intf_multiCopy(const QString& regType, int start, int count, int step, QVector<QString>& texts,
                   QVector<int>& addrs)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!type)
        return UNKNOWN_TYPE;
    const QString highestText = QString::fromLatin1(type->highest);
    const int highest = numberIn(highestText, type->radix);

    int result = ALL_WITHIN;
    int address = start;
    for (int copy = 0; copy < count; ++copy) {
        if (address <= highest) {
            addrs.append(address);
            texts.append(QString::number(static_cast<uint>(address), type->radix));
        } else {
            addrs.append(highest);
            texts.append(highestText);
            result = SOME_CLAMPED;
        }
        address = wrapAdd(address, step);
    }
    return result;
}
