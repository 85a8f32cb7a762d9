#include "kxpanel/machine/machine_session.h"

#include "data/reply_handling.h"
#include "panel/session/driver_values.h"

#include <QtCore/QDateTime>
#include <QtCore/QStringList>

#include <utility>

namespace kxpanel
{

namespace
{

const int GATHERING_TIME = 50; // milliseconds
const int COUNTING_TIME = 500; // milliseconds

} // namespace

MachineSession::MachineSession(std::unique_ptr<kx::Session> session,
                               std::unique_ptr<kx::GatewayAdvice> advice, qint64 exchanges)
    : m_session(std::move(session)),
      m_advice(std::move(advice)),
      m_watch(m_session.get()),
      m_exchangeCount(exchanges)
{
    connect(&m_watch, &kx::Watch::listReplaced, this, [this] {
        m_values.takeList(m_watch.list());
        gather();
    });
    connect(&m_watch, &kx::Watch::entriesChanged, this, [this](const QList<int>& indexes) {
        m_values.mark(indexes);
        gather();
    });
    connect(&m_watch, &kx::Watch::exchanged, this, &MachineSession::onExchange);
    connect(m_session->line(), &kx::Line::interrupted, this, [this] {
        m_isLost = true;
        tellLink(m_link.onLineLost());
    });
    connect(m_session->line(), &kx::Line::opened, this, [this] {
        m_isLost = false;
        tellLink(m_link.onLineOpened());
    });
    connect(&m_watch, &kx::Watch::cycleFinished, this, &MachineSession::cycleFinished);
    m_gathering.setSingleShot(true);
    m_gathering.setInterval(GATHERING_TIME);
    m_counting.setInterval(COUNTING_TIME);
    connect(&m_gathering, &QTimer::timeout, this, &MachineSession::tellGathered);
    connect(&m_counting, &QTimer::timeout, this, [this] { emit counted(m_watch.summary()); });
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
    m_epoch = QDateTime::currentMSecsSinceEpoch();
    m_session->start();
    m_counting.start();
}

void MachineSession::stop()
{
    m_session->stop();
    m_counting.stop();
    tellGathered();
    emit counted(m_watch.summary());
}

void MachineSession::onExchange(const kx::ExchangeRecord& record)
{
    m_exchanges << exchangeOf(record, ++m_exchangeCount);
    if (record.job.kind == CYCLIC_READ_JOB && record.result == REPLY_ACCEPTED)
        m_values.markRead(kx::rangeOf(record.job));
    gather();
    if (m_advice)
        m_advice->onExchange(record);
    const bool isOfValues = m_stations.contains(record.job.station);
    tellLink(isOfValues ? m_link.onExchange(record) : QList<kx::LinkEvent>());
}

void MachineSession::tellLink(const QList<kx::LinkEvent>& events)
{
    const QString fault = faultNow();
    if (events.isEmpty() && fault == m_fault)
        return;
    m_fault = fault;
    emit linkChanged(m_isLost, fault);
}

QString MachineSession::faultNow() const
{
    QStringList faults = {m_link.faultText(), m_advice ? m_advice->text() : QString()};
    faults.removeAll(QString());
    return faults.join(QStringLiteral("; "));
}

void MachineSession::gather()
{
    if (!m_gathering.isActive())
        m_gathering.start();
}

// Exchanges first: whoever takes a reading has been told what brought it.
void MachineSession::tellGathered()
{
    m_gathering.stop();
    if (!m_exchanges.isEmpty())
        emit exchanged(std::exchange(m_exchanges, {}));
    if (m_values.hasMarked())
        emit valuesRead(m_values.takeMarked(m_watch.list(), m_epoch));
}

} // namespace kxpanel
