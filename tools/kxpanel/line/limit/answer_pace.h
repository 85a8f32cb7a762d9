#ifndef KX_KXPANEL_LINE_LIMIT_ANSWER_PACE_H
#define KX_KXPANEL_LINE_LIMIT_ANSWER_PACE_H

#include "exchange/lines/line_timing.h"

#include "panel/plan/read_rules.h"

#include <QtCore/QMap>

namespace kxpanel
{

/// What requests took so far. Times in microseconds, by station.
struct AnswerPace {
    kx::LineTiming line; ///< serial line, be it behind a gateway
    /// From the end of a request to the first character of its reply; on a network to its end.
    QMap<int, qint64> turnarounds;
    /// How stations are asked that refused a request.
    QMap<int, kx::StationRules> shortened;
    qint64 replyTimeout = 0; ///< in which replies on a serial line must come; 0: not known
    bool isNetwork = false;
    // Of a network: what its serial line, its gateway and the station take together.
    double perByte = 0;     ///< of request and reply
    QMap<int, qint64> each; ///< for a request of no length
};

bool operator==(const AnswerPace& one, const AnswerPace& other);

/// What is foreseen by one is not what is foreseen by the other: it differs by more than replies
/// do from one to the next.
bool areFarApart(const AnswerPace& one, const AnswerPace& other);

} // namespace kxpanel

#endif
