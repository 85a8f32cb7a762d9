#ifndef KX_PANEL_SESSION_POLL_FEED_H
#define KX_PANEL_SESSION_POLL_FEED_H

#include "driver/tarvelan.h"
#include "exchange/loop_clock.h"
#include "exchange/replies/exchange_record.h"
#include "panel/polling/poll_schedule.h"

#include <QtCore/QStringList>

namespace kx
{

/// Polls, of which the driver is given one at a time. By itself it would join them anew, by one
/// limit for coils and registers, and take them in one order for ever.
class PollFeed
{
public:
    /// @param object the driver's object
    /// @param clock tells when polls are due
    /// @param replyTimeout milliseconds
    PollFeed(tarvelan* object, const LoopClock* clock, int replyTimeout);

    /// The request that is on its way belongs to none of the new polls.
    void replace(const QList<PolledRange>& polls);
    const PollSchedule& schedule() const { return m_schedule; }

    /// The driver's list of what it polls is the poll that is next, or empty.
    void offer();
    void withhold() { m_driver->readList.clear(); }
    /// The driver has taken the poll that was offered last.
    void begin();
    /// What was taken is not repeated when nobody answers.
    bool isTry() const { return m_isTry; }
    /// Whether what was taken belongs to the present polls.
    bool hasTaken() const { return m_taken >= 0; }
    /// What was taken has ended.
    PollSchedule::Step end(const ExchangeRecord& record);

private:
    void giveUp();

    tarvelan* m_driver;
    const LoopClock* m_clock;
    PollSchedule m_schedule;
    QStringList m_typeNames; ///< by row
    int m_offered = -1;      ///< index in the schedule
    int m_taken = -1;        ///< index in the schedule
    bool m_isTry = false;
};

} // namespace kx

#endif
