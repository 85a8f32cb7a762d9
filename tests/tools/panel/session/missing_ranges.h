#ifndef KX_TESTS_TOOLS_PANEL_SESSION_MISSING_RANGES_H
#define KX_TESTS_TOOLS_PANEL_SESSION_MISSING_RANGES_H

#include "addresses/address_text.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

namespace kx
{

inline AddressRange rangeOfD(int address, int values, int station)
{
    return {findRegisterType(QStringLiteral("D")), address, values, station};
}

/// Rows of ranges that no controller has, in a column "range".
inline void addMissingRanges()
{
    const int most = 2147483647;
    QTest::addColumn<AddressRange>("range");
    QTest::newRow("no type") << AddressRange{nullptr, 0, 1, 1};
    QTest::newRow("station 0") << rangeOfD(0, 1, 0);
    QTest::newRow("no value") << rangeOfD(0, 0, 1);
    QTest::newRow("fewer than none") << rangeOfD(0, -1, 1);
    QTest::newRow("more than there are") << rangeOfD(0, most, 1);
    QTest::newRow("before D0") << rangeOfD(-1, 1, 1);
    // Cut into requests of 32, the first would fit.
    QTest::newRow("running past D7999") << rangeOfD(7960, 41, 1);
}

} // namespace kx

#endif
