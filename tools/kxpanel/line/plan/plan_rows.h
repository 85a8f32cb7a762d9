/// A plan as rows of bars. Pure functions.
#ifndef KX_KXPANEL_LINE_PLAN_PLAN_ROWS_H
#define KX_KXPANEL_LINE_PLAN_PLAN_ROWS_H

#include "panel/plan/plan_request.h"
#include "panel/polling/polled_range.h"

#include <QtCore/QVector>

namespace kxpanel
{

/// Consecutive bits or registers of a request that are all asked for, or all read along.
struct PlanRun {
    int first = 0; ///< counted from the request's first
    int count = 0;
    bool isAsked = false;
};

struct PlanBar {
    kx::PlannedRequest request;
    int interval = 0; ///< milliseconds; 0: in each cycle
    QVector<PlanRun> runs;
    int asked = 0; ///< bits or registers
    int bridged = 0;
};

/// The requests of one type at one station, rising by address.
struct PlanRow {
    int station = 0;
    const RegisterType* type = nullptr;
    QVector<PlanBar> bars;
};

/// @param polls in any order, as kx::plannedPolls() gives them
QVector<PlanRow> planRows(const QList<kx::PolledRange>& polls, const kx::WatchedRanges& watched);

/// Of a reply, so that what takes long is drawn long: a register is 1, a bit a sixteenth.
double widthOf(const kx::PlannedRequest& request, int count);

/// "Station 1, D100 to D131: 32 registers, 20 asked for, 12 read along; 8 bytes out, 69 back,
/// 92.4 ms", and ", every 500 ms" with an interval; translated.
/// @param time of request and reply, microseconds
QString barWords(const PlanBar& bar, qint64 time);

} // namespace kxpanel

#endif
