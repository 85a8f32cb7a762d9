#ifndef KX_KXPANEL_EXCHANGES_EXCHANGE_HISTORY_H
#define KX_KXPANEL_EXCHANGES_EXCHANGE_HISTORY_H

#include "kxpanel/machine/machine_events.h"

#include <deque>

namespace kxpanel
{

/// The latest exchanges, so many and no more. Each has a place, counted from 0 over all that ever
/// came, which it keeps: Exchange::number may begin anew with another line.
class ExchangeHistory
{
public:
    /// @param most that are kept, 1 or more
    explicit ExchangeHistory(int most) : m_most(most) {}

    /// Forgets the oldest when there are too many.
    void add(const Exchange& exchange);
    /// Forgets all. Places go on.
    void clear();

    int most() const { return m_most; }
    int size() const { return static_cast<int>(m_kept.size()); }
    /// The place of the oldest that is kept; end() when there is none.
    qint64 begin() const { return m_begin; }
    /// The place that the next one gets.
    qint64 end() const { return m_begin + size(); }
    bool has(qint64 place) const { return place >= begin() && place < end(); }
    /// @param place that it has
    const Exchange& at(qint64 place) const { return m_kept[static_cast<size_t>(place - m_begin)]; }

private:
    int m_most;
    std::deque<Exchange> m_kept;
    qint64 m_begin = 0;
};

} // namespace kxpanel

#endif
