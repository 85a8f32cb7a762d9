/// Checks of addresses as a user types them. Pure: no driver state is touched,
/// so both may be called on any thread and from inside the value-change function.
#ifndef TARVELAN_REGISTERS_ADDRESS_CHECK_H
#define TARVELAN_REGISTERS_ADDRESS_CHECK_H

#include "driver/export.h"

#include <QtCore/QString>

/// Result codes of both checks.
enum AddressCheck {
    ADDRESS_VALID = 0,
    ADDRESS_KIND_MISMATCH = 1,     ///< bit type for a word tag, or the other way round
    ADDRESS_OUT_OF_RANGE = 2,      ///< below the lowest, or address + length past the limit
    ADDRESS_UNKNOWN_TYPE = 3,      ///< no register type has that name
    ADDRESS_NOT_A_NUMBER = 4,      ///< not a number in the type's radix
    ADDRESS_DATA_TYPE_REFUSED = 5, ///< intf_checkAddr() only: data type not allowed on 32CV
    ADDRESS_ACCESS_REFUSED = 6     ///< intf_checkAddr() only: X with access code 1 or 2
};

extern "C" {

/// Checks the address of a bit or word tag.
/// @param regType  register type name, exact and case-sensitive
/// @param addrText address as typed: octal for X and Y, else decimal; a sign and
///                 spaces around are taken; with a zero character it is no number
/// @param addr     out, not null, the caller's: the number; stored with results 0, 2
///                 and 4 (then 0), untouched with 1 and 3
/// @param length   bits or 16-bit registers from the address on that the tag covers
///                 (32CV: two per value); 0 or less is not refused
/// @param isWord   0 for a bit tag, any other value for a word tag
/// @return 0 to 4 of AddressCheck; a kind mismatch wins over all other faults
KX_EXPORT int intf_checkAddrValidity(const QString& regType, const QString& addrText, int* addr,
                                     int length, int isWord);

/// Checks the address of a tag with its data type and access.
/// @param regType, addrText, length as for intf_checkAddrValidity()
/// @param addr     the same, but also untouched with 5 and 6
/// @param dataType the runtime's data-type code; -1 means a bit tag; 32CV takes
///                 1, 3, 5, 6 and 9
/// @param access   the runtime's access code; X refuses 1 and 2
/// @return 0 to 6 of AddressCheck; order of precedence 1, 6, 5, 3, 4, 2
KX_EXPORT int intf_checkAddr(const QString& regType, const QString& addrText, int* addr,
                             int dataType, int length, int access);
}

#endif
