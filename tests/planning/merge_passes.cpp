#include "planning/merge_passes.h"

#include <QtCore/QStringList>

namespace
{

using Keys = QList<KEY_ADDRESS>;

quint32 weight(const KEY_ADDRESS& e)
{
    const QStringList order = {"X", "Y",  "M",  "SM", "S",    "T", "C",
                               "D", "SD", "TV", "CV", "32CV", "Z"};
    const int position = static_cast<int>(order.indexOf(e.regType)) + 1;
    return static_cast<quint32>(65535ll * (5 * e.station + position) + e.address);
}

void bubbleSort(Keys& keys)
{
    for (int p = 0; p < keys.size() - 1; ++p) {
        for (int j = 0; j <= keys.size() - p - 2; ++j) {
            if (weight(keys[j]) > weight(keys[j + 1]))
                std::swap(keys[j], keys[j + 1]);
        }
    }
}

bool crosses(const KEY_ADDRESS& b, const KEY_ADDRESS& e)
{
    if (b.regType == "SD" && e.regType == "SD")
        return e.address > 255 && b.address <= 255;
    return b.regType == "M" && e.regType == "M" && e.address >= 2048 && b.address < 2048;
}

bool anew(const KEY_ADDRESS& e, const KEY_ADDRESS& b, int gap)
{
    return e.station != b.station || e.regType != b.regType
           || e.address - (b.address + b.count) > gap || crosses(b, e);
}

int span(const KEY_ADDRESS& e, const KEY_ADDRESS& b)
{
    return e.count + (e.regType == "32CV" ? 2 : 1) * (e.address - b.address);
}

Keys joiningPass(const Keys& entries, int maxWords, QList<int>& starts)
{
    Keys closed;
    KEY_ADDRESS b = entries.at(0);
    const int n = static_cast<int>(entries.size());
    starts << 0;
    if (n == 1)
        closed << b;
    for (int i = 0; i < n; ++i) {
        const KEY_ADDRESS& e = entries.at(i);
        if (anew(e, b, 0) || span(e, b) > maxWords) {
            closed << b;
            b = e;
            starts << i;
        } else if (span(e, b) > b.count) {
            b.count = span(e, b);
        }
        if (i == n - 1)
            closed << b;
    }
    return closed;
}

Keys bridgingPass(const Keys& blocks, int maxWords)
{
    Keys closed;
    KEY_ADDRESS g = blocks.at(0);
    const int m = static_cast<int>(blocks.size());
    if (m == 1)
        return blocks;
    for (int i = 1; i < m; ++i) {
        const KEY_ADDRESS& e = blocks.at(i);
        if (anew(e, g, maxWords)) {
            closed << g;
            if (i == m - 1)
                closed << e;
            else
                g = e;
            continue;
        }
        if (span(e, g) > maxWords) {
            closed << g;
            g = e;
        } else if (span(e, g) > g.count) {
            g.count = span(e, g);
        }
        if (i == m - 1)
            closed << g;
    }
    return closed;
}

} // namespace

Keys plainMergeForReading(Keys entries, int maxWords)
{
    bubbleSort(entries);
    QList<int> ignored;
    return bridgingPass(joiningPass(entries, maxWords, ignored), maxWords);
}

Keys plainMergeForRecipe(const Keys& entries, int maxWords, QList<int>& blockStarts)
{
    return joiningPass(entries, maxWords, blockStarts);
}
