/// A plan as one JSON object; times in microseconds.
#ifndef KX_KXHOST_VIEWS_PLAN_JSON_H
#define KX_KXHOST_VIEWS_PLAN_JSON_H

#include "panel/plan/plan_lengths.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// @param lengths of each limit
/// @param chosen  of the chosen lengths
QJsonObject planJson(const Plan& plan, const QList<LengthResult>& lengths,
                     const LengthResult& chosen, const WatchedRanges& watched,
                     const PlanTiming& timing);

} // namespace kx

#endif
