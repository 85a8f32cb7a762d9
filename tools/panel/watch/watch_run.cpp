#include "panel/watch/watch_run.h"

#include "addresses/watch_pieces.h"
#include "panel/files/tags_file.h"

namespace kx
{

WatchRun::WatchRun(Session* session, const QList<Tag>& tags, qint64 cycles, WatchView* view)
    : m_session(session), m_ranges(rangesOf(tags)), m_list(tags), m_view(view), m_cycleLimit(cycles)
{
    connect(session, &Session::valueChanged, this, &WatchRun::takeChange);
    connect(session, &Session::exchanged, this, &WatchRun::takeExchange);
    connect(session, &Session::lineFailed, this, &WatchRun::loseLine);
    connect(session->line(), &Line::interrupted, this, [this] { showLink(m_link.takeLineLost()); });
    connect(session->line(), &Line::opened, this, [this] { showLink(m_link.takeLineOpened()); });
}

void WatchRun::start()
{
    m_readsPerCycle = m_session->watch(watchPieces(m_ranges, m_session->settings().maxWords));
    m_session->start();
}

void WatchRun::finish()
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    m_session->stop();
    m_view->showSummary(summary());
    emit finished();
}

WatchSummary WatchRun::summary() const
{
    WatchSummary summary;
    summary.statistics = m_session->statistics();
    summary.timing = m_session->line()->timing();
    summary.elapsed = m_session->elapsed();
    summary.cycles = m_readsPerCycle > 0 ? m_readsFinished / m_readsPerCycle : 0;
    return summary;
}

void WatchRun::takeChange(const ValueChange& change)
{
    const AddressRange& range = change.range;
    show(m_list.takeChange(
        range.station, QString::fromLatin1(range.type->name), range.address,
        [this](const WatchEntry& entry) { return valueOf(entry); }, now()));
}

void WatchRun::takeExchange(const ExchangeRecord& record)
{
    m_view->showExchange(record);
    showLink(m_link.takeExchange(record));
    if (record.job.kind == CYCLIC_READ_JOB)
        takeRead(record);
}

void WatchRun::takeRead(const ExchangeRecord& record)
{
    if (record.result == REPLY_ACCEPTED)
        show(m_list.takeRead(
            record.job, [this](const WatchEntry& entry) { return valueOf(entry); }, now()));
    else if (record.result == REPLY_FAILED)
        show(m_list.takeFailure(record.job, record.replyKind == ReplyKind::Exception));
    else
        return;
    ++m_readsFinished;
    if (m_cycleLimit == 0 || summary().cycles < m_cycleLimit)
        return;
    m_session->stop();
    // The changes that the last reply brought are reported after it.
    QMetaObject::invokeMethod(this, &WatchRun::finish, Qt::QueuedConnection);
}

void WatchRun::loseLine(const Failure& failure)
{
    m_isLineLost = true;
    // The view gives the terminal back first.
    finish();
    emit lineLost(failure.text);
}

void WatchRun::show(const QList<int>& indexes)
{
    const QDateTime time = QDateTime::currentDateTime();
    for (const int index : indexes)
        m_view->showEntry(m_list.entries().at(index), time);
}

void WatchRun::showLink(const QList<LinkEvent>& events)
{
    const QDateTime time = QDateTime::currentDateTime();
    for (const LinkEvent& event : events)
        m_view->showLinkEvent(event, time);
}

qint64 WatchRun::valueOf(const WatchEntry& entry) const
{
    return m_session->values(entry.range()).first();
}

} // namespace kx
