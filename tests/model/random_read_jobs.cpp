#include "model/random_runtime.h"

#include <cstring>

namespace
{

const int MOST_JOBS = 60;

VARIABLE anyJob(RandomSource& random)
{
    const int station = random.between(0, 3);
    const char* const regType = random.oneOf({"D", "M", "32CV", "SD"});
    const int address = random.below(300);
    VARIABLE any = job(station, regType, address, random.between(1, 40));
    any.kind = random.oneOf({4, 4, 2, 0});
    if (random.chance(60))
        std::memset(any.data, random.byte(), sizeof any.data);
    return any;
}

} // namespace

void changeJobs(QList<VARIABLE>& jobs, RandomSource& random)
{
    const int choice = random.below(12);
    const int place = random.below(MOST_JOBS);
    const VARIABLE any = anyJob(random);
    const int byte = random.oneOf({0, 1, PAYLOAD_SIZE - 1, random.below(PAYLOAD_SIZE)});
    const int size = static_cast<int>(jobs.size());
    if (choice == 0 || size >= MOST_JOBS) {
        jobs.clear();
    } else if (choice == 1 || size == 0) {
        jobs.append(any);
    } else if (choice == 2) {
        jobs.move(place % size, 0);
    } else if (choice == 3) {
        jobs.removeAt(place % size);
    } else if (choice == 4) {
        jobs[place % size] = any;
    } else {
        jobs[place % size].data[byte] = random.byte();
    }
}

void RandomRuntime::changeReadJobs()
{
    RandomSource random(m_random.next());
    RandomSource plainRandom = random;
    called(QString::fromLatin1("change the read jobs"));
    changeJobs(driver.readList, random);
    changeJobs(m_plain.readList, plainRandom);
}

// The copy changes by itself, too, and comes back as the driver's own list.
void RandomRuntime::keepReadJobs()
{
    const int choice = m_random.below(4);
    called(QString::fromLatin1("keep the read jobs in way %1").arg(choice));
    RandomSource random(m_random.next());
    RandomSource plainRandom = random;
    if (choice == 0) {
        driver.readList = m_jobCopy;
        m_plain.readList = m_plainJobCopy;
    } else if (choice == 1) {
        driver.readList.swap(m_jobCopy);
        m_plain.readList.swap(m_plainJobCopy);
    } else if (choice == 2) {
        changeJobs(m_jobCopy, random);
        changeJobs(m_plainJobCopy, plainRandom);
    } else {
        m_jobCopy = driver.readList;
        m_plainJobCopy = m_plain.readList;
    }
}
