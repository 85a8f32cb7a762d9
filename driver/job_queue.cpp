#include "driver/job_queue.h"

namespace
{

const int LAST_QUEUE_INDEX = 512;

} // namespace

bool sameTarget(const VARIABLE& a, const VARIABLE& b)
{
    return a.station == b.station && a.address == b.address && a.count == b.count
           && a.regType == b.regType;
}

void addVarToList(QList<VARIABLE>& list, VARIABLE& job)
{
    const int size = static_cast<int>(list.size());
    for (int i = size - 1; i >= 1; --i) {
        if (sameTarget(list.at(i), job)) {
            list[i] = job;
            return;
        }
    }
    if (size > LAST_QUEUE_INDEX)
        list[LAST_QUEUE_INDEX] = job;
    else
        list.append(job);
}
