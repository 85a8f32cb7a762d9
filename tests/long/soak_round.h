#ifndef KX_TESTS_LONG_SOAK_ROUND_H
#define KX_TESTS_LONG_SOAK_ROUND_H

#include "long/soak_runtime.h"
#include "support/memory_use.h"

/// What the driver holds when all is quiet.
struct QueueSizes {
    qint64 reads, writes, conditions, frames, cache, variables, blocks, starts, names;

    QString text() const;
};

/// Ends the program unless the two are equal.
void expectSame(const QueueSizes& first, const QueueSizes& now);

/// Initialises, then `exchanges` exchanges with polls, writes, condition reads,
/// recipes, new plans, initialisations in mid-transfer, times of faults and of
/// silence, and one full write queue; ends quiet, every watched value compared,
/// nothing left in a queue and nothing in the cache that does not belong there.
void runRound(SoakRuntime& runtime, int exchanges);

/// Initialises, reads every address of the soak once and tells what is held: the
/// same each time it is called.
QueueSizes sizesAtRest(SoakRuntime& runtime);

/// A time without initialising.
struct Stretch {
    qint64 exchanges;
    MemorySpread memory; ///< measured whenever all was quiet
    QueueSizes sizes;    ///< the same each time
};

/// Initialises, brings into the cache whatever requests can bring there, then works as
/// a round does, without initialising again, for `exchanges` exchanges and
/// `measurements` measurements at least.
Stretch runWithoutInitialising(SoakRuntime& runtime, qint64 exchanges, int measurements);

#endif
