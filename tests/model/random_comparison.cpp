#include "model/random_runtime.h"

void RandomRuntime::compareReports()
{
    sameList("reports", m_library.reports, m_plainReports);
    sameList("values read while reporting", m_libraryRead, m_plainRead);
}

void RandomRuntime::compareNumbers()
{
    same("linkId", driver.linkId, m_plain.linkId);
    same("writeLocalOnly", driver.writeLocalOnly, m_plain.writeLocalOnly);
    same("param2", driver.param2, m_plain.param2);
    same("retryLimit", driver.retryLimit, m_plain.retryLimit);
    same("maxWords", driver.maxWords, m_plain.maxWords);
    same("currentKind", driver.currentKind, m_plain.currentKind);
    same("burstCount", driver.burstCount, m_plain.burstCount);
    same("aux1", driver.aux1, 0);
    same("errorCount", driver.errorCount, m_plain.errorCount);
    same("maxBitsPerJob", driver.maxBitsPerJob, m_plain.maxBitsPerJob);
    same("maxWordsPerJob", driver.maxWordsPerJob, m_plain.maxWordsPerJob);
    same("commFailed", driver.commFailed, m_plain.commFailed);
    same("aux2", driver.aux2, 0);
    same("aux3", driver.aux3, 1);
    same("rcpIndex", driver.rcpIndex, m_plain.rcpIndex);
}

void RandomRuntime::compareLists()
{
    const tarvelan& library = driver;
    sameList("readList", library.readList, m_plain.readList);
    sameList("writeList", library.writeList, m_plain.writeList);
    sameList("condList", library.condList, m_plain.condList);
    sameList("dataAreas", library.dataAreas, m_plain.dataAreas);
    sameList("rcpVarsA", library.rcpVarsA, m_plain.rcpVarsA);
    sameList("rcpVars", library.rcpVars, m_plain.rcpVars);
    sameList("intList", library.intList, m_plain.intList);
    sameList("regNames", library.regNames, m_plain.regNames);
    sameList("frameList", library.frameList, m_plain.frameList);
}

void RandomRuntime::compareState()
{
    compareLists();
    compareNumbers();
    same("condVar", driver.condVar, m_plain.condVar);
    same("currentJob", driver.currentJob, m_plain.currentJob);
    sameList("a list of the runtime's own", m_foreign, m_plainForeign);
    sameList("a copy of the records", m_copy, m_plainCopy);
    sameList("a copy of the read jobs", m_jobCopy, m_plainJobCopy);
    if (m_library.shared != m_plainShared)
        same("the shared block", QString::fromLatin1("changed"), QString());
    if (m_library.recipe != m_plainRecipe)
        same("the recipe buffer", QString::fromLatin1("changed"), QString());
}
