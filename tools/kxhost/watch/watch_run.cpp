#include "kxhost/watch/watch_run.h"

namespace kx
{

WatchRun::WatchRun(Session* session, const QList<Tag>& tags, qint64 cycles, WatchView* view)
    : m_session(session), m_watch(session), m_view(view), m_cycleLimit(cycles)
{
    m_watch.setTags(tags);
    view->attach(&m_watch);
    connect(&m_watch, &Watch::cycleFinished, this, &WatchRun::onCycle);
    connect(&m_watch, &Watch::lineLost, this, &WatchRun::onLineLost);
}

void WatchRun::start()
{
    m_session->start();
}

void WatchRun::finish()
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    m_session->stop();
    m_view->showSummary(m_watch.summary());
    emit finished();
}

void WatchRun::onCycle(qint64 cycles)
{
    if (m_cycleLimit == 0 || cycles < m_cycleLimit)
        return;
    m_session->stop();
    // The changes that the last reply brought are reported after it.
    QMetaObject::invokeMethod(this, &WatchRun::finish, Qt::QueuedConnection);
}

void WatchRun::onLineLost(const Failure& failure)
{
    // The view gives the terminal back first.
    finish();
    emit lineLost(failure.text);
}

} // namespace kx
