/// The memory of one simulated controller: every coil and holding register of
/// its register types. What lies between the types does not exist.
#ifndef KX_KXSIM_MEMORY_CONTROLLER_MEMORY_H
#define KX_KXSIM_MEMORY_CONTROLLER_MEMORY_H

#include "registers/register_types.h"

#include <vector>

namespace kxsim
{

/// Consecutive Modbus numbers that all exist; count 0 when none does.
struct NumberRange {
    int first = 0;
    int count = 0;
};

class ControllerMemory
{
public:
    ControllerMemory();

    /// Value at a device address: 0 or 1, 16 bits, or 32 bits for 32CV. The
    /// address must be one of the type's.
    quint32 value(const RegisterType* type, int address) const;

    /// Sets a value; bits beyond the type's width are dropped.
    void setValue(const RegisterType* type, int address, quint32 value);

    /// Sets a value that move() leaves alone from then on.
    void preset(const RegisterType* type, int address, quint32 value);

    bool isPreset(const RegisterType* type, int address) const;

    /// Sets a value unless the address was preset.
    void move(const RegisterType* type, int address, quint32 value);

    /// The existing coils or registers around a Modbus number, across register
    /// types that follow each other without a gap.
    NumberRange coilsAround(int number) const;
    NumberRange registersAround(int number) const;

    /// Whether one of those coils is an input, which no request may write.
    bool holdsInput(int firstCoil, int count) const;

    /// The coil, one byte of 0 or 1, or the register at a Modbus number; those
    /// of one NumberRange lie one after the other.
    quint8* coil(int number);
    quint16* holdingRegister(int number);

private:
    template <typename Value>
    struct Space {
        std::vector<Value> values;
        std::vector<bool> exists;
        std::vector<bool> preset;
    };

    void addType(const RegisterType& type);

    Space<quint8> m_coils;
    std::vector<bool> m_inputs; ///< by coil number
    Space<quint16> m_registers;
};

} // namespace kxsim

#endif
