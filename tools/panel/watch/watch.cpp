#include "panel/watch/watch.h"

#include "addresses/watch_pieces.h"
#include "panel/session/request_checks.h"
#include "registers/register_types.h"

namespace kx
{

Watch::Watch(Session* session, QObject* parent) : QObject(parent), m_session(session)
{
    qRegisterMetaType<LinkEvent>("kx::LinkEvent");
    qRegisterMetaType<QList<int>>("QList<int>");
    connect(session, &Session::valueChanged, this, &Watch::onChange);
    connect(session, &Session::exchanged, this, &Watch::onExchange);
    connect(session, &Session::lineFailed, this, &Watch::onLineLost);
    connect(session->line(), &Line::interrupted, this, [this] { tellLink(m_link.onLineLost()); });
    connect(session->line(), &Line::opened, this, &Watch::onLineOpened);
}

void Watch::setTags(const QList<Tag>& tags)
{
    QList<Tag> existing;
    QList<AddressRange> others;
    for (const Tag& tag : tags) {
        if (rangeRefusal(tag.range).isNone())
            existing << tag;
        else
            others << tag.range;
    }
    WatchList list(existing);
    list.keepValuesOf(m_list);
    m_list = list;
    m_readsPerCycle =
        m_session->watch(watchPieces(rangesOf(existing), m_session->settings().maxWords) + others);
    m_readsInCycle = m_hasPolled ? -1 : 0;
    emit listReplaced();
}

WatchSummary Watch::summary() const
{
    WatchSummary summary;
    summary.statistics = m_session->statistics();
    summary.timing = m_session->line()->timing();
    summary.elapsed = m_session->elapsed();
    summary.cycles = m_cycles;
    return summary;
}

void Watch::onChange(const ValueChange& change)
{
    const AddressRange& range = change.range;
    tell(m_list.onChange(
        range.station, QString::fromLatin1(range.type->name), range.address,
        [&change](const WatchEntry&) { return change.value; }, now()));
}

void Watch::onExchange(const ExchangeRecord& record)
{
    emit exchanged(record);
    tellLink(m_link.onExchange(record));
    if (record.job.kind == CYCLIC_READ_JOB)
        onRead(record);
}

void Watch::onRead(const ExchangeRecord& record)
{
    m_hasPolled = true;
    if (record.result == REPLY_ACCEPTED)
        tell(m_list.onRead(
            record.job, [this](const WatchEntry& entry) { return valueOf(entry); }, now()));
    else if (record.result == REPLY_FAILED)
        tell(m_list.onFailure(record.job, record.replyKind == ReplyKind::Exception));
    else
        return;
    countRead();
}

void Watch::countRead()
{
    ++m_readsInCycle;
    if (m_readsPerCycle == 0 || m_readsInCycle < m_readsPerCycle)
        return;
    m_readsInCycle = 0;
    ++m_cycles;
    emit cycleFinished(m_cycles);
}

void Watch::onLineLost(const Failure& failure)
{
    m_isLineLost = true;
    emit lineLost(failure);
}

void Watch::onLineOpened()
{
    m_isLineLost = false;
    tellLink(m_link.onLineOpened());
}

void Watch::tell(const QList<int>& indexes)
{
    if (!indexes.isEmpty())
        emit entriesChanged(indexes);
}

void Watch::tellLink(const QList<LinkEvent>& events)
{
    for (const LinkEvent& event : events)
        emit linkChanged(event);
}

qint64 Watch::valueOf(const WatchEntry& entry) const
{
    return m_session->values(entry.range()).first();
}

} // namespace kx
