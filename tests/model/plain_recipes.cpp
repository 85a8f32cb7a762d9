#include "model/plain_driver.h"

#include <cstring>
#include <utility>

void PlainDriver::sortByWeight(QVector<_RCP_VAR_PRO>& vars) const
{
    const int n = static_cast<int>(vars.size());
    _RCP_VAR_PRO* const all = vars.data();
    for (int pass = 0; pass < n - 1; ++pass) {
        for (int j = 0; j <= n - pass - 2; ++j) {
            const _RCP_VAR_PRO& a = all[j];
            const _RCP_VAR_PRO& b = all[j + 1];
            if (weight(a.station, a.regType, a.address) > weight(b.station, b.regType, b.address))
                std::swap(all[j], all[j + 1]);
        }
    }
}

int PlainDriver::setRcpAddress(const QVector<_RCP_VAR_PRO>& vars)
{
    rcpVarsA = QVector<_RCP_VAR_PRO>();
    for (const _RCP_VAR_PRO& var : vars) {
        if (var.rcpId == linkId)
            rcpVarsA.append(var);
    }
    sortByWeight(rcpVarsA);
    QList<KEY_ADDRESS> list;
    for (const _RCP_VAR_PRO& var : rcpVarsA) {
        KEY_ADDRESS entry = KEY_ADDRESS();
        entry.station = var.station;
        entry.regType = var.regType;
        entry.address = var.address;
        entry.count = var.count;
        entry.keyTag2 = var.bufOffset;
        list.append(entry);
    }
    intList.clear();
    rcpVars = QVector<_RCP_VAR_PRO>();
    if (!list.isEmpty())
        mergeAddresses(list, 2);
    for (const KEY_ADDRESS& entry : list) {
        _RCP_VAR_PRO block = _RCP_VAR_PRO();
        block.station = entry.station;
        block.regType = entry.regType;
        block.address = entry.address;
        block.count = entry.count;
        block.bufOffset = entry.keyTag2;
        rcpVars.append(block);
    }
    return static_cast<int>(rcpVarsA.size());
}

void PlainDriver::rcpAddrToVar(const _RCP_VAR_PRO& var, VARIABLE& job, int withData) const
{
    job.station = var.station;
    job.regType = var.regType;
    job.address = var.address;
    job.count = var.count;
    std::memset(job.data, 0, sizeof job.data);
    if (withData == 0 || recipeBuffer == nullptr)
        return;
    for (int i = 0; i < var.count && i < 512; ++i) {
        if (var.bufOffset + i < 0)
            continue;
        const int word = recipeBuffer[var.bufOffset + i];
        job.data[2 * i] = lowByte(word);
        job.data[2 * i + 1] = lowByte(word >> 8);
    }
}

bool PlainDriver::lacksValues(const _RCP_VAR_PRO& block) const
{
    return recipeBuffer == nullptr || block.bufOffset < 0
           || (isBitType(block.regType) && block.count > 1024 && block.count <= 8120);
}
