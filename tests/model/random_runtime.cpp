#include "model/random_runtime.h"

namespace
{

const int REMEMBERED_CALLS = 12;
const int LARGEST_READ = 20000; // elements; a failed read marks as many records

/// The library, as the value-change function sees it.
struct LibrarySide {
    static void getData(int station, const QString& type, int address, int count,
                        unsigned char* out)
    {
        intf_getData(station, type, address, count, out);
    }
    static void setData(int station, const QString& type, int address, int count,
                        unsigned char* data)
    {
        intf_setData(station, type, address, count, data, 2);
    }
    static void addConditionRead(KEY_ADDRESS& key) { intf_addConditionRead(key, 3); }
    static QList<VARIABLE>& readJobs() { return driver.readList; }
};

struct PlainSide {
    PlainDriver& plain;
    void getData(int station, const QString& type, int address, int count, unsigned char* out)
    {
        plain.getData(station, type, address, count, out);
    }
    void setData(int station, const QString& type, int address, int count,
                 const unsigned char* data)
    {
        plain.setData(station, type, address, count, data, 2);
    }
    void addConditionRead(const KEY_ADDRESS& key) { plain.addConditionRead(key, 3); }
    QList<VARIABLE>& readJobs() { return plain.readList; }
};

} // namespace

RandomRuntime::RandomRuntime(quint64 seed)
    : m_values(seed),
      m_random(m_values.random()),
      m_library("1#0#0#3#32"),
      m_plainShared(m_library.shared),
      m_plainRecipe(m_library.recipe)
{
    m_plain.initProperty(m_plainShared.data(), m_plainRecipe.data(), "1#0#0#3#32");
    m_library.onReport = [this](const Report& report) { libraryReported(report); };
    m_plain.valueChanged = [this](int link, int station, const QString& name, int address) {
        plainReported(link, station, name, address);
    };
}

RandomRuntime::Call RandomRuntime::drawCall()
{
    static const Share SHARES[] = {
        {2, &RandomRuntime::initialise},
        {12, &RandomRuntime::poll},
        {10, &RandomRuntime::deal},
        {60, &RandomRuntime::exchange},
        {6, &RandomRuntime::requestRecipe},
        {14, &RandomRuntime::getData},
        {18, &RandomRuntime::setData},
        {10, &RandomRuntime::planReads},
        {10, &RandomRuntime::addConditionRead},
        {5, &RandomRuntime::setRecipe},
        {3, &RandomRuntime::checkAddress},
        {1, &RandomRuntime::listRegisters},
        {2, &RandomRuntime::copyAddresses},
        {2, &RandomRuntime::weigh},
        {5, &RandomRuntime::merge},
        {4, &RandomRuntime::markMonitored},
        {1, &RandomRuntime::setBit},
        {3, &RandomRuntime::queueJob},
        {5, &RandomRuntime::buildFrame},
        {2, &RandomRuntime::checkReply},
        {2, &RandomRuntime::finishJob},
        {2, &RandomRuntime::fillRecipeJob},
        {5, &RandomRuntime::lookUpRecord},
        {3, &RandomRuntime::saveWritten},
        {3, &RandomRuntime::settleWrite},
        {4, &RandomRuntime::reportWord},
        {2, &RandomRuntime::reportWhole},
        {2, &RandomRuntime::reportByte},
        {5, &RandomRuntime::appendRecord},
        {6, &RandomRuntime::changeRecord},
        {2, &RandomRuntime::rearrangeRecords},
        {2, &RandomRuntime::keepCopy},
        {1, &RandomRuntime::changeLists},
        {1, &RandomRuntime::changeTypeOrder},
        {8, &RandomRuntime::changeReadJobs},
        {3, &RandomRuntime::keepReadJobs},
    };
    int total = 0;
    for (const Share& share : SHARES)
        total += share.weight;
    int drawn = m_random.below(total);
    const Share* chosen = SHARES;
    while (drawn >= chosen->weight) {
        drawn -= chosen->weight;
        ++chosen;
    }
    return chosen->call;
}

void RandomRuntime::step()
{
    const Call call = drawCall();
    beginCalls();
    (this->*call)();
    if (m_random.below(4000) == 0)
        floodQueue();
    compareReports();
    compareNumbers();
    if (m_random.chance(25))
        compareState();
}

QString RandomRuntime::story() const
{
    return QString::fromLatin1("after %1 calls, the last ones:\n").arg(m_callCount)
           + m_calls.join(QLatin1String("\n")) + QLatin1String("\nfirst difference: ")
           + m_difference;
}

void RandomRuntime::called(const QString& call)
{
    ++m_callCount;
    m_calls.append(call);
    if (m_calls.size() > REMEMBERED_CALLS)
        m_calls.removeFirst();
}

void RandomRuntime::beginCalls()
{
    m_callSeed = m_random.next();
    m_library.reports.clear();
    m_plainReports.clear();
    m_libraryRead.clear();
    m_plainRead.clear();
}

template <class Side>
void RandomRuntime::callFromInside(Side& side, const Report& report, int number,
                                   QList<QByteArray>& read)
{
    RandomSource random(m_callSeed + static_cast<quint64>(number));
    const bool named = random.chance(80);
    const QString type =
        named ? report.name : QString::fromLatin1(random.oneOf({"D", "M", "32CV"}));
    const int count = random.between(1, 4);
    unsigned char bytes[16] = {0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE};
    if (random.chance(50)) {
        side.getData(report.station, type, report.address, count, bytes);
        read.append(QByteArray(reinterpret_cast<const char*>(bytes), sizeof bytes));
    }
    if (random.chance(6)) {
        for (unsigned char& byte : bytes)
            byte = static_cast<unsigned char>(random.below(3));
        side.setData(report.station, type, report.address, count, bytes);
    }
    if (random.chance(4)) {
        KEY_ADDRESS wanted = key(report.station, "D", random.below(20), random.below(40));
        side.addConditionRead(wanted);
    }
    if (random.chance(3))
        changeJobs(side.readJobs(), random);
}

void RandomRuntime::libraryReported(const Report& report)
{
    const bool isFree = m_library.mutex.tryLock();
    if (isFree)
        m_library.mutex.unlock();
    same("mutex free while reporting", isFree ? 1 : 0, 1);
    if (m_depth > 0)
        return;
    ++m_depth;
    LibrarySide side;
    callFromInside(side, report, static_cast<int>(m_library.reports.size()), m_libraryRead);
    --m_depth;
}

void RandomRuntime::plainReported(int link, int station, const QString& name, int address)
{
    const Report report = {link, station, name, address};
    m_plainReports.append(report);
    if (m_depth > 0)
        return;
    ++m_depth;
    PlainSide side = {m_plain};
    callFromInside(side, report, static_cast<int>(m_plainReports.size()), m_plainRead);
    --m_depth;
}

bool RandomRuntime::isTooLarge(const FRAME_PRO& frame) const
{
    return frame.dataLen > LARGEST_READ || frame.job.count > LARGEST_READ;
}
