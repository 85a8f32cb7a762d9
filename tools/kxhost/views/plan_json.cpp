#include "kxhost/views/plan_json.h"

#include "addresses/modbus_span.h"
#include "registers/register_types.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QJsonObject costJson(const CycleCost& cost)
{
    return QJsonObject{{text("requests"), cost.requests},
                       {text("bytesSent"), cost.bytesSent},
                       {text("bytesExpected"), cost.bytesExpected},
                       {text("durationUs"), cost.duration},
                       {text("lineLoad"), cost.lineLoad()}};
}

QJsonObject lengthJson(const LengthResult& result)
{
    QJsonObject json = costJson(result.cost);
    json[text("maxWords")] = result.maxWords;
    json[text("unread")] = result.unread;
    return json;
}

QJsonObject requestJson(const PlannedRequest& request, const WatchedRanges& watched,
                        const PlanTiming& timing)
{
    const Coverage coverage = coverageOf(request, watched);
    const CycleCost cost = costOf(timing, 1, request.bytesSent, request.bytesExpected);
    return QJsonObject{{text("station"), request.station},
                       {text("first"), addressText(request.type, request.firstAddress())},
                       {text("last"), addressText(request.type, request.lastAddress())},
                       {text("function"), readFunction(request.type)},
                       {text("modbus"), modbusNumber(request.type, request.address)},
                       {text("count"), request.count},
                       {text("asked"), coverage.askedCount},
                       {text("bridged"), coverage.bridgedCount},
                       {text("misread"), coverage.misreadCount},
                       {text("tooLong"), request.isTooLong()},
                       {text("bytesSent"), request.bytesSent},
                       {text("bytesExpected"), request.bytesExpected},
                       {text("durationUs"), cost.duration}};
}

QJsonObject lineJson(const PlanTiming& timing)
{
    return QJsonObject{{text("baud"), timing.line.baud},
                       {text("bitsPerCharacter"), timing.line.bitsPerCharacter()},
                       {text("turnaroundUs"), timing.turnaround},
                       {text("frameGapUs"), timing.line.frameGap()}};
}

} // namespace

QJsonObject planJson(const Plan& plan, const QList<LengthResult>& lengths,
                     const WatchedRanges& watched, const PlanTiming& timing)
{
    QJsonArray requests;
    for (const PlannedRequest& request : plan.requests)
        requests.append(requestJson(request, watched, timing));
    QJsonArray limits;
    for (const LengthResult& length : lengths)
        limits.append(lengthJson(length));
    const int best = bestOf(lengths);
    return QJsonObject{{text("maxWords"), plan.maxWords},
                       {text("line"), lineJson(timing)},
                       {text("requests"), requests},
                       {text("cycle"), lengthJson(resultOf(plan, watched, timing))},
                       {text("best"), best < 0 ? 0 : lengths[best].maxWords},
                       {text("limits"), limits}};
}

} // namespace kx
