/// A slave for stories: answers the driver's requests as a device would.
#ifndef KX_TESTS_STORIES_SLAVE_H
#define KX_TESTS_STORIES_SLAVE_H

#include "support/driver_fixture.h"

/// A good reply to the frame of the last poll: reads give zeros, writes an echo.
QByteArray goodReply(const DriverFixture& runtime);

/// A good reply to a read, with the given data bytes in hex.
QByteArray replyWith(const DriverFixture& runtime, const char* data);

/// Polls, and answers well `count` times; the jobs served as "type address count",
/// "-" where there was nothing to send.
QStringList serve(DriverFixture& runtime, int count);

/// Polls and gives bad replies until the request fails for good; the results.
QList<int> failRequest(DriverFixture& runtime);

/// Addresses of the jobs in a queue, in order.
QList<int> addresses(const QList<VARIABLE>& jobs);

/// Writes values from hex text as the runtime does.
void setValues(int station, const char* type, int address, int count, const char* hex);

/// Asks for a one-off read.
void addCondition(int station, const char* type, int address, int count);

/// Recipe variables of link 1 and station 1, planned in one go.
struct RecipeVariable {
    const char* type;
    int address;
    int count;
    int bufferOffset;
};
int planRecipe(const QList<RecipeVariable>& variables);

/// The report of a recipe buffer word, and those of the end of a condition read.
Report recipeWord(int offset);
const Report CONDITION_DONE = {-1, -1, "-1", 0};
const Report CONDITION_FAILED = {-1, -1, "-1", -1};

#endif
