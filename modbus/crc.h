#ifndef TARVELAN_MODBUS_CRC_H
#define TARVELAN_MODBUS_CRC_H

#include <QtCore/QtGlobal>

/// CRC-16/MODBUS of `length` bytes: reflected polynomial 0xA001, initial value
/// 0xFFFF. A frame carries the low byte first. A length below 1 gives 0xFFFF.
quint16 modbusCrc(const unsigned char* bytes, int length);

#endif
