#include "data/write_completion.h"

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/value_size.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/type_names.h"

#include <cstring>

namespace
{

const int CONFIRMED = 1;

void confirm(const RegisterType* type, int station, const QString& regType, int address)
{
    _DATA_& area = dataArea(station, regType, address);
    area.writePending = 0;
    std::memcpy(area.value, area.writeValue, static_cast<size_t>(valueSize(type->registerClass)));
    if (type->registerClass == DOUBLE_WORD_CLASS)
        _OnlyOneDataTypeDataChange(station, regType, address, 0, 0, 0, 0);
    else
        tellRuntime(driver.linkId, station, regType, address);
}

void abandon(const RegisterType* type, int station, const QString& regType, int address)
{
    _DATA_& area = dataArea(station, regType, address);
    area.writePending = 0;
    if (type->registerClass == BIT_CLASS) {
        tellRuntime(driver.linkId, station, regType, address);
    } else if (type->registerClass == WORD_CLASS) {
        int read = wordOf(area.value);
        int written = wordOf(area.writeValue);
        _wordDataChange(&read, &written, station, regType, address, 0);
    } else {
        _OnlyOneDataTypeDataChange(station, regType, address, 0, 0, 0, 0);
    }
}

} // namespace

void _write_FailOrSuc(int station, QString regType, int address, int count, int success)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!type)
        return;
    const int values = count / registersPerAddress(type);
    const QString& name = typeNames->of(type);
    const UndisturbedAreas undisturbed;
    for (int i = 0; i < values; ++i) {
        const int valueAddress = wrapAdd(address, i);
        if (success == CONFIRMED)
            confirm(type, station, name, valueAddress);
        else
            abandon(type, station, name, valueAddress);
    }
}
