#include "model/plain_driver.h"

namespace
{

/// Length of `block` once it has taken in `entry`.
int span(const KEY_ADDRESS& entry, const KEY_ADDRESS& block)
{
    const qint64 registers = is32Type(entry.regType) ? 2 : 1;
    const qint64 distance = static_cast<qint64>(entry.address) - block.address;
    return wrapped(entry.count + registers * distance);
}

/// Elements between the end of `block` and the start of `entry`.
int gap(const KEY_ADDRESS& entry, const KEY_ADDRESS& block)
{
    return wrapped(static_cast<qint64>(entry.address) - block.address - block.count);
}

bool mustStayApart(const KEY_ADDRESS& entry, const KEY_ADDRESS& block)
{
    if (entry.station != block.station || entry.regType != block.regType)
        return true;
    if (entry.regType == QLatin1String("SD") && entry.address > 255 && block.address <= 255)
        return true;
    return entry.regType == QLatin1String("M") && entry.address >= 2048 && block.address < 2048;
}

} // namespace

void PlainDriver::sortByWeight(QList<KEY_ADDRESS>& list) const
{
    const int n = static_cast<int>(list.size());
    for (int pass = 0; pass < n - 1; ++pass) {
        for (int j = 0; j <= n - pass - 2; ++j) {
            const KEY_ADDRESS a = list.at(j);
            const KEY_ADDRESS b = list.at(j + 1);
            if (weight(a.station, a.regType, a.address) > weight(b.station, b.regType, b.address)) {
                list[j] = b;
                list[j + 1] = a;
            }
        }
    }
}

QList<KEY_ADDRESS> PlainDriver::joinTouching(const QList<KEY_ADDRESS>& list, int mode)
{
    QList<KEY_ADDRESS> closed;
    const int last = static_cast<int>(list.size()) - 1;
    if (mode == 2)
        intList.append(0);
    KEY_ADDRESS block = list.at(0);
    if (last == 0)
        closed.append(block);
    for (int i = 0; i <= last; ++i) {
        const KEY_ADDRESS entry = list.at(i);
        const int joined = span(entry, block);
        if (mustStayApart(entry, block) || gap(entry, block) > 0 || joined > maxWords) {
            closed.append(block);
            block = entry;
            if (mode == 2)
                intList.append(i);
        } else if (joined > block.count) {
            block.count = joined;
        }
        if (i == last)
            closed.append(block);
    }
    return closed;
}

QList<KEY_ADDRESS> PlainDriver::bridgeGaps(const QList<KEY_ADDRESS>& blocks) const
{
    QList<KEY_ADDRESS> closed;
    const int last = static_cast<int>(blocks.size()) - 1;
    KEY_ADDRESS group = blocks.at(0);
    for (int i = 1; i <= last; ++i) {
        const KEY_ADDRESS entry = blocks.at(i);
        const int joined = span(entry, group);
        if (mustStayApart(entry, group) || gap(entry, group) > maxWords || joined > maxWords) {
            closed.append(group);
            group = entry;
        } else if (joined > group.count) {
            group.count = joined;
        }
    }
    closed.append(group);
    return closed;
}

void PlainDriver::mergeAddresses(QList<KEY_ADDRESS>& list, int mode)
{
    if (mode != 2)
        sortByWeight(list);
    QList<KEY_ADDRESS> blocks = joinTouching(list, mode);
    if (mode != 2)
        blocks = bridgeGaps(blocks);
    list = blocks;
}
