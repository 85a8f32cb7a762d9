#include "registers/recipe_addresses.h"

#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "registers/address_weight.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace
{

typedef std::pair<unsigned int, int> WeightedIndex;

bool weighsLess(const WeightedIndex& a, const WeightedIndex& b)
{
    return a.first < b.first;
}

// Ascending by weight; variables of equal weight keep their order.
QVector<_RCP_VAR_PRO> sortedByWeight(const QVector<_RCP_VAR_PRO>& variables)
{
    std::vector<WeightedIndex> order;
    order.reserve(static_cast<size_t>(variables.size()));
    for (int i = 0; i < variables.size(); ++i) {
        const _RCP_VAR_PRO& variable = variables.at(i);
        const int position = registerTypePosition(variable.regType);
        order.push_back(
            WeightedIndex(addressWeight(variable.station, position, variable.address), i));
    }
    std::stable_sort(order.begin(), order.end(), weighsLess);

    QVector<_RCP_VAR_PRO> sorted;
    sorted.reserve(variables.size());
    for (size_t i = 0; i < order.size(); ++i)
        sorted.append(variables.at(order[i].second));
    return sorted;
}

QList<KEY_ADDRESS> asKeys(const QVector<_RCP_VAR_PRO>& variables)
{
    QList<KEY_ADDRESS> keys;
    for (int i = 0; i < variables.size(); ++i) {
        const _RCP_VAR_PRO& variable = variables.at(i);
        KEY_ADDRESS key = KEY_ADDRESS();
        key.station = variable.station;
        key.regType = variable.regType;
        key.address = variable.address;
        key.count = variable.count;
        key.keyTag2 = variable.bufOffset;
        keys.append(key);
    }
    return keys;
}

_RCP_VAR_PRO asBlock(const KEY_ADDRESS& merged)
{
    _RCP_VAR_PRO block = _RCP_VAR_PRO();
    block.station = merged.station;
    block.regType = merged.regType;
    block.address = merged.address;
    block.count = merged.count;
    block.bufOffset = merged.keyTag2;
    return block;
}

} // namespace

int intf_setRcpAddress(QVector<_RCP_VAR_PRO>& vars)
{
    driver.rcpVarsA = QVector<_RCP_VAR_PRO>();
    for (int i = 0; i < vars.size(); ++i) {
        if (vars.at(i).rcpId == driver.linkId)
            driver.rcpVarsA.append(vars.at(i));
    }
    driver.rcpVarsA = sortedByWeight(driver.rcpVarsA);

    QList<KEY_ADDRESS> keys = asKeys(driver.rcpVarsA);
    driver.intList.clear();
    driver.rcpVars = QVector<_RCP_VAR_PRO>();
    if (!keys.isEmpty())
        addrMerge(keys, RECIPE_MERGE);
    for (int i = 0; i < keys.size(); ++i)
        driver.rcpVars.append(asBlock(keys.at(i)));
    return static_cast<int>(driver.rcpVarsA.size());
}

void rcpAddrToVar(_RCP_VAR_PRO var, VARIABLE& job, int withData)
{
    job.station = var.station;
    job.regType = var.regType;
    job.address = var.address;
    job.count = var.count;
    std::memset(job.data, 0, sizeof job.data);
    if (!withData || !driver.recipeBuffer)
        return;

    const int wordsInPayload = PAYLOAD_SIZE / 2;
    for (int i = 0; i < std::min(var.count, wordsInPayload); ++i) {
        const qint64 word = static_cast<qint64>(var.bufOffset) + i;
        if (word >= 0)
            qToLittleEndian<quint16>(driver.recipeBuffer[word], &job.data[2 * i]);
    }
}
