#include "planning/read_jobs.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
#include "registers/type_names.h"

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

bool isBlank(const unsigned char* payload)
{
    return payload[0] == 0 && std::memcmp(payload, payload + 1, PAYLOAD_SIZE - 1) == 0;
}

void fillReadJob(VARIABLE& job, const AddressSpan& opener, int count)
{
    const QString& regType = opener.type ? typeNames->of(opener.type) : *opener.regType;
    job.kind = CYCLIC_READ_JOB;
    job.station = opener.station;
    if (!job.regType.isSharedWith(regType))
        job.regType = regType;
    job.address = opener.address;
    job.count = count;
    if (!isBlank(job.data))
        std::memset(job.data, 0, sizeof job.data);
}

} // namespace

int intf_addrMerge(QList<KEY_ADDRESS>& keys)
{
    const UndisturbedAreas undisturbed;
    const AddressSpans watched = spansOf(keys);
    clearMonitorFlags();
    for (size_t i = 0; i < watched.size(); ++i) {
        const AddressSpan& span = watched[i];
        if (span.type)
            markWatched(span.type, span.station, span.address, span.count);
    }

    const QList<AddressBlock> blocks = mergedForReading(watched, driver.maxWords);
    const int jobs = static_cast<int>(blocks.size());
    for (int i = 0; i < jobs; ++i)
        fillReadJob(readJob(i), watched[static_cast<size_t>(blocks.at(i).opener)],
                    blocks.at(i).count);
    driver.readList.erase(driver.readList.begin() + jobs, driver.readList.end());
    return jobs;
}
