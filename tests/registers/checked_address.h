/// The two checks of a typed address, with the number that they gave.
#ifndef KX_TESTS_REGISTERS_CHECKED_ADDRESS_H
#define KX_TESTS_REGISTERS_CHECKED_ADDRESS_H

#include "registers/address_check.h"

#include <limits>

const int UNTOUCHED = -4711;
const int BIT_TAG = -1;
const int LOWEST_INT = std::numeric_limits<int>::min();
const int HIGHEST_INT = std::numeric_limits<int>::max();

struct Checked {
    int result;
    int address;
};

inline Checked validity(const QString& type, const QString& text, int length, int isWord)
{
    Checked checked = {0, UNTOUCHED};
    checked.result = intf_checkAddrValidity(type, text, &checked.address, length, isWord);
    return checked;
}

inline Checked check(const QString& type, const QString& text, int dataType, int length, int access)
{
    Checked checked = {0, UNTOUCHED};
    checked.result = intf_checkAddr(type, text, &checked.address, dataType, length, access);
    return checked;
}

#endif
