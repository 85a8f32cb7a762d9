/// The driver's records as ranges and values. Pure functions.
#ifndef KX_PANEL_SESSION_DRIVER_VALUES_H
#define KX_PANEL_SESSION_DRIVER_VALUES_H

#include "addresses/address_text.h"
#include "driver/records.h"

#include <QtCore/QByteArray>

namespace kx
{

/// A type that does not exist gives a range without a type.
AddressRange rangeOf(const VARIABLE& job);
AddressRange rangeOf(const _RCP_VAR_PRO& variable);

/// Bytes that the driver takes for all values of the range: one per bit, two per register,
/// four per 32CV.
int bytesOf(const AddressRange& range);

/// The lowest byte of each value first.
QByteArray driverBytes(const Assignment& assignment);

/// The values in an accepted reply to a read of the range, whatever the driver's cache holds.
QList<qint64> valuesOfReply(const AddressRange& range, const QByteArray& reply);

/// @param bytes bytesOf(range), the lowest of each value first
QList<qint64> valuesOf(const AddressRange& range, const QByteArray& bytes);

} // namespace kx

#endif
