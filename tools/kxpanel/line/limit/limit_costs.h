#ifndef KX_KXPANEL_LINE_LIMIT_LIMIT_COSTS_H
#define KX_KXPANEL_LINE_LIMIT_LIMIT_COSTS_H

#include "kxpanel/exchanges/reply_times.h"
#include "panel/plan/plan_lengths.h"
#include "panel/plan/read_rules.h"
#include "panel/polling/polled_range.h"

#include <QtCore/QMap>
#include <QtCore/QTimer>

namespace kxpanel
{

/// Coils of a request whose reply is as long as that of so many registers.
int bitsFor(int maxWords);

/// For requests of so many registers at most. Stations turn round as they did so far: their median.
kx::ReadRules limitedRules(int maxWords, const kx::LineTiming& timing,
                           const QMap<int, ReplyTimes>& replies);

/// Works out what a cycle costs under each limit, a little at a time, so that the window stays at
/// hand.
class LimitCosts : public QObject
{
    Q_OBJECT

public:
    explicit LimitCosts(QObject* parent = nullptr);

    /// Begins anew.
    /// @param watched with the intervals at which they are read
    void start(const QList<kx::PolledRange>& watched, const kx::LineTiming& timing,
               const QMap<int, ReplyTimes>& replies);

    /// By rising limit from 1 on; as many as are known so far.
    const QList<kx::LengthResult>& results() const { return m_results; }
    bool isFinished() const;
    /// The lowest limit of the shortest cycle; 0 until all are known, and when nothing is watched.
    int best() const;
    /// Of a limit; null while it is not known.
    const kx::LengthResult* of(int maxWords) const;

signals:
    /// There are more results.
    void advanced();

private:
    void work();

    QList<kx::PolledRange> m_watched;
    kx::LineTiming m_timing;
    QMap<int, ReplyTimes> m_replies;
    QList<kx::LengthResult> m_results;
    QTimer m_timer;
};

} // namespace kxpanel

#endif
