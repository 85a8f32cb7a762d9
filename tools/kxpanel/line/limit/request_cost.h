#ifndef KX_KXPANEL_LINE_LIMIT_REQUEST_COST_H
#define KX_KXPANEL_LINE_LIMIT_REQUEST_COST_H

#include "kxpanel/line/limit/answer_pace.h"
#include "panel/plan/plan_request.h"
#include "panel/plan/plan_timing.h"
#include "panel/plan/read_rules.h"
#include "panel/polling/polled_range.h"

#include <functional>

namespace kxpanel
{

/// What a request and its reply cost, until the next one may be sent.
using RequestCost = std::function<kx::CycleCost(const kx::PlannedRequest& request)>;

/// On a serial line whose stations turn round as the rules have it.
RequestCost serialCost(const kx::ReadRules& rules);

/// As the line answered so far: a station of a network that has not, as the slowest. While nothing
/// is known of a network, as its serial line. How long that is used is not known: it is not said to
/// be busy.
RequestCost requestCost(const AnswerPace& pace);

/// By which a session plans requests of so many registers at most.
kx::ReadRules limitedRules(int maxWords, const AnswerPace& pace);

/// Microseconds that stations are assumed to take for a reply, some of which have not answered yet;
/// 0: all have, or on a network one, from which the others are foreseen.
qint64 assumedWait(const QList<kx::PolledRange>& polled, const AnswerPace& pace);

/// Coils of a request whose reply is as long as that of so many registers.
int bitsFor(int maxWords);

} // namespace kxpanel

#endif
