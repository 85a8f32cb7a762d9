#include "planning/condition_reads.h"

#include "driver/job_queue.h"
#include "driver/job_split.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"

namespace
{

const int COUNTED_IN_BITS = -1;
// More than the queue holds, so that this many pieces fill it, and among this
// many last ones some are no duplicates.
const int PIECES_THAT_COUNT = 1024;

int piecesOf(int count, int limit)
{
    if (limit == 0 || limit >= count)
        return 1;
    return pieceCount(count, limit);
}

/// The job for one piece of a one-off read.
class ConditionRead
{
public:
    ConditionRead(const KEY_ADDRESS& key, int kind, int limit)
        : m_key(key), m_limit(limit), m_pieces(piecesOf(key.count, limit)), m_job(VARIABLE())
    {
        m_job.kind = kind;
        m_job.station = key.station;
        m_job.regType = key.regType;
    }

    int pieces() const { return m_pieces; }

    VARIABLE& piece(int number)
    {
        m_job.address = wrapAdd(m_key.address, wrapMul(number, m_limit));
        m_job.count = m_pieces == 1 ? m_key.count : pieceLength(m_key.count, m_limit, number);
        return m_job;
    }

    /// The number of the full-length piece that starts at `address`, or -1.
    int numberAt(int address) const
    {
        const int distance = wrapSub(address, m_key.address);
        return distance >= 0 && distance % m_limit == 0 ? distance / m_limit : -1;
    }

private:
    const KEY_ADDRESS& m_key;
    int m_limit;
    int m_pieces;
    VARIABLE m_job;
};

void file(ConditionRead& read, int first, int end)
{
    for (int number = first; number < end; ++number) {
        VARIABLE& job = read.piece(number);
        addVarToList(driver.condList, job);
        driver.condVar = job;
    }
}

// Files pieces that each replace the last job of a full queue: all that stays of
// them is that they renew the job of the same target, the last one if there are more.
void fileSuperseded(ConditionRead& read, int first, int end)
{
    for (int i = 1; i < driver.condList.size(); ++i) {
        const int number = read.numberAt(driver.condList.at(i).address);
        if (number >= first && number < end
            && sameTarget(driver.condList.at(i), read.piece(number)))
            addVarToList(driver.condList, read.piece(number));
    }
}

} // namespace

int intf_addConditionRead(KEY_ADDRESS& key, int kind)
{
    const int limit =
        key.bitIndex == COUNTED_IN_BITS ? driver.maxBitsPerJob : driver.maxWordsPerJob;
    ConditionRead read(key, kind, limit);
    const int pieces = read.pieces();
    if (pieces <= 2 * PIECES_THAT_COUNT) {
        file(read, 0, pieces);
        return 1;
    }
    file(read, 0, PIECES_THAT_COUNT);
    fileSuperseded(read, PIECES_THAT_COUNT, pieces - PIECES_THAT_COUNT);
    file(read, pieces - PIECES_THAT_COUNT, pieces);
    return 1;
}
