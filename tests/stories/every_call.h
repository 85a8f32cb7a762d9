/// Every function that the library exports, in the situations in which it does something
/// else.
#ifndef KX_TESTS_STORIES_EVERY_CALL_H
#define KX_TESTS_STORIES_EVERY_CALL_H

#include "support/driver_fixture.h"

#include <vector>

typedef void (*Step)(DriverFixture& runtime);

/// One call. `before` leads to the situation, with a fixture whose requests fail at the
/// first bad reply.
struct Call {
    const char* function;  ///< its name, not mangled
    const char* situation; ///< or "" when there is only one
    Step before;
    Step step;
};

/// For a row of a table: "FUNCTION, SITUATION".
QByteArray nameOf(const Call& call);

/// All that read or clear no recipe request.
std::vector<Call> callsWithoutTheMutex();

/// All that do.
std::vector<Call> callsWithTheMutex();

#endif
