/// What the stories of restarted communication share.
#ifndef KX_TESTS_STORIES_RESTART_H
#define KX_TESTS_STORIES_RESTART_H

#include "stories/slave.h"

#include <QtTest/QTest>

const char* const PARAMETERS = "1#0#0#3#125";
const int RECIPE_BLOCKS = 4;

inline void watch(const char* type, int address, int count)
{
    QList<KEY_ADDRESS> watched;
    watched << key(1, type, address, count);
    intf_addrMerge(watched);
}

/// A request has all of its repetitions, and a good reply is accepted.
inline void exchangesWell(DriverFixture& runtime)
{
    watch("TV", 7, 1);
    QCOMPARE(runtime.poll(), withCrc("01 03 232F 0001"));
    QCOMPARE(runtime.deal(QByteArray()), 8);
    QCOMPARE(runtime.deal(QByteArray()), 8);
    QCOMPARE(runtime.deal(withCrc("01 03 02 4321")), 1);
    QCOMPARE(DriverFixture::data(1, "TV", 7, 1, 2), bytes("2143"));
}

/// D10, D250, D490 and D730, a request each.
inline void planRecipeOfFourBlocks()
{
    planRecipe({{"D", 10, 1, 0}, {"D", 250, 1, 1}, {"D", 490, 1, 2}, {"D", 730, 1, 3}});
}

#endif
