// A sequence of calls of everything that the library exports, in any order and with
// any arguments, the value-change function calling back.

#include "calls/calls.h"
#include "data/data_areas.h"
#include "support/require.h"

#include <QtCore/QSet>

namespace
{

const int DEEPEST_CALL_BACK = 3;

void makeCall(InputReader* input, Panel* panel)
{
    const int choice = input->byte();
    if (choice >= 0xB0 && choice < 0xC0)
        panel->registerFunction(choice % 2 == 1);
    else if (choice < 0xC0)
        ENTRY_POINTS[choice % ENTRY_POINT_COUNT](input, panel);
    else
        INNER_CALLS[choice % INNER_CALL_COUNT](input, panel);
}

// Most reports are only noted, half of the rest read or write a value.
void callBack(InputReader* input, Panel* panel, int* depth)
{
    if (*depth == DEEPEST_CALL_BACK || input->isEmpty())
        return;
    const int choice = input->byte();
    if (choice < 0x80)
        return;
    ++*depth;
    if (choice < 0xA0)
        read(input);
    else if (choice < 0xC0)
        write(input);
    else
        makeCall(input, panel);
    --*depth;
}

// However the cache was made, each address has one record, and it is the one found.
void checkCache()
{
    QSet<QString> keys;
    for (int i = 0; i < driver.dataAreas.size() && i < MOST_ELEMENTS; ++i) {
        const _DATA_& area = driver.dataAreas.at(i);
        const QString key =
            QStringLiteral("%1 %2 %3").arg(area.station).arg(area.address).arg(area.regType);
        require(!keys.contains(key), "each address has one record");
        keys.insert(key);
        const int found =
            getIndexOfDataArea(area.station, area.regType, area.address, driver.dataAreas);
        require(found == i, "each record is found");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    InputReader input(bytes, size);
    Panel panel("1#0#0#3#32");
    forgetTampering();
    int depth = 0;
    panel.onReport = [&]() { callBack(&input, &panel, &depth); };
    while (!input.isEmpty()) {
        makeCall(&input, &panel);
        panel.check();
    }
    if (!isCacheTamperedWith())
        checkCache();
    return 0;
}
