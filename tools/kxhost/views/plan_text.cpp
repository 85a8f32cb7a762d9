#include "kxhost/views/plan_text.h"

#include "addresses/modbus_span.h"
#include "addresses/request_limits.h"
#include "kxhost/views/aligned_rows.h"
#include "panel/text/counted.h"
#include "registers/register_types.h"

#include <cmath>
#include <map>
#include <tuple>
#include <vector>

namespace kx
{

namespace
{

const int PLAN_BAR_WIDTH = 64;
const double MICROSECONDS = 1e6;
const QString IN_USE = QStringLiteral("in use");

QString percentText(double share)
{
    return QStringLiteral("%1 %").arg(std::lround(share * 100));
}

QString addressesText(const PlannedRequest& request)
{
    const QString first = addressText(request.type, request.firstAddress());
    const QString last = addressText(request.type, request.lastAddress());
    return first == last ? first : QStringLiteral("%1 to %2").arg(first, last);
}

/// The coils or registers that the request really reads.
QString wireText(const PlannedRequest& request)
{
    const int first = modbusNumber(request.type, request.address);
    return modbusText(request.type, {ModbusSpan{first, first + request.count - 1}});
}

/// For each request the index of the first like it, itself included.
std::vector<int> firstsLike(const QList<PlannedRequest>& requests)
{
    std::map<std::tuple<int, const RegisterType*, int, int>, int> seen;
    std::vector<int> firsts;
    for (const PlannedRequest& request : requests) {
        const auto what =
            std::make_tuple(request.station, request.type, request.address, request.count);
        firsts.push_back(seen.emplace(what, static_cast<int>(firsts.size())).first->second);
    }
    return firsts;
}

QString lengthWarning(const PlannedRequest& request)
{
    const bool isBits = request.type->registerClass == BIT_CLASS;
    return QStringLiteral("asks for %1 %2, but Modbus allows %3; the controller will refuse it")
        .arg(QString::number(request.count), QString::fromLatin1(isBits ? "coils" : "registers"),
             QString::number(isBits ? MOST_COILS_PER_READ : MOST_REGISTERS_PER_READ));
}

QString splitWarning(const PlannedRequest& request, const Coverage& coverage)
{
    const RegisterType* const type = request.type;
    return QStringLiteral(
               "runs past the split of %1: %2 asked for from %3 on lie in the second Modbus "
               "range, from %4 on, so the controller refuses the request or answers with "
               "others; a lower limit keeps the ranges apart")
        .arg(QString::fromLatin1(type->name), QString::number(coverage.misreadCount),
             addressText(type, type->split), QString::number(modbusNumber(type, type->split)));
}

QStringList lengthRow(const LengthResult& result, const QStringList& marks)
{
    return {result.maxWords == 0 ? QStringLiteral("auto") : QString::number(result.maxWords),
            QString::number(result.cost.requests),
            QString::number(result.cost.bytesSent),
            QString::number(result.cost.bytesExpected),
            timeText(result.cost.duration),
            percentText(result.cost.lineLoad()),
            QString::number(result.unread),
            marks.isEmpty() ? QString() : QStringLiteral("<- ") + marks.join(QStringLiteral(", "))};
}

} // namespace

QString timeText(qint64 microseconds)
{
    return QStringLiteral("%1 ms").arg(
        QString::number(static_cast<double>(microseconds) / 1000.0, 'f', 1));
}

QString lineText(const PlanTiming& timing)
{
    return QStringLiteral("%1 baud, %2 bits per character, turnaround %3, frame gap %4")
        .arg(QString::number(timing.line.baud), QString::number(timing.line.bitsPerCharacter()),
             timeText(timing.turnaround), timeText(timing.line.frameGap()));
}

QStringList requestRows(const Plan& plan, const WatchedRanges& watched, const PlanTiming& timing)
{
    QList<QStringList> rows = {
        {QStringLiteral("#"), QStringLiteral("STATION"), QStringLiteral("ADDRESSES"),
         QStringLiteral("MODBUS"), QStringLiteral("ASKED"), QStringLiteral("BRIDGED"),
         QStringLiteral("BYTES OUT"), QStringLiteral("BYTES IN"), QStringLiteral("TIME")}};
    for (int i = 0; i < static_cast<int>(plan.requests.size()); ++i) {
        const PlannedRequest& request = plan.requests[i];
        const Coverage coverage = coverageOf(request, watched);
        const CycleCost cost = costOf(timing, 1, request.bytesSent, request.bytesExpected);
        rows << QStringList{QString::number(i + 1),
                            QString::number(request.station),
                            addressesText(request),
                            wireText(request),
                            QString::number(coverage.askedCount),
                            QString::number(coverage.bridgedCount),
                            QString::number(request.bytesSent),
                            QString::number(request.bytesExpected),
                            timeText(cost.duration)};
    }
    return alignedRows(rows, {0, 1, 4, 5, 6, 7, 8});
}

QStringList pictureRows(const Plan& plan, const WatchedRanges& watched)
{
    QList<QStringList> rows;
    for (int i = 0; i < static_cast<int>(plan.requests.size()); ++i) {
        const PlannedRequest& request = plan.requests[i];
        const QString bar = coverageBar(coverageOf(request, watched).asked, PLAN_BAR_WIDTH);
        rows << QStringList{
            QString::number(i + 1), addressText(request.type, request.firstAddress()),
            bar + QLatin1Char(' ') + addressText(request.type, request.lastAddress())};
    }
    return alignedRows(rows, {0, 1});
}

QStringList warningRows(const Plan& plan, const WatchedRanges& watched)
{
    QStringList warnings;
    const auto warn = [&warnings](int index, const QString& what) {
        warnings << QStringLiteral("request %1 %2").arg(QString::number(index + 1), what);
    };
    const std::vector<int> firsts = firstsLike(plan.requests);
    for (int i = 0; i < static_cast<int>(plan.requests.size()); ++i) {
        const PlannedRequest& request = plan.requests[i];
        const int first = firsts[static_cast<size_t>(i)];
        const Coverage coverage = coverageOf(request, watched);
        if (first < i)
            warn(i, QStringLiteral(
                        "repeats request %1, as the driver does with a range longer than its "
                        "limit of %2")
                        .arg(first + 1)
                        .arg(plan.maxWords));
        else if (request.isTooLong())
            warn(i, lengthWarning(request));
        else if (coverage.misreadCount > 0)
            warn(i, splitWarning(request, coverage));
    }
    return warnings;
}

QString cycleText(const CycleCost& cost)
{
    const double seconds = static_cast<double>(cost.duration) / MICROSECONDS;
    return QStringLiteral("Cycle: %1, %2 bytes out, %3 in, %4 (%5 cycles/s), line load %6")
        .arg(counted(cost.requests, "request", "requests"), QString::number(cost.bytesSent),
             QString::number(cost.bytesExpected), timeText(cost.duration),
             QString::number(1.0 / seconds, 'f', 1), percentText(cost.lineLoad()));
}

QStringList lengthRows(const QList<LengthResult>& results, const LengthResult& chosen, int maxWords)
{
    QList<QStringList> rows = {{QStringLiteral("LIMIT"), QStringLiteral("REQUESTS"),
                                QStringLiteral("BYTES OUT"), QStringLiteral("BYTES IN"),
                                QStringLiteral("CYCLE"), QStringLiteral("LOAD"),
                                QStringLiteral("UNREAD"), QString()}};
    rows << lengthRow(chosen, maxWords == 0 ? QStringList(IN_USE) : QStringList());
    const int best = bestOf(results);
    for (const LengthResult& result : worthShowing(results, maxWords)) {
        QStringList marks;
        if (result.maxWords == results[best].maxWords)
            marks << QStringLiteral("best limit");
        if (result.maxWords == maxWords)
            marks << IN_USE;
        rows << lengthRow(result, marks);
    }
    return alignedRows(rows, {0, 1, 2, 3, 4, 5, 6});
}

} // namespace kx
