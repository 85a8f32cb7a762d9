#include "panel/watch/watch.h"

#include "panel/files/whole_range.h"
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
    connect(session, &Session::stationSilenced, this,
            [this](int station) { tell(m_list.onSilence(station)); });
    connect(session, &Session::requestsShortened, this, &Watch::onShortened);
    connect(session, &Session::cycleFinished, this, &Watch::countCycle);
    connect(session, &Session::lineFailed, this, &Watch::onLineLost);
    connect(session->line(), &Line::interrupted, this, [this] { tellLink(m_link.onLineLost()); });
    connect(session->line(), &Line::opened, this, &Watch::onLineOpened);
}

void Watch::setTags(const QList<Tag>& tags)
{
    QList<Tag> existing;
    QList<PolledRange> polled; // the session tells which of them do not exist
    for (const Tag& tag : tags) {
        const AddressRange range = wholeRange(tag);
        polled << PolledRange{range, tag.interval};
        if (rangeRefusal(range).isNone())
            existing << tag;
    }
    WatchList list(existing);
    list.keepValuesOf(m_list);
    m_list = list;
    m_session->watch(polled);
    emit listReplaced();
}

WatchSummary Watch::summary() const
{
    WatchSummary summary;
    summary.statistics = m_session->statistics();
    summary.timing = m_session->line()->timing();
    summary.elapsed = m_session->elapsed();
    summary.cycles = m_cycles;
    summary.missed = m_session->missedPolls();
    return summary;
}

void Watch::onChange(const ValueChange& change)
{
    const AddressRange& range = change.range;
    tell(m_list.onChange(
        range.station, QString::fromLatin1(range.type->name), range.address,
        [&](const WatchEntry& entry) { return valuesAfter(change, entry); }, now()));
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
    if (record.result == REPLY_ACCEPTED)
        tell(m_list.onRead(
            record.job,
            [this](const WatchEntry& entry) { return m_session->values(entry.range()); }, now()));
    else if (record.result == REPLY_FAILED)
        tell(m_list.onFailure(record.job, record.replyKind == ReplyKind::Exception
                                              && !isGatewayException(record.exceptionCode)));
}

void Watch::countCycle()
{
    ++m_cycles;
    emit cycleFinished(m_cycles);
}

void Watch::onShortened(int station, const StationRules& rules)
{
    LinkEvent event = {LinkEvent::RequestsShortened, station};
    event.rules = rules;
    tellLink({event});
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

/// None of an entry of which the request brought a part alone.
QList<qint64> Watch::valuesAfter(const ValueChange& change, const WatchEntry& entry) const
{
    if (entry.width == 1)
        return {change.value};
    return isWhole(entry.range(), change) ? m_session->values(entry.range()) : QList<qint64>();
}

} // namespace kx
