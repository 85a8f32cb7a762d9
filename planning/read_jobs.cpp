#include "planning/read_jobs.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"

namespace
{

VARIABLE cyclicReadJob(const KEY_ADDRESS& opener, int count)
{
    VARIABLE job = VARIABLE();
    job.kind = CYCLIC_READ_JOB;
    job.station = opener.station;
    job.regType = opener.regType;
    job.address = opener.address;
    job.count = count;
    return job;
}

} // namespace

int intf_addrMerge(QList<KEY_ADDRESS>& keys)
{
    const UndisturbedAreas undisturbed;
    clearMonitorFlags();
    for (int i = 0; i < keys.size(); ++i) {
        const KEY_ADDRESS& key = keys.at(i);
        _setDataAreaMonitorFlag(key.station, key.regType, key.address, key.count);
    }

    driver.readList.clear();
    const QList<AddressBlock> blocks = mergedForReading(keys, driver.maxWords);
    for (int i = 0; i < blocks.size(); ++i) {
        const AddressBlock& block = blocks.at(i);
        driver.readList.append(cyclicReadJob(keys.at(block.opener), block.count));
    }
    return static_cast<int>(driver.readList.size());
}
