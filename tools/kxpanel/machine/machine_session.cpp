#include "kxpanel/machine/machine_session.h"

#include "data/reply_handling.h"
#include "panel/session/driver_values.h"

#include <QtCore/QStringList>

#include <utility>

namespace kxpanel
{

namespace
{

const int GATHERING_TIME = 50;    // milliseconds
const int COUNTING_TIME = 500;    // milliseconds
const int EXCHANGE_WEIGHT = 5;    // readings, by the memory they take
const qint64 LONGEST_REST = 2000; // milliseconds, which a busy computer may take

} // namespace

MachineSession::MachineSession(std::unique_ptr<kx::Session> session,
                               std::unique_ptr<kx::GatewayAdvice> advice, Backlog* backlog,
                               qint64 exchanges, int mostKept, const Clocks& clocks)
    : m_session(std::move(session)),
      m_advice(std::move(advice)),
      m_backlog(backlog),
      m_watch(m_session.get()),
      m_mostKept(mostKept),
      m_exchangeCount(exchanges),
      m_clocks(clocks)
{
    connect(&m_watch, &kx::Watch::listReplaced, this, [this] {
        m_values.takeList(m_watch.list());
        gather();
    });
    connect(&m_watch, &kx::Watch::entriesChanged, this, [this](const QList<int>& indexes) {
        m_values.takeNews(m_watch.list(), indexes);
        gather();
    });
    connect(&m_watch, &kx::Watch::exchanged, this, &MachineSession::onExchange);
    connect(m_session.get(), &kx::Session::requestsShortened, this,
            &MachineSession::requestsShortened);
    connect(m_session->line(), &kx::Line::interrupted, this, [this] { setLost(true); });
    connect(m_session->line(), &kx::Line::opened, this, [this] { setLost(false); });
    connect(&m_watch, &kx::Watch::cycleFinished, this, [this](qint64 cycles) {
        m_cycles = cycles;
        if (!m_exchanges.isEmpty())
            m_exchanges.last().endsCycle = true;
        gather();
    });
    m_gathering.setSingleShot(true);
    m_gathering.setInterval(GATHERING_TIME);
    m_counting.setInterval(COUNTING_TIME);
    connect(&m_gathering, &QTimer::timeout, this, &MachineSession::onGathered);
    connect(&m_counting, &QTimer::timeout, this, [this] {
        lookAtClocks();
        if (!areBehind()) // the next one counts as much
            emit counted(m_watch.summary());
    });
}

void MachineSession::setValues(const QList<WatchedValue>& values)
{
    QSet<int> stations;
    for (const WatchedValue& value : values)
        stations << value.tag.range.station;
    if (!stations.contains(m_stations)) {
        m_link = kx::LinkState(); // of one that is watched no more nothing is heard
        if (m_isLost)
            m_link.onLineLost();
    }
    m_stations = stations;
    tellLink({});
    m_values.setValues(values);
    m_watch.setTags(m_values.tags());
}

void MachineSession::start()
{
    m_session->start();
    const ClockLook first = lookAtOnce([this] { return m_session->elapsed(); }, m_clocks);
    m_times.look(first.session, first.system);
    m_counting.start();
}

void MachineSession::stop()
{
    lookAtClocks();
    m_session->stop();
    m_counting.stop();
    m_values.markAll(); // nothing is known any more of how they are
    tellGathered();
    emit counted(m_watch.summary());
}

void MachineSession::onExchange(const kx::ExchangeRecord& record)
{
    lookAtClocks(); // before the list takes what was read
    m_exchanges << exchangeOf(record, ++m_exchangeCount);
    keepLatest();
    if (record.job.kind == CYCLIC_READ_JOB && record.result == REPLY_ACCEPTED)
        takeAnswer(kx::rangeOf(record.job));
    gather();
    if (m_advice)
        m_advice->onExchange(record);
    const bool isOfValues = m_stations.contains(record.job.station);
    tellLink(isOfValues ? m_link.onExchange(record) : QList<kx::LinkEvent>());
}

void MachineSession::takeAnswer(const kx::AddressRange& polled)
{
    if (polled.type)
        m_values.markRead(m_watch.list(), polled, m_session->answeredValues(polled));
}

void MachineSession::tellLink(const QList<kx::LinkEvent>& events)
{
    const QString fault = faultNow();
    if (events.isEmpty() && fault == m_fault)
        return;
    m_fault = fault;
    m_hasLinkNews = areBehind();
    if (m_hasLinkNews)
        gather();
    else
        emit linkChanged(m_isLost, fault);
}

/// What was read and what was missed before it is told before it: listeners end their curves there.
void MachineSession::setLost(bool isLost)
{
    lookAtClocks();
    if (!areBehind())
        tellGathered();
    m_isLost = isLost;
    if (isLost)
        m_values.markAll();
    gather();
    tellLink(isLost ? m_link.onLineLost() : m_link.onLineOpened());
}

QString MachineSession::faultNow() const
{
    QStringList faults = {m_link.faultText(), m_advice ? m_advice->text() : QString()};
    faults.removeAll(QString());
    return faults.join(QStringLiteral("; "));
}

/// A program that was stopped, or a computer that slept, has read nothing meanwhile.
void MachineSession::lookAtClocks()
{
    const auto [session, now] = lookAtOnce([this] { return m_session->elapsed(); }, m_clocks);
    const qint64 rest = m_awakeAt < 0 ? 0 : now.steady - m_awakeAt;
    const bool hasRested = rest > LONGEST_REST;
    m_awakeAt = now.steady;
    if (hasRested && !areBehind())
        tellGathered(); // what was read before it
    const qint64 by = m_times.look(session, now);
    if (by != 0)
        moveTimes(by);
    if (hasRested)
        noteRest(now.timeOfDay - rest);
}

void MachineSession::noteRest(qint64 from)
{
    if (m_missed.from == 0) { // else it is part of what was missed anyway
        m_missed.isRest = true;
        m_missed.from = from;
    }
    gather();
}

/// What was read has other times of day when that is set: all is told once more.
void MachineSession::moveTimes(qint64 by)
{
    m_setBy += by;
    if (m_missed.from != 0)
        m_missed.from += by;
    m_values.markAll();
    gather();
}

void MachineSession::gather()
{
    if (!m_gathering.isActive())
        m_gathering.start();
}

/// Twice as many at times, so that few are moved.
void MachineSession::keepLatest()
{
    if (m_exchanges.size() < 2 * m_mostKept)
        return;
    m_missed.exchanges += m_exchanges.size() - m_mostKept;
    m_exchanges = m_exchanges.mid(m_exchanges.size() - m_mostKept);
}

void MachineSession::onGathered()
{
    if (!areBehind())
        return tellGathered();
    if (m_missed.from == 0)
        m_missed.from = m_clocks().timeOfDay - GATHERING_TIME;
    m_missed.isRest = false; // something was read since
    m_values.forgetEarlier();
    gather();
}

void MachineSession::tellMissed()
{
    if (m_missed.from == 0)
        return;
    m_missed.to = m_clocks().timeOfDay;
    emit missed(std::exchange(m_missed, Missed()));
}

// Exchanges first: whoever takes a reading has been told what brought it.
void MachineSession::tellGathered()
{
    m_gathering.stop();
    if (m_setBy != 0)
        emit clockSet(std::exchange(m_setBy, 0));
    tellMissed();
    if (std::exchange(m_hasLinkNews, false))
        emit linkChanged(m_isLost, m_fault);
    const QVector<Exchange> exchanges = std::exchange(m_exchanges, {});
    const QVector<Reading> readings =
        m_values.takeMarked(m_watch.list(), m_times, m_isLost || !m_session->isRunning());
    const int amount = static_cast<int>(EXCHANGE_WEIGHT * exchanges.size() + readings.size());
    if (m_backlog)
        m_backlog->add(amount);
    if (!exchanges.isEmpty())
        emit exchanged(exchanges);
    if (!readings.isEmpty())
        emit valuesRead(readings);
    if (m_cycles > 0)
        emit cycleFinished(std::exchange(m_cycles, 0));
    emit told(amount);
}

} // namespace kxpanel
