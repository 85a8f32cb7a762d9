#ifndef KX_TESTS_SOAK_ROUND_H
#define KX_TESTS_SOAK_ROUND_H

#include "long/soak_runtime.h"

/// What the driver holds when all is quiet.
struct QueueSizes {
    qint64 reads, writes, conditions, frames, cache, variables, blocks, starts, names;

    bool operator==(const QueueSizes& other) const;
    QString text() const;
};

/// Initialises, then `exchanges` exchanges with polls, writes, condition reads,
/// recipes, new plans, initialisations in mid-transfer, times of faults and of
/// silence, and one full write queue; ends quiet, every watched value compared.
void runRound(SoakRuntime& runtime, int exchanges);

/// Initialises, reads every address of the soak once and tells what is held: the
/// same each time it is called.
QueueSizes sizesAtRest(SoakRuntime& runtime);

#endif
