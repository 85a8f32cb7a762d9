#include "model/plain_driver.h"

namespace
{

const int RECIPE_WRITE_BYTE = 60115;
const int RECIPE_READ_BYTE = 60116;

} // namespace

int PlainDriver::sendFrame(FRAME_PRO* out)
{
    if (!frameList.isEmpty()) {
        *out = frameList.at(0);
        return 1;
    }
    bool write = hostShared != nullptr && hostShared[RECIPE_WRITE_BYTE] == 1;
    const bool read = hostShared != nullptr && hostShared[RECIPE_READ_BYTE] == 1;
    if (write && rcpIndex < rcpVars.size() && lacksValues(rcpVars.at(rcpIndex))) {
        rcpIndex = 0;
        hostShared[RECIPE_WRITE_BYTE] = 0;
        write = false;
    }
    if (write || read) {
        if (rcpIndex < rcpVars.size())
            scheduleRecipe(write ? 5 : 6);
        else if (rebuildCurrentJob() == 0)
            return 0;
    } else if (scheduleLists() == 0) {
        return 0;
    }
    if (frameList.isEmpty())
        return 0;
    *out = frameList.at(0);
    return 1;
}

void PlainDriver::scheduleRecipe(int kind)
{
    rcpAddrToVar(rcpVars.at(rcpIndex), currentJob, kind == 5 ? 1 : 0);
    currentKind = kind;
    if (kind == 5)
        writeFrame(currentJob);
    else
        readFrame(currentJob);
}

int PlainDriver::rebuildCurrentJob()
{
    if (currentKind == 5 || currentKind == 2)
        writeFrame(currentJob);
    else if (currentKind == 3 || currentKind == 4 || currentKind == 6)
        readFrame(currentJob);
    else
        return 0;
    return 1;
}

int PlainDriver::scheduleLists()
{
    if (!writeList.isEmpty() && burstCount < 5) {
        currentJob = writeList.at(0);
        currentKind = 2;
        ++burstCount;
        writeFrame(currentJob);
    } else if (!condList.isEmpty() && burstCount < 3) {
        currentJob = condList.at(0);
        currentKind = 3;
        ++burstCount;
        readFrame(currentJob);
    } else if (!readList.isEmpty()) {
        currentJob = readList.at(0);
        currentKind = 4;
        burstCount = 0;
        readFrame(currentJob);
    } else {
        burstCount = 0;
        currentKind = 0;
        frameList.clear();
        return 0;
    }
    return 1;
}

void PlainDriver::dealListWhenFinish()
{
    if (currentKind == 2 && !writeList.isEmpty())
        writeList.removeFirst();
    if (currentKind == 3)
        finishConditionRead();
    if (currentKind == 4 && readList.size() >= 2) {
        const VARIABLE first = readList.at(0);
        readList.removeFirst();
        readList.append(first);
    }
    if (currentKind == 5)
        finishRecipe(RECIPE_WRITE_BYTE);
    if (currentKind == 6)
        finishRecipe(RECIPE_READ_BYTE);
}

void PlainDriver::finishConditionRead()
{
    if (condList.isEmpty())
        return;
    const VARIABLE first = condList.at(0);
    if (first.station == condVar.station && first.regType == condVar.regType
        && first.address == condVar.address && first.count == condVar.count)
        valueChanged(-1, -1, QString::fromLatin1("-1"), commFailed != 0 ? -1 : 0);
    if (commFailed != 0)
        condList.clear();
    else if (!condList.isEmpty())
        condList.removeFirst();
}

void PlainDriver::finishRecipe(int requestByte)
{
    if (commFailed == 0) {
        ++rcpIndex;
        if (rcpIndex < rcpVars.size())
            return;
    }
    rcpIndex = 0;
    if (hostShared != nullptr)
        hostShared[requestByte] = 0;
}
