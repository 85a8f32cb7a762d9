/// Recipes of link 1 and station 1, and their replies.
#ifndef KX_TESTS_DATA_RECIPE_PLAN_H
#define KX_TESTS_DATA_RECIPE_PLAN_H

#include "data/cached_record.h"

inline _RCP_VAR_PRO variable(const char* type, int address, int count, int bufferOffset)
{
    return variable(1, QString::fromLatin1(type), address, count, bufferOffset);
}

inline void plan(QVector<_RCP_VAR_PRO> variables)
{
    intf_setRcpAddress(variables);
}

// Polls for the next block of a recipe read and answers it.
inline int answer(DriverFixture& runtime, const char* hex)
{
    runtime.requestRecipeRead();
    runtime.poll();
    return runtime.deal(withCrc(hex));
}

inline QList<Report> words(const QList<int>& offsets)
{
    QList<Report> reports;
    for (const int offset : offsets)
        reports << Report{0, -1, "RWI", offset};
    return reports;
}

#endif
