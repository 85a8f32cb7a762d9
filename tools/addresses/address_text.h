/// Addresses and assignments as a panel's user types them: D100, D100:4, X17,
/// 32CV200, M0@2, D100=1234, M0=1,0,1. X and Y are octal, all others decimal.
#ifndef KX_ADDRESSES_ADDRESS_TEXT_H
#define KX_ADDRESSES_ADDRESS_TEXT_H

#include "addresses/export.h"

#include <QtCore/QList>
#include <QtCore/QString>

struct RegisterType; // a row of the driver's table of types

namespace kx
{

/// Consecutive addresses of one register type.
struct KXRUNTIME_EXPORT AddressRange {
    const RegisterType* type = nullptr;
    int address = 0;  ///< first device address, as a number
    int values = 1;   ///< addresses covered; a 32CV value is one
    int station = -1; ///< after "@"; -1 when not given
    int width = 1;    ///< addresses of one value, which no request cuts; `values` is a multiple

    /// Bits, or 16-bit registers (two per 32CV value), as the driver counts.
    int driverCount() const;
};

/// Values for consecutive addresses.
struct Assignment {
    AddressRange range;
    QList<qint64> values; ///< one per address: 0 or 1, -32768..65535, or 32 bits
    int bit = -1; ///< 0 to 15: the value is that bit of the one word, which a WriteJob reads
};

/// The parts of TYPENUMBER[:COUNT][@STATION] as typed; null: left out.
struct AddressParts {
    QString type;
    QString number;
    QString count;
    QString station;
};

/// Splits an address; whether the parts are any good is not looked at. False when no
/// type stands at its beginning.
KXRUNTIME_EXPORT bool parseAddressParts(const QString& typed, AddressParts* parts);

/// Parses TYPENUMBER[:COUNT][@STATION]. Returns false and one line in
/// `*error` when the type is unknown, a digit does not suit its radix, the range
/// leaves the type's addresses, or the station is not 1 to 247.
/// `*range` then holds the parts before the wrong one, and is else as constructed.
KXRUNTIME_EXPORT bool parseAddressRange(const QString& text, AddressRange* range, QString* error);

/// The same, with what is wrong in `*fault` without the address in front.
KXRUNTIME_EXPORT bool parseAddress(const QString& text, AddressRange* range, QString* fault);

/// "D8000: out of range", in one line whatever was typed.
KXRUNTIME_EXPORT QString faultyText(const QString& typed, const QString& fault);

/// Parses RANGE=VALUE[,VALUE...]; values decimal, 0x hexadecimal or negative. A
/// count, when given, must equal the number of values. Each value must fit.
KXRUNTIME_EXPORT bool parseAssignment(const QString& text, Assignment* assignment, QString* error);

/// The address as a user types it, octal for X and Y: "X17", "32CV200".
KXRUNTIME_EXPORT QString addressText(const RegisterType* type, int address);

/// "X0 to X377 (octal)".
KXRUNTIME_EXPORT QString addressesOf(const RegisterType* type);

/// "X, Y, M, ...", in the catalogue's order.
KXRUNTIME_EXPORT QString registerTypeNames();

/// The highest address of a type, as a number.
KXRUNTIME_EXPORT int highestAddress(const RegisterType* type);

/// The lowest and the highest value that may be assigned: bits 0 and 1; words and 32CV from the
/// lowest signed to the highest unsigned value.
KXRUNTIME_EXPORT qint64 lowestValue(const RegisterType* type);
KXRUNTIME_EXPORT qint64 highestValue(const RegisterType* type);

} // namespace kx

#endif
