#include "data/written_values.h"

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/value_size.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/type_names.h"

#include <cstring>

namespace
{

void reportWrite(RegisterClass registerClass, int station, const QString& regType, int address,
                 const unsigned char* newBytes)
{
    if (registerClass == BIT_CLASS) {
        tellRuntime(driver.linkId, station, regType, address);
    } else if (registerClass == WORD_CLASS) {
        int oldWord = wordOf(visibleValue(dataArea(station, regType, address)));
        int newWord = wordOf(newBytes);
        _wordDataChange(&oldWord, &newWord, station, regType, address, 0);
    } else {
        _OnlyOneDataTypeDataChange(station, regType, address, 0, 0, 0, 0);
    }
}

} // namespace

void write_saveDataToArea(int station, QString regType, int address, int count, unsigned char* data)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!type)
        return;
    const int size = valueSize(type->registerClass);
    const int values = count / registersPerAddress(type);
    const QString& name = typeNames->of(type);
    const UndisturbedAreas undisturbed;
    for (int i = 0; i < values; ++i) {
        const int valueAddress = wrapAdd(address, i);
        const unsigned char* const newBytes = data + static_cast<qint64>(i) * size;
        const _DATA_& before = dataArea(station, name, valueAddress);
        if (std::memcmp(visibleValue(before), newBytes, static_cast<size_t>(size)) != 0)
            reportWrite(type->registerClass, station, name, valueAddress, newBytes);

        // The value-change function may have created records: look it up again.
        _DATA_& area = dataArea(station, name, valueAddress);
        std::memcpy(area.writeValue, newBytes, static_cast<size_t>(size));
        area.writePending = 1;
    }
}
