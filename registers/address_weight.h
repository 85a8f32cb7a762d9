#ifndef TARVELAN_REGISTERS_ADDRESS_WEIGHT_H
#define TARVELAN_REGISTERS_ADDRESS_WEIGHT_H

#include "driver/export.h"

#include <QtCore/QString>

/// Sort key of an address: 65535 * (5 * station + p) + addr in wrapping 32-bit
/// arithmetic, p being the position of the type in `driver.regNames` from 1, or
/// 0 when it is not there. The key spaces of neighbouring stations overlap on
/// purpose, so sorting interleaves stations.
/// @param flag has no effect
KX_EXPORT unsigned int getRegAddressWeight(int station, QString regType, int addr, int flag);

/// The position p of a register type, for callers that weigh many addresses.
int registerTypePosition(const QString& regType);

/// The sort key of an address whose type has position `position`.
unsigned int addressWeight(int station, int position, int address);

#endif
