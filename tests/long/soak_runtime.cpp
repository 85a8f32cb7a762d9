#include "long/soak_runtime.h"

#include <cstdio>
#include <cstdlib>

namespace
{

const int SHARED_BLOCK_SIZE = 60117;
const int WRITE_REQUEST = 60115;
const int READ_REQUEST = 60116;
const int RETRY_LIMIT = 3;
const int LINK = 4;
const int GAP_IN_BUFFER = 5; // words between the recipe ranges

SoakRuntime* current = nullptr;

void expect(bool holds, const char* what, const VARIABLE& job)
{
    if (!holds)
        soakFailed(QString::fromLatin1("%1: station %2, %3 %4, count %5")
                       .arg(QString::fromLatin1(what))
                       .arg(job.station)
                       .arg(job.regType)
                       .arg(job.address)
                       .arg(job.count));
}

DeviceRange rangeOf(const VARIABLE& job)
{
    const DeviceRange range = {job.station, job.regType, job.address, job.count};
    return range;
}

const DeviceRange* processRangeAround(const DeviceRange& range)
{
    for (const DeviceRange& process : processRanges()) {
        if (holds(process, range))
            return &process;
    }
    return nullptr;
}

QVector<_RCP_VAR_PRO> recipeVariables()
{
    QVector<_RCP_VAR_PRO> variables;
    int offset = 0;
    for (const DeviceRange& range : recipeRanges()) {
        for (int i = 0; i < range.count; ++i) {
            _RCP_VAR_PRO variable = _RCP_VAR_PRO();
            variable.rcpId = LINK;
            variable.station = range.station;
            variable.regType = range.regType;
            variable.address = range.address + i;
            variable.count = 1;
            variable.bufOffset = offset + i;
            variables.append(variable);
        }
        offset += range.count + GAP_IN_BUFFER;
    }
    return variables;
}

size_t recipeBufferSize()
{
    size_t size = 0;
    for (const DeviceRange& range : recipeRanges())
        size += static_cast<size_t>(range.count + GAP_IN_BUFFER);
    return size;
}

} // namespace

void soakFailed(const QString& what)
{
    std::fprintf(stderr, "soak: %s\n", qPrintable(what));
    std::exit(1);
}

SoakRuntime::SoakRuntime(quint64 seed)
    : m_random(seed),
      m_counts(),
      m_shared(SHARED_BLOCK_SIZE, 0),
      m_recipe(recipeBufferSize(), 0),
      m_request(FRAME_PRO()),
      m_faults(0),
      m_maxWords(0),
      m_badInARow(0),
      m_handlesReply(false),
      m_writesInside(false),
      m_conditionAsked(false),
      m_recipeFailed(false)
{
    current = this;
    intf_setAddrValueChangeCallBack(valueChanged);
}

SoakRuntime::~SoakRuntime()
{
    intf_initProperty(nullptr, nullptr, nullptr, nullptr, "", nullptr);
    intf_setAddrValueChangeCallBack(nullptr);
    current = nullptr;
}

void SoakRuntime::initialise(int maxWords)
{
    ++m_counts.initialisations;
    m_maxWords = maxWords;
    m_badInARow = 0;
    m_conditionAsked = false;
    m_recipeFailed = true; // one under way goes on, but not from its start
    int status = -1;
    const QByteArray parameters =
        QString::fromLatin1("%1#0#0#%2#%3").arg(LINK).arg(RETRY_LIMIT).arg(maxWords).toLatin1();
    intf_initProperty(m_shared.data(), this, m_recipe.data(), &status, parameters.constData(),
                      &m_mutex);
    QVector<_RCP_VAR_PRO> variables = recipeVariables();
    if (status != 0 || intf_setRcpAddress(variables) != variables.size())
        soakFailed(QString::fromLatin1("initialising went wrong"));
}

void SoakRuntime::watch(const std::vector<DeviceRange>& ranges)
{
    ++m_counts.plans;
    QList<KEY_ADDRESS> keys;
    for (const DeviceRange& range : ranges) {
        KEY_ADDRESS key = KEY_ADDRESS();
        key.station = range.station;
        key.regType = range.regType;
        key.address = range.address;
        key.count = range.count;
        keys.append(key);
    }
    const int jobs = intf_addrMerge(keys);
    if (jobs < 1 || jobs != driver.readList.size())
        soakFailed(QString::fromLatin1("a plan of %1 jobs").arg(jobs));
}

void SoakRuntime::write(const DeviceRange& range)
{
    QByteArray written(bytesOf(range), '\0');
    for (int i = 0; i < written.size(); ++i)
        written[i] =
            static_cast<char>(holdsBits(range.regType) ? m_random.byte() & 1 : m_random.byte());
    intf_setData(range.station, range.regType, range.address, range.count,
                 reinterpret_cast<unsigned char*>(written.data()), WRITE_JOB);
    if (values(range) != written)
        soakFailed(QString::fromLatin1("a value just written is not seen"));
}

void SoakRuntime::askOnce(const DeviceRange& range)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = range.station;
    key.regType = range.regType;
    key.address = range.address;
    key.count = range.count;
    key.bitIndex = holdsBits(range.regType) ? -1 : 0;
    intf_addConditionRead(key, CONDITION_READ_JOB);
    m_conditionAsked = true;
}

void SoakRuntime::startRecipe(bool download)
{
    m_recipeFailed = false;
    if (download) {
        for (quint16& word : m_recipe)
            word = static_cast<quint16>(m_random.next() & 0xFFFF);
    } else {
        for (const DeviceRange& range : recipeRanges()) {
            QByteArray fresh(bytesOf(range), '\0');
            for (int i = 0; i < fresh.size(); ++i)
                fresh[i] = static_cast<char>(m_random.byte());
            putIntoMemory(m_controller, range, fresh);
        }
    }
    const QMutexLocker locker(&m_mutex);
    m_shared[download ? WRITE_REQUEST : READ_REQUEST] = 1;
}

void SoakRuntime::letTheProcessMove()
{
    const std::vector<DeviceRange>& ranges = processRanges();
    for (int i = m_random.below(4); i >= 0; --i) {
        const DeviceRange& whole = ranges[static_cast<size_t>(m_random.below(int(ranges.size())))];
        const int step = holdsDoubleWords(whole.regType) ? 2 : 1;
        DeviceRange one = whole;
        one.count = step;
        one.address += m_random.below(whole.count / step);
        QByteArray value(bytesOf(one), '\0');
        for (int byte = 0; byte < value.size(); ++byte)
            value[byte] =
                static_cast<char>(holdsBits(one.regType) ? m_random.byte() & 1 : m_random.byte());
        putIntoMemory(m_controller, one, value);
    }
}

bool SoakRuntime::exchange()
{
    const bool uploads = m_shared[READ_REQUEST] == 1;
    const bool downloads = m_shared[WRITE_REQUEST] == 1;
    if (intf_getSendFrame(&m_request) != 1)
        return false;
    ++m_counts.exchanges;
    const QByteArray good = m_controller.replyTo(m_request);
    expect(!good.isEmpty(), "a malformed request", m_request.job);
    const bool isGood = !m_random.chance(m_faults);
    QByteArray reply = isGood ? good : damaged(good);
    QString errorText;
    const int kind = driver.currentKind;
    m_handlesReply = true;
    const int result = intf_dealRcvFrame(reply, errorText);
    m_handlesReply = false;
    checkResult(result, isGood);
    if (result == REPLY_ACCEPTED)
        checkServed(kind, m_request.job);
    if (result == REPLY_FAILED && kind == CONDITION_READ_JOB)
        m_conditionAsked = false;
    if (result == REPLY_FAILED && (kind == RECIPE_READ_JOB || kind == RECIPE_WRITE_JOB))
        m_recipeFailed = true;
    if ((uploads && m_shared[READ_REQUEST] == 0) || (downloads && m_shared[WRITE_REQUEST] == 0))
        checkRecipe(!m_recipeFailed);
    return true;
}

QByteArray SoakRuntime::damaged(QByteArray reply)
{
    switch (m_random.below(4)) {
    case 0:
        return QByteArray();
    case 1:
        return reply.left(m_random.below(static_cast<int>(reply.size())));
    case 2:
        return reply + reply;
    default: {
        const int byte = m_random.below(static_cast<int>(reply.size()));
        reply[byte] = static_cast<char>(reply.at(byte) ^ 1 << m_random.below(8));
        return reply;
    }
    }
}

void SoakRuntime::checkResult(int result, bool isGood)
{
    m_badInARow = isGood ? 0 : m_badInARow + 1;
    const bool isLast = m_badInARow == RETRY_LIMIT;
    const int expected = isGood ? REPLY_ACCEPTED : isLast ? REPLY_FAILED : REPLY_RETRY;
    if (isLast)
        m_badInARow = 0;
    expect(result == expected, "another result than expected", m_request.job);
    m_counts.accepted += result == REPLY_ACCEPTED ? 1 : 0;
    m_counts.repeated += result == REPLY_RETRY ? 1 : 0;
    m_counts.failed += result == REPLY_FAILED ? 1 : 0;
    expect(driver.frameList.size() == (result == REPLY_RETRY ? 1 : 0), "frames left over",
           m_request.job);
    expect(driver.writeList.size() <= 513 && driver.condList.size() <= 513, "a queue too long",
           m_request.job);
}

void SoakRuntime::checkServed(int kind, const VARIABLE& job)
{
    const DeviceRange range = rangeOf(job);
    if (kind == WRITE_JOB) {
        ++m_counts.writes;
        const QByteArray sent(reinterpret_cast<const char*>(job.data), bytesOf(range));
        expect(inMemory(m_controller, range) == sent, "a confirmed write is not in memory", job);
        m_counts.valuesCompared += range.count;
    } else if (kind == CYCLIC_READ_JOB || kind == CONDITION_READ_JOB) {
        ++(kind == CYCLIC_READ_JOB ? m_counts.reads : m_counts.conditionReads);
        if (processRangeAround(range))
            compare(range);
    } else {
        ++m_counts.recipeBlocks;
    }
}

void SoakRuntime::checkRecipe(bool isGood)
{
    if (!isGood)
        return;
    ++m_counts.recipes;
    size_t offset = 0;
    for (const DeviceRange& range : recipeRanges()) {
        const QByteArray inBuffer(reinterpret_cast<const char*>(&m_recipe[offset]), bytesOf(range));
        if (inBuffer != inMemory(m_controller, range))
            soakFailed(QString::fromLatin1("a recipe differs: %1").arg(range.regType));
        m_counts.valuesCompared += range.count;
        offset += static_cast<size_t>(range.count + GAP_IN_BUFFER);
    }
}

QByteArray SoakRuntime::values(const DeviceRange& range)
{
    QByteArray out(bytesOf(range), '\xEE');
    intf_getData(range.station, range.regType, range.address, range.count,
                 reinterpret_cast<unsigned char*>(out.data()));
    return out;
}

void SoakRuntime::compare(const DeviceRange& range)
{
    m_counts.valuesCompared += range.count;
    if (values(range) != inMemory(m_controller, range))
        soakFailed(QString::fromLatin1("a value differs: station %1, %2 %3, count %4")
                       .arg(range.station)
                       .arg(range.regType)
                       .arg(range.address)
                       .arg(range.count));
}

void SoakRuntime::valueChanged(int link, int station, QString name, int address)
{
    current->reported(link, station, name, address);
}

void SoakRuntime::reported(int link, int station, const QString& name, int address)
{
    ++m_counts.reports;
    if (link == -1)
        return conditionEnded(address);
    if (link == 0) {
        if (station != -1 || name != QLatin1String("RWI") || driver.currentKind != RECIPE_READ_JOB)
            soakFailed(QString::fromLatin1("a recipe word out of season"));
        return;
    }
    if (link != LINK)
        soakFailed(QString::fromLatin1("a report of link %1").arg(link));
    const DeviceRange one = {station, name, address, holdsDoubleWords(name) ? 2 : 1};
    // In here a runtime still sees the value before; coils are reported unchanged too.
    if (m_handlesReply && !holdsBits(name) && processRangeAround(one)
        && values(one) == inMemory(m_controller, one))
        soakFailed(QString::fromLatin1("%1 %2 was reported unchanged").arg(name).arg(address));
    if (m_handlesReply && m_writesInside && m_random.below(1024) == 0) {
        const DeviceRange setpoint = {3, QString::fromLatin1("Z"), m_random.below(16), 1};
        m_handlesReply = false; // its own reports are about a write
        write(setpoint);
        m_handlesReply = true;
    }
}

void SoakRuntime::conditionEnded(int result)
{
    if (!m_conditionAsked || (result != 0 && result != -1))
        soakFailed(
            QString::fromLatin1("an end without a condition read, or result %1").arg(result));
    m_conditionAsked = false;
}
