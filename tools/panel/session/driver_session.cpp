#include "panel/session/driver_session.h"

#include <QtCore/QMutexLocker>

namespace kx
{

namespace
{

const size_t SHARED_BLOCK_SIZE = 60117;
const int RECIPE_WRITE_REQUEST = 60115;
const int RECIPE_READ_REQUEST = 60116;
const size_t RECIPE_BUFFER_WORDS = 65536;

DriverSession* liveSession = nullptr;

KEY_ADDRESS keyOf(const AddressRange& range)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = range.station;
    key.regType = QString::fromLatin1(range.type->name);
    key.address = range.address;
    key.bitIndex = range.type->registerClass == BIT_CLASS ? -1 : 0;
    key.count = range.driverCount();
    return key;
}

int bytesPerValue(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS ? 1 : 2 * registersPerAddress(type);
}

QByteArray littleEndian(const QList<qint64>& values, int size)
{
    QByteArray bytes;
    for (const qint64 value : values) {
        for (int i = 0; i < size; ++i)
            bytes.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    }
    return bytes;
}

qint64 valueAt(const QByteArray& bytes, int offset, int size)
{
    qint64 value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value * 256 + static_cast<unsigned char>(bytes.at(offset + i));
    return value;
}

} // namespace

DriverSession::DriverSession(const DriverEntryPoints& entryPoints, Line* line,
                             const SessionSettings& settings, LoopClock* clock, QObject* parent)
    : QObject(parent),
      m_driver(entryPoints),
      m_line(line),
      m_settings(settings),
      m_shared(SHARED_BLOCK_SIZE, 0),
      m_recipeBuffer(RECIPE_BUFFER_WORDS, 0),
      m_loop(entryPoints, line, settings.exchange, clock)
{
    liveSession = this;
    m_driver.setAddrValueChangeCallBack(valueChangeFunction);
    initialise();
    connect(&m_loop, &ExchangeLoop::exchanged, this, &DriverSession::handleExchange);
    connect(&m_loop, &ExchangeLoop::idle, this, &DriverSession::idle);
    connect(&m_loop, &ExchangeLoop::lineFailed, this, &DriverSession::lineFailed);
}

DriverSession::~DriverSession()
{
    m_loop.stop();
    if (liveSession != this)
        return;
    // The driver must not keep pointers into a session that is gone.
    m_driver.initProperty(nullptr, nullptr, nullptr, &m_status, "", nullptr);
    liveSession = nullptr;
}

void DriverSession::initialise()
{
    m_parameters = QString::fromLatin1("%1#%2#0#%3#%4")
                       .arg(m_settings.link)
                       .arg(m_settings.writeLocalOnly ? 1 : 0)
                       .arg(m_settings.retries)
                       .arg(m_settings.maxWords)
                       .toLatin1();
    m_driver.initProperty(m_shared.data(), nullptr, m_recipeBuffer.data(), &m_status,
                          m_parameters.constData(), &m_mutex);
}

int DriverSession::watch(const QList<AddressRange>& ranges)
{
    QList<KEY_ADDRESS> keys;
    for (const AddressRange& range : ranges)
        keys << keyOf(range);
    const int requests = m_driver.addrMerge(keys);
    m_loop.wake();
    return requests;
}

void DriverSession::conditionRead(const AddressRange& range)
{
    KEY_ADDRESS key = keyOf(range);
    m_driver.addConditionRead(key, CONDITION_READ_JOB);
    m_loop.wake();
}

void DriverSession::write(const Assignment& assignment)
{
    const AddressRange& range = assignment.range;
    QByteArray bytes = littleEndian(assignment.values, bytesPerValue(range.type));
    m_driver.setData(range.station, QString::fromLatin1(range.type->name), range.address,
                     range.driverCount(), reinterpret_cast<unsigned char*>(bytes.data()),
                     WRITE_JOB);
    tellReports();
    m_loop.wake();
}

QList<qint64> DriverSession::values(const AddressRange& range) const
{
    const int size = bytesPerValue(range.type);
    QByteArray bytes(range.values * size, '\0');
    m_driver.getData(range.station, QString::fromLatin1(range.type->name), range.address,
                     range.driverCount(), reinterpret_cast<unsigned char*>(bytes.data()));
    QList<qint64> values;
    for (int i = 0; i < range.values; ++i)
        values << valueAt(bytes, i * size, size);
    return values;
}

int DriverSession::setRecipe(const QVector<_RCP_VAR_PRO>& variables)
{
    QVector<_RCP_VAR_PRO> copy = variables;
    return m_driver.setRcpAddress(copy);
}

void DriverSession::setRecipeRequest(int byte, unsigned char value)
{
    const QMutexLocker lock(&m_mutex);
    m_shared[static_cast<size_t>(byte)] = value;
}

void DriverSession::requestRecipeWrite()
{
    setRecipeRequest(RECIPE_WRITE_REQUEST, 1);
    m_loop.wake();
}

void DriverSession::requestRecipeRead()
{
    setRecipeRequest(RECIPE_READ_REQUEST, 1);
    m_loop.wake();
}

bool DriverSession::isRecipePending()
{
    const QMutexLocker lock(&m_mutex);
    return m_shared[RECIPE_WRITE_REQUEST] == 1 || m_shared[RECIPE_READ_REQUEST] == 1;
}

void DriverSession::cancelRecipe()
{
    setRecipeRequest(RECIPE_WRITE_REQUEST, 0);
    setRecipeRequest(RECIPE_READ_REQUEST, 0);
}

void DriverSession::valueChangeFunction(int link, int station, QString name, int address)
{
    if (liveSession)
        liveSession->m_reports.append({link, station, name, address});
}

void DriverSession::tell(const Report& report)
{
    if (report.link == -1)
        emit conditionReadFinished(report.address);
    else if (report.name == QLatin1String("RWI"))
        emit recipeWordRead(report.address);
    else
        emit valueChanged(report.link, report.station, report.name, report.address);
}

void DriverSession::tellReports()
{
    // A slot may write a value, which adds reports.
    QList<Report> reports;
    reports.swap(m_reports);
    for (const Report& report : reports)
        tell(report);
}

void DriverSession::handleExchange(const ExchangeRecord& record)
{
    emit exchanged(record);
    tellReports();
    if (record.result == REPLY_FAILED)
        emit deviceFailed(record.errorText, record.job);
}

} // namespace kx
