#include "modbus/frame_list.h"

#include "driver/tarvelan.h"

#include <cstring>

QList<FRAME_PRO>* spareFrame;

namespace
{

void makeBlank(FRAME_PRO& request, const VARIABLE& job)
{
    std::memset(request.frame, 0, sizeof request.frame);
    request.sendLen = 0;
    request.recvLen = 0;
    request.frameFunc = 0;
    request.dataLen = 0;
    request.reserved = 0;
    request.job = job;
}

} // namespace

FRAME_PRO& appendFrame(const VARIABLE& job)
{
    if (driver.frameList.isEmpty() && !spareFrame->isEmpty()) {
        makeBlank(spareFrame->first(), job);
        driver.frameList.swap(*spareFrame);
    } else {
        FRAME_PRO request;
        makeBlank(request, job);
        driver.frameList.append(request);
    }
    return driver.frameList.last();
}

void dropFirstFrame()
{
    if (driver.frameList.size() > 1) {
        driver.frameList.removeFirst();
    } else {
        spareFrame->clear();
        driver.frameList.swap(*spareFrame);
    }
}
