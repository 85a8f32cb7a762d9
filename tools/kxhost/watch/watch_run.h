#ifndef KX_KXHOST_WATCH_WATCH_RUN_H
#define KX_KXHOST_WATCH_WATCH_RUN_H

#include "kxhost/views/watch/watch_view.h"

namespace kx
{

/// Polls tags from start() until so many cycles are over, somebody ends it or the line is
/// lost, and shows it.
class WatchRun : public QObject
{
    Q_OBJECT

public:
    /// Session and view stay the caller's and outlive the run.
    /// @param cycles after which the run is finished; 0: until it is ended
    WatchRun(Session* session, const QList<Tag>& tags, qint64 cycles, WatchView* view);

    void start();
    /// Stops the exchange and shows the summary, once.
    void finish();

    bool hasDeviceFailed() const { return m_watch.hasDeviceFailed(); }

signals:
    void finished();
    void lineLost(const QString& error);

private:
    void onCycle(qint64 cycles);
    void onLineLost(const Failure& failure);

    Session* m_session;
    Watch m_watch;
    WatchView* m_view;
    qint64 m_cycleLimit;
    bool m_isFinished = false;
};

} // namespace kx

#endif
