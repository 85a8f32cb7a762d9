/// The register catalogue as the runtime sees it. Row r of one table belongs to
/// row r of the others; the tables never change and may be read on any thread.
#ifndef TARVELAN_REGISTERS_REGISTER_CATALOGUE_H
#define TARVELAN_REGISTERS_REGISTER_CATALOGUE_H

#include "driver/export.h"

#include <QtCore/QList>
#include <QtCore/QString>

/// The 13 register type names: X, Y, M, SM, S, T, C, D, SD, CV, 32CV, TV, Z.
extern KX_EXPORT QString REG_LIST[13];

/// Five columns per row, element 5 * row + column: address format ("O" an octal
/// digit, "d" a decimal one), lowest and highest address as typed in the type's
/// own radix, data type ("0" bit, "1" 16-bit word, "2" 32-bit), last ("1").
extern KX_EXPORT QString REG_DESCRIPTION[13 * 5];

/// Three values per row: split address, base below the split, base from it on.
/// Modbus number = address + base, zero-based (32CV: base + (address - 100) * 2).
extern KX_EXPORT const int REG_OFFSET[13 * 3];

extern "C" {

/// Lists the register types of one kind. Pure: may be called on any thread and from
/// inside the value-change function.
/// @param kind  0: bit types (SM before M); 1: word types, 32CV among them; other: none
/// @param names the names are appended; not cleared, stays the caller's
/// @return 1, or 0 for any other kind
KX_EXPORT int intf_getRegListByType(int kind, QList<QString>& names);

/// Describes one register type. Pure, as intf_getRegListByType().
/// @param regType     exact, case-sensitive name
/// @param description the five columns of `REG_DESCRIPTION` are appended; not cleared,
///                    stays the caller's
/// @return 1, or 0 (nothing appended) when no type has that name
KX_EXPORT int intf_getRegDiscription(const QString& regType, QList<QString>& description);
}

#endif
