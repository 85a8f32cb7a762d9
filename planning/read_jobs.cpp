#include "planning/read_jobs.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
#include "planning/weight_order.h"
#include "registers/type_names.h"

#include <cstring>

namespace
{

const int JOBS_AHEAD = 6;
const int CACHE_LINE = 64; // bytes; only a hint

// Jobs of the plan before are overwritten where they are, which spares the
// allocations.
VARIABLE& readJob(int number)
{
    if (number == driver.readList.size())
        driver.readList.append(VARIABLE());
    return driver.readList[number];
}

// Jobs lie a kilobyte apart, too far for the processor to foresee them.
void prefetchJob(int number)
{
    if (number >= driver.readList.size())
        return;
    const VARIABLE& job = driver.readList.at(number);
    for (int i = 0; i < PAYLOAD_SIZE; i += CACHE_LINE)
        __builtin_prefetch(job.data + i);
}

bool isBlank(const unsigned char* payload)
{
    return payload[0] == 0 && std::memcmp(payload, payload + 1, PAYLOAD_SIZE - 1) == 0;
}

void fillReadJob(VARIABLE& job, const AddressSpan& block)
{
    const QString& regType = block.type ? typeNames->of(block.type) : *block.regType;
    job.kind = CYCLIC_READ_JOB;
    job.station = block.station;
    if (!job.regType.isSharedWith(regType))
        job.regType = regType;
    job.address = block.address;
    job.count = block.count;
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

    const AddressSpans blocks = mergedForReading(sortedByWeight(watched), driver.maxWords);
    const int jobs = static_cast<int>(blocks.size());
    for (int i = 0; i < jobs; ++i) {
        prefetchJob(i + JOBS_AHEAD);
        fillReadJob(readJob(i), blocks[static_cast<size_t>(i)]);
    }
    driver.readList.erase(driver.readList.begin() + jobs, driver.readList.end());
    return jobs;
}
