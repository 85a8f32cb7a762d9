#include "tools/faults/faulty_run.h"

#include "registers/register_types.h"
#include "tools/faults/whole_frames.h"

#include <QtTest/QTest>

namespace kx
{

using kxsim::Fault;

namespace
{

const qint64 LONG_ENOUGH = 10000000; // microseconds, for late replies to come

DriverEntryPoints loadedDriver()
{
    DriverEntryPoints entryPoints;
    QString error;
    if (!loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error))
        qFatal("%s", qPrintable(error));
    return entryPoints;
}

std::unique_ptr<Session> makeSession(Line* line, const SessionSettings& settings, LoopClock* clock)
{
    QString error;
    std::unique_ptr<Session> session =
        Session::create(loadedDriver(), line, settings, &error, clock);
    if (!session)
        qFatal("%s", qPrintable(error));
    return session;
}

bool isRead(const ExchangeRecord& record)
{
    return record.job.kind == CYCLIC_READ_JOB || record.job.kind == CONDITION_READ_JOB;
}

} // namespace

int runLength(const char* variable, int usual)
{
    const int asked = qEnvironmentVariableIntValue(variable);
    return asked > 0 ? asked : usual;
}

AddressRange rangeOf(const QString& text)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(text, &range, &error))
        qFatal("%s", qPrintable(error));
    return range;
}

FaultyRun::FaultyRun(const FaultyRunSettings& settings)
    : m_line(settings.line, &m_clock),
      m_memory(&m_line.stations()),
      m_session(makeSession(&m_line, settings.session, &m_clock))
{
    for (const QString& text : settings.watched)
        m_watched << rangeOf(text);
    if (!haveMarksOfTheirOwn(m_watched))
        qFatal("two watched registers share their mark");
    m_line.onRequest = [this](const QByteArray& request) { m_memory.prepareFor(request); };
    QObject::connect(m_session.get(), &Session::exchanged, m_session.get(),
                     [this](const ExchangeRecord& record) { onExchange(record); });
    m_readsPerCycle = m_session->watch(m_watched);
    m_session->start();
}

void FaultyRun::runUntil(const std::function<bool()>& isEnough)
{
    while (!isEnough() && m_clock.step()) {
    }
}

void FaultyRun::settle()
{
    m_session->watch(QList<AddressRange>());
    // What is in flight is answered or fails; then the driver has nothing to send.
    m_clock.pass(LONG_ENOUGH);
}

void FaultyRun::onExchange(const ExchangeRecord& record)
{
    if (record.result == REPLY_ACCEPTED && isRead(record)) {
        const RegisterType* const type = findRegisterType(record.job.regType);
        check({type, record.job.address, record.job.count / registersPerAddress(type),
               record.job.station});
    }
    if (record.replyKind == ReplyKind::Bad || record.replyKind == ReplyKind::Short)
        m_hiddenReplies += wholeFramesIn(record.reply) - record.foreignReplies;
    if (record.result == REPLY_ACCEPTED)
        m_countAtAnswer[record.job.station] = m_memory.count();
}

void FaultyRun::check(const AddressRange& range)
{
    int address = range.address;
    for (const qint64 value : m_session->values(range)) {
        ++m_valuesShown;
        if (!m_memory.belongsTo(range.type, range.station, address, value))
            ++m_misplaced;
        else if (!m_memory.hasHeld(range.type, range.station, address, value,
                                   m_countAtAnswer.value(range.station)))
            ++m_stale;
        ++address;
    }
}

qint64 FaultyRun::wholeReplies() const
{
    return faults(Fault::None) + faults(Fault::ExtraAfter) + 2 * faults(Fault::Duplicate)
           + faults(Fault::ExtraBefore) + faults(Fault::Echo) + faults(Fault::OtherStation)
           + faults(Fault::Delay) - m_line.lostLateReplies() + m_line.framesByChance();
}

} // namespace kx
