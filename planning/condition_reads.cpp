#include "planning/condition_reads.h"

#include "driver/job_queue.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "planning/job_split.h"

namespace
{

const int COUNTED_IN_BITS = -1;

int piecesOf(int count, int limit)
{
    if (limit == 0 || limit >= count)
        return 1;
    return pieceCount(count, limit);
}

} // namespace

int intf_addConditionRead(KEY_ADDRESS& key, int kind)
{
    const int limit =
        key.bitIndex == COUNTED_IN_BITS ? driver.maxBitsPerJob : driver.maxWordsPerJob;
    const int pieces = piecesOf(key.count, limit);

    VARIABLE job = VARIABLE();
    job.kind = kind;
    job.station = key.station;
    job.regType = key.regType;
    for (int piece = 0; piece < pieces; ++piece) {
        job.address = wrapAdd(key.address, wrapMul(piece, limit));
        job.count = pieces == 1 ? key.count : pieceLength(key.count, limit, piece);
        addVarToList(driver.condList, job);
        driver.condVar = job;
    }
    return 1;
}
