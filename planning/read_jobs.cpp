#include "planning/read_jobs.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
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
    __builtin_prefetch(&job);
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

/// Makes jobs of blocks, in the list of jobs.
class ReadJobs : public BlockTaker
{
public:
    ReadJobs() : m_count(0) {}

    void take(const AddressSpan& block) override
    {
        prefetchJob(m_count + JOBS_AHEAD);
        fillReadJob(readJob(m_count), block);
        ++m_count;
    }

    int count() const { return m_count; }

private:
    int m_count;
};

} // namespace

int intf_addrMerge(QList<KEY_ADDRESS>& keys)
{
    const UndisturbedAreas undisturbed;
    const AddressSpans watched = spansOf(keys);
    clearMonitorFlags();
    markWatched(watched);

    ReadJobs jobs;
    mergeForReading(watched, driver.maxWords, jobs);
    driver.readList.erase(driver.readList.begin() + jobs.count(), driver.readList.end());
    return jobs.count();
}
