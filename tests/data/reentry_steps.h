/// Situations in which the driver calls the value-change function, and what that
/// function may do to the driver from inside.
#ifndef KX_TESTS_DATA_REENTRY_STEPS_H
#define KX_TESTS_DATA_REENTRY_STEPS_H

#include "data/cached_record.h"

#include <functional>

struct NamedStep {
    const char* name;
    std::function<void(DriverFixture&)> step;
};

/// Each brings at least one report about.
const QList<NamedStep>& situations();

/// What the value-change function does.
const QList<NamedStep>& reentries();

/// Marks the first three addresses of D and 32CV in each way there is.
void watchEverything();

/// Polls once and hands over a reply given without its CRC.
void exchange(DriverFixture& runtime, const char* reply);

/// Lets a request fail for good at a retry limit of 3.
void fail(DriverFixture& runtime);

/// Asks for a one-off read of one TV register.
void addCondition(int address);

#endif
