#ifndef KX_PANEL_SESSION_POLLING_H
#define KX_PANEL_SESSION_POLLING_H

#include "exchange/lines/line.h"
#include "panel/plan/watched_ranges.h"
#include "panel/plan/whole_values.h"
#include "panel/polling/learned_rules.h"
#include "panel/session/driver_port.h"

namespace kx
{

/// What the end of a poll has changed.
struct PollEvents {
    bool endsCycle = false;
    int silenced = 0;  ///< station that is left out from now on; 0: none
    int shortened = 0; ///< station that refused a request, and is asked otherwise; 0: none
};

/// What a session polls, and with which requests.
class Polling
{
public:
    /// All stay the caller's and outlive this.
    Polling(DriverPort* port, const Line* line, const SessionSettings& settings,
            const LoopClock* clock);

    /// Replaces what is polled.
    /// @param ranges must exist and name their stations
    /// @return how many requests read all
    int replace(const QList<PolledRange>& ranges);
    /// @param record of a poll
    PollEvents onExchange(const ExchangeRecord& record);
    StationRules rulesOf(int station) const { return m_learned.rules().of(station); }

private:
    int plan();
    bool learn(const ExchangeRecord& record);

    DriverPort* m_port;
    const Line* m_line;
    SessionSettings m_settings;
    const LoopClock* m_clock;
    LearnedRules m_learned;
    QList<PolledRange> m_ranges;
    WatchedRanges m_watched{{}}; ///< the same, in order
    WholeValues m_values{{}};    ///< of several registers, of the same
    qint64 m_plannedAt = 0;      ///< by the clock
};

} // namespace kx

#endif
