#include "kxsim/faults/outage.h"

#include "addresses/station_text.h"
#include "kxsim/timing/duration_text.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace kxsim
{

namespace
{

bool refuseOutage(QString* fault, const QString& text)
{
    *fault = text;
    return false;
}

QString form()
{
    return QStringLiteral("write STATION@FROM..TO, such as 3@10s..30s, 3@10s.. for good, or "
                          "3@10s..30s/60s for each minute");
}

bool takeTimes(const QString& text, Outage* outage)
{
    DurationRange range;
    if (text.endsWith(QLatin1String(".."))) {
        if (!parseDuration(text.left(text.size() - 2), &range.from))
            return false;
        outage->from = range.from;
        return true;
    }
    if (!parseDurationRange(text, &range))
        return false;
    outage->from = range.from;
    outage->to = range.to;
    return true;
}

bool takeOutageParts(const QString& text, Outage* outage, QString* fault)
{
    static const QRegularExpression parts(QStringLiteral("\\A([0-9]+)@([^/]+)(/.*)?\\z"));
    const QRegularExpressionMatch found = parts.match(text);
    const QString period = found.captured(3); // with its stroke; empty when there is none
    std::chrono::microseconds each{0};
    if (!found.hasMatch() || !takeTimes(found.captured(2), outage)
        || (!period.isEmpty() && !parseDuration(period.mid(1), &each)))
        return refuseOutage(fault, form());
    outage->period = each;
    if (!kx::parseStation(found.captured(1), &outage->station))
        return refuseOutage(fault, QStringLiteral("the station must be %1 to %2")
                                       .arg(kx::LOWEST_STATION)
                                       .arg(kx::HIGHEST_STATION));
    if (outage->to <= outage->from)
        return refuseOutage(fault, QStringLiteral("it ends before it begins"));
    if (!period.isEmpty() && outage->to > outage->period)
        return refuseOutage(fault, QStringLiteral("it ends behind its period"));
    return true;
}

bool isWithin(const Outage& outage, Moment now)
{
    const Moment phase = outage.period > Moment(0) ? now % outage.period : now;
    return phase >= outage.from && phase < outage.to;
}

} // namespace

bool parseOutage(const QString& text, Outage* outage, QString* error)
{
    Outage parsed;
    QString fault;
    if (!takeOutageParts(text, &parsed, &fault))
        return refuseOutage(error, QStringLiteral("--down %1: %2").arg(text, fault));
    *outage = parsed;
    return true;
}

bool isDown(const QList<Outage>& outages, int station, Moment now)
{
    return std::any_of(outages.begin(), outages.end(), [&](const Outage& outage) {
        return outage.station == station && isWithin(outage, now);
    });
}

} // namespace kxsim
