#include "kxpanel/line/plan/plan_rows.h"

#include "kxpanel/exchanges/exchange_words.h"
#include "panel/plan/piece_request.h"
#include "registers/register_types.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <tuple>

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

bool isBefore(const PlanBar& one, const PlanBar& other)
{
    const auto key = [](const PlanBar& bar) {
        return std::make_tuple(bar.request.station, registerTypeRow(bar.request.type),
                               bar.request.address);
    };
    return key(one) < key(other);
}

PlanBar barOf(const kx::PolledRange& poll, const kx::WatchedRanges& watched)
{
    const kx::PlannedRequest request = kx::requestFor(poll.range);
    const kx::Coverage coverage = coverageOf(request, watched);
    PlanBar bar{request, poll.interval, {}, coverage.askedCount, coverage.bridgedCount};
    for (int unit = 0; unit < request.count; ++unit) {
        const bool isAsked = coverage.asked[static_cast<size_t>(unit)];
        if (bar.runs.isEmpty() || bar.runs.last().isAsked != isAsked)
            bar.runs << PlanRun{unit, 0, isAsked};
        ++bar.runs.last().count;
    }
    return bar;
}

} // namespace

QVector<PlanRow> planRows(const QList<kx::PolledRange>& polls, const kx::WatchedRanges& watched)
{
    QVector<PlanBar> bars;
    for (const kx::PolledRange& poll : polls)
        bars << barOf(poll, watched);
    std::stable_sort(bars.begin(), bars.end(), isBefore);
    QVector<PlanRow> rows;
    for (const PlanBar& bar : qAsConst(bars)) {
        if (rows.isEmpty() || rows.last().station != bar.request.station
            || rows.last().type != bar.request.type)
            rows << PlanRow{bar.request.station, bar.request.type, {}};
        rows.last().bars << bar;
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
    const QString counts =
        isBits(request)
            ? Words::tr("%n bits, %1 asked for, %2 read along", nullptr, request.count)
            : Words::tr("%n registers, %1 asked for, %2 read along", nullptr, request.count);
    const QString interval =
        bar.interval > 0 ? Words::tr(", every %1 ms").arg(bar.interval) : QString();
    return Words::tr("Station %1, %2: %3; %4 bytes out, %5 back, %6")
               .arg(request.station)
               .arg(first == last ? first : Words::tr("%1 to %2").arg(first, last),
                    counts.arg(bar.asked).arg(bar.bridged))
               .arg(request.bytesSent)
               .arg(request.bytesExpected)
               .arg(timeWords(time))
           + interval;
}

} // namespace kxpanel
