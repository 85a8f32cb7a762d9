#ifndef KX_PANEL_POLLING_POLL_PLAN_H
#define KX_PANEL_POLLING_POLL_PLAN_H

#include "panel/plan/read_rules.h"
#include "panel/polling/polled_range.h"

#include <QtCore/QList>

#include <functional>

namespace kx
{

/// Joins ranges of registers to requests.
using RegisterPlanner = std::function<QList<AddressRange>(const QList<AddressRange>&)>;

/// The polls that read the ranges, each of them one request. Ranges of one interval share
/// requests; what is read at a shorter interval anyway is not read again, unless it is a value of
/// several registers of which no request reads all.
/// @param ranges must exist and name their stations
/// @param registers null: by leastTimePieces(), as coils are, and values of more registers than
/// rules.usual.maxWords
QList<PolledRange> plannedPolls(const QList<PolledRange>& ranges, const ReadRules& rules,
                                const RegisterPlanner& registers);

} // namespace kx

#endif
