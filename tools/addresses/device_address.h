/// The way back from Modbus numbers on the wire to the controller's own addresses.
#ifndef KX_ADDRESSES_DEVICE_ADDRESS_H
#define KX_ADDRESSES_DEVICE_ADDRESS_H

struct RegisterType; // a row of the driver's table of types

namespace kx
{

/// What a coil or holding register is to the controller.
struct DeviceAddress {
    const RegisterType* type = nullptr; ///< null: nothing of this controller
    int address = 0;                    ///< as a number
    int part = 0;                       ///< 1: the second register of a value that has two
};

/// @param number zero-based, as frames carry it
DeviceAddress deviceAddressOfCoil(int number);
DeviceAddress deviceAddressOfRegister(int number);

} // namespace kx

#endif
