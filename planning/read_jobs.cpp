#include "planning/read_jobs.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"

#include <cstring>

namespace
{

// Jobs of the plan before are overwritten where they are, which spares the
// allocations.
VARIABLE& readJob(int number)
{
    if (number == driver.readList.size())
        driver.readList.append(VARIABLE());
    return driver.readList[number];
}

void fillReadJob(VARIABLE& job, const KEY_ADDRESS& opener, int count)
{
    job.kind = CYCLIC_READ_JOB;
    job.station = opener.station;
    job.regType = opener.regType;
    job.address = opener.address;
    job.count = count;
    std::memset(job.data, 0, sizeof job.data);
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

    const QList<AddressBlock> blocks = mergedForReading(keys, driver.maxWords);
    const int jobs = static_cast<int>(blocks.size());
    for (int i = 0; i < jobs; ++i)
        fillReadJob(readJob(i), keys.at(blocks.at(i).opener), blocks.at(i).count);
    driver.readList.erase(driver.readList.begin() + jobs, driver.readList.end());
    return jobs;
}
