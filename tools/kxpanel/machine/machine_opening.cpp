// How a machine opens and closes its line, in its thread.

#include "addresses/request_limits.h"
#include "kxhost/commands/connection.h"
#include "kxhost/ports/port_list.h"
#include "kxpanel/machine/machine_jobs.h"
#include "kxpanel/machine/machine_parts.h"

#include <utility>

namespace kxpanel
{

kx::SessionSettings limited(const kx::SessionSettings& settings, int maxWords, int maxBits)
{
    kx::SessionSettings limited = settings;
    limited.choosesLengths = true;
    limited.maxWords = maxWords > 0 ? maxWords : kx::MOST_REGISTERS_PER_READ;
    limited.maxBits = maxBits > 0 ? maxBits : kx::MOST_COILS_PER_READ;
    return limited;
}

void Machine::open(const kx::ConnectionOptions& options, bool readsValues)
{
    close(QString());
    m_parts->options = options;
    m_parts->readsValues = readsValues;
    simulateStations();
    m_parts->status = LineStatus();
    QString error;
    m_parts->line = makeLine(m_parts->options, &error);
    if (!m_parts->line)
        return tellLine(LineState::Closed, error);
    m_parts->status.name = m_parts->line->name;
    kx::Connection* const connection = m_parts->line->connection.get();
    m_parts->status.timing = m_parts->options.session.timingOf(connection->line()->timing());
    m_parts->status.replyTimeout = m_parts->options.session.exchange.replyTimeout;
    m_parts->status.isNetwork = connection->line()->timing().baud <= 0;
    connect(connection, &kx::Connection::opened, this, &Machine::onOpened);
    connect(connection, &kx::Connection::failed, this,
            [this](const kx::Failure& failure) { failLater(failure.text + holders()); });
    tellLine(LineState::Opening, QString());
    connection->open();
}

/// Who has the serial port, behind the reason why it cannot be opened; empty: nobody.
QString Machine::holders() const
{
    const QString programs =
        m_parts->status.isNetwork ? QString() : kx::holdersText(m_parts->status.name);
    return programs.isEmpty() ? programs : tr("; in use by %1").arg(programs);
}

/// Whom a person asks answers.
void Machine::simulateStations()
{
    QList<int>* const simulated = &m_parts->options.simulatedStations;
    for (const WatchedValue& value : m_parts->values) {
        const int station = value.tag.range.station;
        if (simulated->contains(station))
            continue;
        *simulated << station;
        if (m_parts->line && m_parts->line->simulator)
            m_parts->line->simulator->addStation(station);
    }
}

void Machine::close(const QString& reason)
{
    ++m_parts->openings;
    m_parts->lostForLong.stop();
    endSession();
    m_parts->line.reset();
    if (m_parts->status.state != LineState::Closed)
        tellLine(LineState::Closed, reason);
}

/// When the line, of whose signals this may be one, has told everybody.
void Machine::failLater(const QString& reason)
{
    const int opening = m_parts->openings;
    call([this, opening, reason] {
        if (opening == m_parts->openings)
            close(reason);
    });
}

void Machine::onOpened()
{
    if (!m_parts->work) // else it was lost, and its session goes on
        beginSession();
}

void Machine::beginSession()
{
    const kx::ConnectionOptions& options = m_parts->options;
    kx::Line* const line = m_parts->line->connection->line();
    kx::DriverEntryPoints driver;
    QString error;
    if (!kx::loadDriver(kx::driverFile(options.library), &driver, &error))
        return failLater(tr("%1; name its file with --library").arg(error));
    auto session = kx::Session::create(driver, line, options.session, &error);
    if (!session)
        return failLater(error);
    m_parts->hasNewLimits = false;
    ++m_parts->status.sessions;
    m_parts->status.shortened.clear();
    m_parts->status.longestRequest = options.session.maxWords;
    m_parts->status.isAutomatic = options.session.choosesLengths;
    std::unique_ptr<kx::GatewayAdvice> advice;
    if (!options.gateway.host.isEmpty() && !options.simulate)
        advice = std::make_unique<kx::GatewayAdvice>(
            line->name(), options.protocol,
            kx::ProtocolNames{tr("Modbus RTU as the protocol"), tr("Modbus TCP as the protocol")});
    beginWork(std::make_unique<MachineSession>(std::move(session), std::move(advice),
                                               m_parts->backlog, m_parts->exchanges,
                                               MachineSession::MOST_KEPT, m_parts->clocks));
}

void Machine::beginWork(std::unique_ptr<MachineSession> work)
{
    lookAtClocks(); // from now on the session does
    m_parts->work = std::move(work);
    const MachineSession* const begun = m_parts->work.get();
    connect(begun, &MachineSession::valuesRead, this, &Machine::valuesRead);
    connect(begun, &MachineSession::exchanged, this, &Machine::exchanged);
    connect(begun, &MachineSession::counted, this, &Machine::counted);
    connect(begun, &MachineSession::cycleFinished, this, &Machine::cycleFinished);
    connect(begun, &MachineSession::missed, this, &Machine::missed);
    connect(begun, &MachineSession::clockSet, this, &Machine::clockSet);
    connect(begun, &MachineSession::told, this, &Machine::told);
    connect(begun, &MachineSession::linkChanged, this, &Machine::onLinkChanged);
    connect(begun, &MachineSession::requestsShortened, this, &Machine::onRequestsShortened);
    tellLine(LineState::Open, QString());
    if (m_parts->readsValues)
        m_parts->work->setValues(m_parts->values);
    m_parts->work->start();
}

void Machine::endSession()
{
    if (!m_parts->work)
        return;
    m_parts->work->stop();
    m_parts->exchanges = m_parts->work->exchanges();
    lookAtClocks(); // all until now was told by the session
    m_parts->work.reset();
}

/// The driver takes lengths when a session begins. Not from a session's signals.
void Machine::useLimits()
{
    if (!m_parts->hasNewLimits || m_parts->status.state != LineState::Open || !m_jobs->isEmpty())
        return;
    endSession();
    beginSession();
}

void Machine::onLinkChanged(bool isLost, const QString& fault)
{
    const bool wasLost = m_parts->status.state == LineState::Interrupted;
    tellLine(isLost ? LineState::Interrupted : LineState::Open, fault);
    if (isLost == wasLost)
        return;
    const kx::SessionSettings& session = m_parts->options.session;
    if (isLost)
        return m_parts->lostForLong.start(session.retries * session.exchange.replyTimeout);
    m_parts->lostForLong.stop();
    call([this] { useLimits(); });
}

void Machine::onRequestsShortened(int station, const kx::StationRules& rules)
{
    m_parts->status.shortened.insert(station, rules);
    tellLine(m_parts->status.state, m_parts->status.fault);
}

void Machine::onJobEnded(int ticket, const kx::Failure& failure)
{
    --m_jobsAsked;
    emit jobEnded(ticket, failure);
    call([this] { useLimits(); });
}

void Machine::tellLine(LineState state, const QString& fault)
{
    lookAtClocks(); // before who listens looks at them
    m_parts->status.state = state;
    m_parts->status.fault = fault;
    emit lineChanged(m_parts->status);
}

/// A session tells of it by itself; then this only goes along.
void Machine::lookAtClocks()
{
    const Clocks& clocks = m_parts->clocks;
    const SystemTimes now = lookAtOnce([&clocks] { return clocks().steady; }, clocks).system;
    const qint64 by = m_parts->times.look(now.steady, now);
    if (by != 0 && !m_parts->work)
        emit clockSet(by);
}

} // namespace kxpanel
