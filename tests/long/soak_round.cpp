#include "long/soak_round.h"

#include "long/soak_plans.h"

#include <algorithm>

namespace
{

const int MOST_WORDS = 123; // which a write of registers may carry, too
const int MOST_BITS = 2000;
const int WRITES_THAT_OVERFILL = 600;
const int DRAINING = 20000; // exchanges that empty any queue, faults long over
// Without initialising: few registers per request, so that failures reach few addresses.
const int STRETCH_WORDS = 32;
const int STRETCH_BITS = 8 * STRETCH_WORDS;
const int EXCHANGES_PER_MEASUREMENT = 1000;

/// What may happen in a round, other than single polls and writes.
struct Course {
    int mostBits; ///< in one entry of a plan
    bool initialises;
};

/// Lets the line be good or bad, or the controllers be silent, for a while.
int faultsForAWhile(RandomSource& random)
{
    return random.oneOf({0, 0, 0, 1, 5, 20, 100});
}

QueueSizes sizesNow()
{
    const QueueSizes sizes = {
        driver.readList.size(),  driver.writeList.size(), driver.condList.size(),
        driver.frameList.size(), driver.dataAreas.size(), driver.rcpVarsA.size(),
        driver.rcpVars.size(),   driver.intList.size(),   driver.regNames.size()};
    return sizes;
}

void drain(SoakRuntime& runtime)
{
    runtime.setFaults(0);
    runtime.setWritesInside(false);
    int left = DRAINING;
    while (!driver.writeList.isEmpty() || !driver.condList.isEmpty() || runtime.isRecipeRunning()) {
        if (left-- == 0 || !runtime.exchange())
            soakFailed(QString::fromLatin1("the queues do not drain: %1").arg(sizesNow().text()));
    }
    if (runtime.isAskedOnce())
        soakFailed(QString::fromLatin1("the end of a condition read was not reported"));
}

/// Reads all that is watched at least once and compares it.
void compareAll(SoakRuntime& runtime, const Ranges& plan)
{
    for (int i = static_cast<int>(driver.readList.size()); i >= 0; --i)
        runtime.exchange();
    for (const DeviceRange& range : plan)
        runtime.compare(range);
}

/// The writes that a full queue drops stay unconfirmed, so they are written again.
void overfillTheQueue(SoakRuntime& runtime)
{
    DeviceRange setpoints = setpointRanges().front();
    DeviceRange one = setpoints;
    one.count = 1;
    for (int i = 0; i < WRITES_THAT_OVERFILL; ++i) {
        one.address = setpoints.address + i;
        runtime.write(one);
    }
    if (driver.writeList.size() != 513)
        soakFailed(QString::fromLatin1("a full queue of another size"));
    drain(runtime);
    runtime.write(setpoints);
    drain(runtime);
}

/// Once in a thousand exchanges or so each; what an operator does now and then.
void doSomethingRare(SoakRuntime& runtime, const Course& course, Ranges& plan)
{
    RandomSource& random = runtime.random();
    switch (random.below(course.initialises ? 4 : 3)) {
    case 0:
        plan = randomPlan(random, runtime.maxWords(), course.mostBits);
        runtime.watch(plan);
        break;
    case 1:
    case 2:
        if (!runtime.isRecipeRunning())
            runtime.startRecipe(random.chance(50));
        break;
    default:
        runtime.initialise(runtime.maxWords());
        runtime.watch(plan);
        break;
    }
}

void doSomething(SoakRuntime& runtime)
{
    RandomSource& random = runtime.random();
    const int limit = runtime.maxWords();
    const int dice = random.below(100);
    if (dice < 40) {
        runtime.letTheProcessMove();
    } else if (dice < 44) {
        const DeviceRange& setpoint = anyOf(random, setpointRanges());
        const int most = setpoint.regType == QLatin1String("D") ? 300 : std::min(limit, 20);
        runtime.write(pieceOf(random, setpoint, random.chance(10) ? most : 6));
    } else if (dice < 46 && !runtime.isAskedOnce()) {
        const DeviceRange& process = anyOf(random, processRanges());
        const bool isSplit = random.chance(20) && !holdsDoubleWords(process.regType);
        runtime.askOnce(pieceOf(random, process, isSplit ? 1000 : limit));
    }
}

void work(SoakRuntime& runtime, const Course& course, int exchanges, Ranges& plan)
{
    RandomSource& random = runtime.random();
    plan = randomPlan(random, runtime.maxWords(), course.mostBits);
    runtime.watch(plan);
    runtime.setWritesInside(true);
    for (int i = 0; i < exchanges; ++i) {
        if (random.below(300) == 0)
            runtime.setFaults(faultsForAWhile(random));
        if (random.below(300) == 0)
            doSomethingRare(runtime, course, plan);
        doSomething(runtime);
        if (!runtime.exchange())
            soakFailed(QString::fromLatin1("nothing to send"));
    }
    drain(runtime);
}

void expectNothingLeft(SoakRuntime& runtime)
{
    const QueueSizes sizes = sizesNow();
    if (sizes.writes != 0 || sizes.conditions != 0 || sizes.frames != 0)
        soakFailed(QString::fromLatin1("left over: %1").arg(sizes.text()));
    runtime.checkCache();
}

/// Watches and reads every address of the soak.
QueueSizes sizesWhenAllIsRead(SoakRuntime& runtime)
{
    const Ranges everything = wholePlan(runtime.maxWords());
    runtime.watch(everything);
    compareAll(runtime, everything);
    return sizesNow();
}

} // namespace

QString QueueSizes::text() const
{
    return QString::fromLatin1("%1 read jobs, %2 writes, %3 condition reads, %4 frames, %5 cached "
                               "values, %6 recipe variables in %7 blocks")
        .arg(reads)
        .arg(writes)
        .arg(conditions)
        .arg(frames)
        .arg(cache)
        .arg(variables)
        .arg(blocks);
}

void expectSame(const QueueSizes& first, const QueueSizes& now)
{
    if (first.reads != now.reads || first.writes != now.writes || first.conditions != now.conditions
        || first.frames != now.frames || first.cache != now.cache
        || first.variables != now.variables || first.blocks != now.blocks
        || first.starts != now.starts || first.names != now.names)
        soakFailed(QString::fromLatin1("at first %1; now %2").arg(first.text(), now.text()));
}

void runRound(SoakRuntime& runtime, int exchanges)
{
    runtime.initialise(runtime.random().oneOf({32, 64, MOST_WORDS}));
    Ranges plan;
    const Course course = {MOST_BITS, true};
    work(runtime, course, exchanges, plan);
    compareAll(runtime, plan);
    overfillTheQueue(runtime);
    compareAll(runtime, plan);
    expectNothingLeft(runtime);
}

QueueSizes sizesAtRest(SoakRuntime& runtime)
{
    runtime.initialise(MOST_WORDS);
    return sizesWhenAllIsRead(runtime);
}

Stretch runWithoutInitialising(SoakRuntime& runtime, qint64 exchanges, int measurements)
{
    runtime.initialise(STRETCH_WORDS);
    for (const DeviceRange& range : everythingInReach(STRETCH_WORDS))
        runtime.values(range);
    sizesWhenAllIsRead(runtime);
    overfillTheQueue(runtime);
    Stretch stretch = {0, MemorySpread(), sizesWhenAllIsRead(runtime)};

    const qint64 start = runtime.counts().exchanges;
    const Course course = {STRETCH_BITS, false};
    Ranges plan;
    while (stretch.exchanges < exchanges || stretch.memory.measurements() < measurements) {
        work(runtime, course, EXCHANGES_PER_MEASUREMENT, plan);
        compareAll(runtime, plan);
        expectSame(stretch.sizes, sizesWhenAllIsRead(runtime));
        expectNothingLeft(runtime);
        stretch.memory.add(memoryUse());
        stretch.exchanges = runtime.counts().exchanges - start;
    }
    return stretch;
}
