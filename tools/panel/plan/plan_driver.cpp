#include "panel/plan/plan_driver.h"

#include "addresses/watch_pieces.h"
#include "exchange/driver_keys.h"
#include "exchange/driver_lease.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

void ignoreValueChange(int, int, QString, int) {}

PlannedRequest plannedRequest(const FRAME_PRO& frame)
{
    PlannedRequest request;
    request.station = frame.job.station;
    request.type = findRegisterType(frame.job.regType);
    request.address = frame.job.address;
    request.count = frame.job.count;
    request.bytesSent = frame.sendLen;
    request.bytesExpected = frame.recvLen;
    return request;
}

void initialise(const DriverEntryPoints& entryPoints, int maxWords)
{
    // With one bad reply allowed, each unanswered request makes room for the next.
    const QByteArray parameters = "1#0#0#1#" + QByteArray::number(maxWords);
    int status = 0;
    entryPoints.setAddrValueChangeCallBack(ignoreValueChange);
    entryPoints.initProperty(nullptr, nullptr, nullptr, &status, parameters.constData(), nullptr);
}

} // namespace

std::optional<Plan> askForPlan(const DriverEntryPoints& entryPoints,
                               const QList<AddressRange>& watched, int maxWords)
{
    const DriverLease lease;
    if (!lease.isHeld())
        return std::nullopt;
    QList<KEY_ADDRESS> keys;
    for (const AddressRange& range : watchPieces(watched, maxWords))
        keys << keyOf(range);
    initialise(entryPoints, maxWords);
    const int requests = entryPoints.addrMerge(keys);
    Plan plan;
    plan.maxWords = maxWords;
    FRAME_PRO frame = FRAME_PRO();
    for (int i = 0; i < requests && entryPoints.getSendFrame(&frame) == 1; ++i) {
        plan.requests << plannedRequest(frame);
        QByteArray noReply;
        QString errorText;
        entryPoints.dealRcvFrame(noReply, errorText);
    }
    return plan;
}

} // namespace kx
