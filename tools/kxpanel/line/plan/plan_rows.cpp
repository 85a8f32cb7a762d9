#include "kxpanel/line/plan/plan_rows.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "registers/register_types.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

struct Words {
    Q_DECLARE_TR_FUNCTIONS(kxpanel::PlanRows)
};

bool isBits(const kx::PlannedRequest& request)
{
    return request.type->registerClass == BIT_CLASS;
}

PlanBar barOf(const kx::PlannedRequest& request, const kx::WatchedRanges& watched)
{
    const kx::Coverage coverage = coverageOf(request, watched);
    PlanBar bar{request, {}, coverage.askedCount, coverage.bridgedCount};
    for (int unit = 0; unit < request.count; ++unit) {
        const bool isAsked = coverage.asked[static_cast<size_t>(unit)];
        if (bar.runs.isEmpty() || bar.runs.last().isAsked != isAsked)
            bar.runs << PlanRun{unit, 0, isAsked};
        ++bar.runs.last().count;
    }
    return bar;
}

} // namespace

QVector<PlanRow> planRows(const kx::Plan& plan, const kx::WatchedRanges& watched)
{
    QVector<PlanRow> rows;
    for (const kx::PlannedRequest& request : plan.requests) {
        if (rows.isEmpty() || rows.last().station != request.station
            || rows.last().type != request.type)
            rows << PlanRow{request.station, request.type, {}};
        rows.last().bars << barOf(request, watched);
    }
    return rows;
}

double widthOf(const kx::PlannedRequest& request, int count)
{
    const double bitsPerRegister = 16;
    return isBits(request) ? count / bitsPerRegister : count;
}

QString barWords(const PlanBar& bar, qint64 time)
{
    const kx::PlannedRequest& request = bar.request;
    const QString first = kx::addressText(request.type, request.firstAddress());
    const QString last = kx::addressText(request.type, request.lastAddress());
    const QString counts = isBits(request) ? Words::tr("%1 bits, %2 asked for, %3 read along")
                                           : Words::tr("%1 registers, %2 asked for, %3 read along");
    return Words::tr("Station %1, %2: %3; %4 bytes out, %5 back, %6")
        .arg(request.station)
        .arg(first == last ? first : Words::tr("%1 to %2").arg(first, last),
             counts.arg(request.count).arg(bar.asked).arg(bar.bridged))
        .arg(request.bytesSent)
        .arg(request.bytesExpected)
        .arg(timeWords(time));
}

} // namespace kxpanel
