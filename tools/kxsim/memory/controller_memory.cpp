#include "kxsim/memory/controller_memory.h"

#include "registers/register_types.h"

#include <algorithm>
#include <cstddef>

namespace kxsim
{

namespace
{

// Requests carry 16-bit Modbus numbers.
const std::size_t MODBUS_NUMBERS = 65536;
const int REGISTER_BITS = 16;

std::size_t indexOf(const RegisterType* type, int address)
{
    return static_cast<std::size_t>(modbusNumber(type, address));
}

NumberRange rangeAround(const std::vector<bool>& exists, int number)
{
    NumberRange range;
    if (!exists.at(static_cast<std::size_t>(number)))
        return range;
    const auto here = exists.begin() + number;
    const auto end = std::find(here, exists.end(), false);
    const auto before = std::find(std::make_reverse_iterator(here), exists.rend(), false);
    range.first = static_cast<int>(before.base() - exists.begin());
    range.count = static_cast<int>(end - before.base());
    return range;
}

} // namespace

ControllerMemory::ControllerMemory()
{
    m_coils = {std::vector<quint8>(MODBUS_NUMBERS), std::vector<bool>(MODBUS_NUMBERS),
               std::vector<bool>(MODBUS_NUMBERS)};
    m_registers = {std::vector<quint16>(MODBUS_NUMBERS), std::vector<bool>(MODBUS_NUMBERS),
                   std::vector<bool>(MODBUS_NUMBERS)};
    m_inputs.resize(MODBUS_NUMBERS);
    for (const RegisterType& type : REGISTER_TYPES)
        addType(type);
}

void ControllerMemory::addType(const RegisterType& type)
{
    std::vector<bool>& exists =
        type.registerClass == BIT_CLASS ? m_coils.exists : m_registers.exists;
    const int highest = QString::fromLatin1(type.highest).toInt(nullptr, type.radix);
    const int numbersPerAddress = registersPerAddress(&type);
    for (int address = type.lowestAddress; address <= highest; ++address) {
        const int number = modbusNumber(&type, address);
        std::fill_n(exists.begin() + number, numbersPerAddress, true);
        // All that cannot be written are bits.
        if (!type.writable)
            m_inputs.at(static_cast<std::size_t>(number)) = true;
    }
}

quint32 ControllerMemory::value(const RegisterType* type, int address) const
{
    const std::size_t index = indexOf(type, address);
    if (type->registerClass == BIT_CLASS)
        return m_coils.values.at(index);
    const quint32 first = m_registers.values.at(index);
    if (type->registerClass == WORD_CLASS)
        return first;
    // A 32CV value lies in two registers, high word first.
    return first << REGISTER_BITS | m_registers.values.at(index + 1);
}

void ControllerMemory::setValue(const RegisterType* type, int address, quint32 value)
{
    const std::size_t index = indexOf(type, address);
    if (type->registerClass == BIT_CLASS) {
        m_coils.values.at(index) = value & 1;
    } else if (type->registerClass == WORD_CLASS) {
        m_registers.values.at(index) = static_cast<quint16>(value);
    } else {
        m_registers.values.at(index) = static_cast<quint16>(value >> REGISTER_BITS);
        m_registers.values.at(index + 1) = static_cast<quint16>(value);
    }
}

void ControllerMemory::preset(const RegisterType* type, int address, quint32 value)
{
    setValue(type, address, value);
    std::vector<bool>& presets =
        type->registerClass == BIT_CLASS ? m_coils.preset : m_registers.preset;
    presets.at(indexOf(type, address)) = true;
}

bool ControllerMemory::isPreset(const RegisterType* type, int address) const
{
    const std::vector<bool>& presets =
        type->registerClass == BIT_CLASS ? m_coils.preset : m_registers.preset;
    return presets.at(indexOf(type, address));
}

void ControllerMemory::move(const RegisterType* type, int address, quint32 value)
{
    if (!isPreset(type, address))
        setValue(type, address, value);
}

NumberRange ControllerMemory::coilsAround(int number) const
{
    return rangeAround(m_coils.exists, number);
}

NumberRange ControllerMemory::registersAround(int number) const
{
    return rangeAround(m_registers.exists, number);
}

bool ControllerMemory::holdsInput(int firstCoil, int count) const
{
    const auto first = m_inputs.begin() + qMin<int>(firstCoil, MODBUS_NUMBERS);
    const auto end = m_inputs.begin() + qMin<int>(firstCoil + count, MODBUS_NUMBERS);
    return std::find(first, end, true) != end;
}

quint8* ControllerMemory::coil(int number)
{
    return &m_coils.values.at(static_cast<std::size_t>(number));
}

quint16* ControllerMemory::holdingRegister(int number)
{
    return &m_registers.values.at(static_cast<std::size_t>(number));
}

} // namespace kxsim
