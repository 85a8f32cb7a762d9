#include "tools/panel/plan/tag_lists.h"

#include "registers/register_types.h"
#include "tools/panel/plan/range_texts.h"

#include <random>

namespace kx
{

namespace
{

AddressRange rangeFrom(const char* type, int address, int values, int station = 1)
{
    AddressRange range;
    range.type = findRegisterType(QLatin1String(type));
    range.station = station;
    range.address = address;
    range.values = values;
    return range;
}

QList<AddressRange> every(const char* type, int step, int count, int values = 1)
{
    QList<AddressRange> ranges;
    for (int i = 0; i < count; ++i)
        ranges << rangeFrom(type, i * step, values);
    return ranges;
}

QList<AddressRange> random(const char* type, int below, int count, unsigned seed)
{
    std::mt19937 source(seed);
    QList<AddressRange> ranges;
    for (int i = 0; i < count; ++i)
        ranges << rangeFrom(type, static_cast<int>(source() % static_cast<unsigned>(below)), 1);
    return ranges;
}

QList<AddressRange> fiveRangesOfFourStations()
{
    QList<AddressRange> ranges;
    for (const int station : {1, 2, 3, 4})
        ranges << rangeFrom("D", 0, 10, station) << rangeFrom("D", 30, 5, station)
               << rangeFrom("M", 0, 16, station) << rangeFrom("X", 0, 8, station)
               << rangeFrom("TV", 0, 4, station);
    return ranges;
}

} // namespace

QList<TagList> tagLists()
{
    return {
        {QStringLiteral("dense"), rangesOf(QStringLiteral("D100:100@1"))},
        {QStringLiteral("three blocks"), rangesOf(QStringLiteral("D0:60@1 D100:60@1 D200:30@1"))},
        {QStringLiteral("every tenth"), every("D", 10, 100)},
        {QStringLiteral("every fortieth"), every("D", 40, 100)},
        {QStringLiteral("all types"),
         rangesOf(QStringLiteral("X0:8@1 Y0:8@1 M0:20@1 SM0:4@1 S0:10@1 T0:4@1 C0:4@1 D0:20@1 "
                                 "SD0:4@1 CV0:4@1 32CV200:4@1 TV0:4@1 Z0:2@1"))},
        {QStringLiteral("four stations"), fiveRangesOfFourStations()},
        {QStringLiteral("500 of D0 to D7999"), random("D", 8000, 500, 1)},
        {QStringLiteral("300 of D0 to D999"), random("D", 1000, 300, 2)},
        {QStringLiteral("coils of both ranges"), rangesOf(QStringLiteral("M0:512@1 M3000:256@1"))},
        {QStringLiteral("ten blocks"), every("D", 50, 10, 20)},
        {QStringLiteral("a screen"),
         rangesOf(
             QStringLiteral("D100:20@1 D200:12@1 D260:8@1 M10:12@1 Y0:8@1 32CV200:4@1 CV0:4@1"))},
        {QStringLiteral("long"), rangesOf(QStringLiteral("D0:500@1"))},
        {QStringLiteral("every seventh coil"), every("M", 7, 200)},
        {QStringLiteral("150 of M0 to M1999"), random("M", 2000, 150, 3)},
    };
}

} // namespace kx
