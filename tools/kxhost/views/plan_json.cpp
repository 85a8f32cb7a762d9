#include "kxhost/views/plan_json.h"

#include "addresses/modbus_span.h"
#include "registers/register_types.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

QJsonObject costJson(const CycleCost& cost)
{
    return QJsonObject{{QStringLiteral("requests"), cost.requests},
                       {QStringLiteral("bytesSent"), cost.bytesSent},
                       {QStringLiteral("bytesExpected"), cost.bytesExpected},
                       {QStringLiteral("durationUs"), cost.duration},
                       {QStringLiteral("lineLoad"), cost.lineLoad()}};
}

QJsonObject lengthJson(const LengthResult& result)
{
    QJsonObject json = costJson(result.cost);
    json[QStringLiteral("maxWords")] = result.maxWords;
    json[QStringLiteral("unread")] = result.unread;
    return json;
}

QJsonObject requestJson(const PlannedRequest& request, const WatchedRanges& watched,
                        const PlanTiming& timing)
{
    const Coverage coverage = coverageOf(request, watched);
    const CycleCost cost = costOf(timing, 1, request.bytesSent, request.bytesExpected);
    return QJsonObject{{QStringLiteral("station"), request.station},
                       {QStringLiteral("first"), addressText(request.type, request.firstAddress())},
                       {QStringLiteral("last"), addressText(request.type, request.lastAddress())},
                       {QStringLiteral("function"), readFunction(request.type)},
                       {QStringLiteral("modbus"), modbusNumber(request.type, request.address)},
                       {QStringLiteral("count"), request.count},
                       {QStringLiteral("asked"), coverage.askedCount},
                       {QStringLiteral("bridged"), coverage.bridgedCount},
                       {QStringLiteral("misread"), coverage.misreadCount},
                       {QStringLiteral("tooLong"), request.isTooLong()},
                       {QStringLiteral("bytesSent"), request.bytesSent},
                       {QStringLiteral("bytesExpected"), request.bytesExpected},
                       {QStringLiteral("durationUs"), cost.duration}};
}

QJsonObject lineJson(const PlanTiming& timing)
{
    return QJsonObject{{QStringLiteral("baud"), timing.line.baud},
                       {QStringLiteral("bitsPerCharacter"), timing.line.bitsPerCharacter()},
                       {QStringLiteral("turnaroundUs"), timing.turnaround},
                       {QStringLiteral("frameGapUs"), timing.line.frameGap()}};
}

} // namespace

QJsonObject planJson(const Plan& plan, const QList<LengthResult>& lengths,
                     const LengthResult& chosen, const WatchedRanges& watched,
                     const PlanTiming& timing)
{
    QJsonArray requests;
    for (const PlannedRequest& request : plan.requests)
        requests.append(requestJson(request, watched, timing));
    QJsonArray limits;
    for (const LengthResult& length : lengths)
        limits.append(lengthJson(length));
    const int best = bestOf(lengths);
    return QJsonObject{{QStringLiteral("maxWords"), plan.maxWords},
                       {QStringLiteral("line"), lineJson(timing)},
                       {QStringLiteral("requests"), requests},
                       {QStringLiteral("cycle"), lengthJson(resultOf(plan, watched, timing))},
                       {QStringLiteral("auto"), lengthJson(chosen)},
                       {QStringLiteral("best"), best < 0 ? 0 : lengths[best].maxWords},
                       {QStringLiteral("limits"), limits}};
}

} // namespace kx
