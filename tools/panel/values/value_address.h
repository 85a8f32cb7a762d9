/// Addresses and assignments with a format behind them: D100:4@2/float, D100.5, D100/s16*0.1=12.5.
#ifndef KX_PANEL_VALUES_VALUE_ADDRESS_H
#define KX_PANEL_VALUES_VALUE_ADDRESS_H

#include "addresses/address_text.h"
#include "panel/values/value_format.h"

namespace kx
{

/// Parses TYPENUMBER[.BIT][:COUNT][@STATION][/FORMAT], the count being in values. `*range` then
/// covers all addresses of the values.
/// @return false and in `*fault` what is wrong, without the address in front
KXRUNTIME_EXPORT bool parseValueAddress(const QString& typed, AddressRange* range,
                                        ValueFormat* format, QString* fault);

/// Makes `*range`, which covers as many addresses as there are values, cover all of theirs.
/// @return false and in `*fault` why the format or that many values do not suit it
KXRUNTIME_EXPORT bool coverValues(AddressRange* range, ValueFormat* format, QString* fault);

/// How many values a range of a format holds.
KXRUNTIME_EXPORT int valuesIn(const AddressRange& range, const ValueFormat& format);

/// What parseValueAddress() takes: "D100:4@2/float", "D100.5". A station below 1 is left out.
KXRUNTIME_EXPORT QString valueAddressText(const AddressRange& range, const ValueFormat& format);

/// The address of one value as rows name it, without format: "D102", "D100.5".
KXRUNTIME_EXPORT QString valueName(const AddressRange& range, const ValueFormat& format, int value);

} // namespace kx

#endif
