#include "long/soak_runtime.h"

namespace
{

const int SHARED_BLOCK_SIZE = 60117;
const int WRITE_REQUEST = 60115;
const int READ_REQUEST = 60116;

SoakRuntime* current = nullptr;

QVector<_RCP_VAR_PRO> recipeVariables()
{
    QVector<_RCP_VAR_PRO> variables;
    int offset = 0;
    for (const DeviceRange& range : recipeRanges()) {
        for (int i = 0; i < range.count; ++i) {
            _RCP_VAR_PRO variable = _RCP_VAR_PRO();
            variable.rcpId = SOAK_LINK;
            variable.station = range.station;
            variable.regType = range.regType;
            variable.address = range.address + i;
            variable.count = 1;
            variable.bufOffset = offset + i;
            variables.append(variable);
        }
        offset += range.count + GAP_IN_RECIPE_BUFFER;
    }
    return variables;
}

size_t recipeBufferSize()
{
    size_t size = 0;
    for (const DeviceRange& range : recipeRanges())
        size += static_cast<size_t>(range.count + GAP_IN_RECIPE_BUFFER);
    return size;
}

} // namespace

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
    checkCache();
    m_known.clear();
    ++m_counts.initialisations;
    m_maxWords = maxWords;
    m_badInARow = 0;
    m_conditionAsked = false;
    m_recipeFailed = true; // one under way goes on, but not from its start
    int status = -1;
    const QByteArray parameters = QString::fromLatin1("%1#0#0#%2#%3")
                                      .arg(SOAK_LINK)
                                      .arg(SOAK_RETRY_LIMIT)
                                      .arg(maxWords)
                                      .toLatin1();
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
        m_known.addWatched(range);
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
    soakExpect(!good.isEmpty(), "a malformed request", m_request.job);
    const bool isGood = !m_random.chance(m_faults);
    QByteArray reply = isGood ? good : damaged(good);
    QString errorText;
    const int kind = driver.currentKind;
    m_handlesReply = true;
    const int result = intf_dealRcvFrame(reply, errorText);
    m_handlesReply = false;
    checkResult(result, isGood);
    noteCached(result, kind);
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

void SoakRuntime::valueChanged(int link, int station, QString name, int address)
{
    current->reported(link, station, name, address);
}
