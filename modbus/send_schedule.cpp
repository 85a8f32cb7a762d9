#include "modbus/send_schedule.h"

#include "driver/job_queue.h"
#include "driver/tarvelan.h"
#include "driver/value_change.h"
#include "modbus/read_request.h"
#include "modbus/recipe_requests.h"
#include "modbus/write_request.h"
#include "registers/recipe_addresses.h"
#include "registers/register_types.h"

namespace
{

const int WRITES_IN_A_ROW = 5;
const int CONDITION_READS_IN_A_ROW = 3;
const int MOST_COILS_OF_A_FRAME = 8 * (FRAME_SIZE - 9); // beside 7 bytes before them and the CRC
const int CONDITION_READ_DONE = 0;
const int CONDITION_READ_FAILED = -1;

void buildCurrentFrame()
{
    switch (driver.currentKind) {
    case WRITE_JOB:
    case RECIPE_WRITE_JOB:
        getWriteFrame(driver.currentJob);
        break;
    case CONDITION_READ_JOB:
    case CYCLIC_READ_JOB:
    case RECIPE_READ_JOB:
        getReadFrame(driver.currentJob);
        break;
    default:
        break;
    }
}

bool hasBlock()
{
    return driver.rcpIndex >= 0 && driver.rcpIndex < driver.rcpVars.size();
}

// Whether a download of the block would send only what the runtime gave. Registers past
// a payload, coils past a frame and counts below 1 are not asked for: they make a frame
// that is not whole, which no runtime transmits.
bool hasEveryValue(const _RCP_VAR_PRO& block)
{
    const RegisterType* const type = findRegisterType(block.regType);
    const bool areCoils = type && type->registerClass == BIT_CLASS;
    return driver.recipeBuffer && block.bufOffset >= 0
           && !(areCoils && block.count > PAYLOAD_SIZE && block.count <= MOST_COILS_OF_A_FRAME);
}

// Without a block left to transfer, the current job is built once more.
void scheduleRecipe(JobKind kind)
{
    if (hasBlock()) {
        rcpAddrToVar(driver.rcpVars.at(driver.rcpIndex), driver.currentJob,
                     kind == RECIPE_WRITE_JOB);
        driver.currentKind = kind;
    }
    buildCurrentFrame();
}

void schedule(const VARIABLE& job, JobKind kind)
{
    driver.currentJob = job;
    driver.currentKind = kind;
    driver.burstCount = kind == CYCLIC_READ_JOB ? 0 : driver.burstCount + 1;
    buildCurrentFrame();
}

// Writes and condition reads share one run counter on purpose, so that after
// five writes a cyclic read must follow.
void scheduleJob()
{
    if (!driver.writeList.isEmpty() && driver.burstCount < WRITES_IN_A_ROW) {
        schedule(driver.writeList.first(), WRITE_JOB);
    } else if (!driver.condList.isEmpty() && driver.burstCount < CONDITION_READS_IN_A_ROW) {
        schedule(driver.condList.first(), CONDITION_READ_JOB);
    } else if (!driver.readList.isEmpty()) {
        schedule(driver.readList.first(), CYCLIC_READ_JOB);
    } else {
        driver.burstCount = 0;
        driver.currentKind = NO_JOB;
        driver.frameList.clear();
    }
}

void endRecipeWrite()
{
    driver.rcpIndex = 0;
    clearRecipeWriteRequest();
}

void scheduleNext()
{
    RecipeRequests requested = recipeRequests();
    if (requested.write && hasBlock() && !hasEveryValue(driver.rcpVars.at(driver.rcpIndex))) {
        endRecipeWrite();
        requested.write = false;
    }
    if (requested.write)
        scheduleRecipe(RECIPE_WRITE_JOB);
    else if (requested.read)
        scheduleRecipe(RECIPE_READ_JOB);
    else
        scheduleJob();
}

void finishWrite()
{
    if (!driver.writeList.isEmpty())
        driver.writeList.removeFirst();
}

// The queue may be empty: a finished read is built again when a recipe transfer
// is requested that has no block.
void finishConditionRead()
{
    if (driver.condList.isEmpty())
        return;
    if (sameTarget(driver.condList.first(), driver.condVar))
        callRuntime(-1, -1, QString::fromLatin1("-1"),
                    driver.commFailed ? CONDITION_READ_FAILED : CONDITION_READ_DONE);
    if (driver.commFailed)
        driver.condList.clear();
    else if (!driver.condList.isEmpty())
        driver.condList.removeFirst();
}

void finishCyclicRead()
{
    if (driver.readList.size() >= 2)
        driver.readList.append(driver.readList.takeFirst());
}

/// True when the transfer is over: all blocks answered, or one failed.
bool finishRecipeBlock()
{
    if (!driver.commFailed) {
        ++driver.rcpIndex;
        if (driver.rcpIndex < driver.rcpVars.size())
            return false;
    }
    driver.rcpIndex = 0;
    return true;
}

} // namespace

int intf_getSendFrame(FRAME_PRO* out)
{
    if (driver.frameList.isEmpty())
        scheduleNext();
    if (driver.frameList.isEmpty())
        return 0;
    *out = driver.frameList.at(0);
    return 1;
}

void dealListWhenFinish()
{
    switch (driver.currentKind) {
    case WRITE_JOB:
        finishWrite();
        break;
    case CONDITION_READ_JOB:
        finishConditionRead();
        break;
    case CYCLIC_READ_JOB:
        finishCyclicRead();
        break;
    case RECIPE_WRITE_JOB:
        if (finishRecipeBlock())
            clearRecipeWriteRequest();
        break;
    case RECIPE_READ_JOB:
        if (finishRecipeBlock())
            clearRecipeReadRequest();
        break;
    default:
        break;
    }
}
