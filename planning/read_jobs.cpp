#include "planning/read_jobs.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
#include "registers/type_names.h"

namespace
{

const int JOBS_AHEAD = 6;

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
    __builtin_prefetch(&driver.readList.at(number));
}

// A read carries no payload: what stands in a job's is left as it is, 51 MB of 100,000 addresses.
void fillReadJob(VARIABLE& job, const AddressSpan& block)
{
    const QString& regType = block.type ? typeNames->of(block.type) : *block.regType;
    job.kind = CYCLIC_READ_JOB;
    job.station = block.station;
    if (!job.regType.isSharedWith(regType))
        job.regType = regType;
    job.address = block.address;
    job.count = block.count;
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
