#include "modbus/outstanding_read.h"

#include "data/data_areas.h"

#include <cstring>

namespace
{

const int ADDRESS = 100;
const int REGISTERS = 125;

QByteArray replyOf(int first, int step)
{
    QByteArray frame = bytes("01 03 FA"); // station, function, 250 bytes
    for (int i = 0; i < REGISTERS; ++i) {
        const int value = first + i * step;
        frame.append(static_cast<char>(value >> 8 & 0xFF));
        frame.append(static_cast<char>(value & 0xFF));
    }
    return withCrc(frame.toHex().constData());
}

void write(const char* regType, int address, unsigned char value)
{
    unsigned char values[2] = {value, 0};
    intf_setData(1, QString::fromLatin1(regType), address, 1, values, WRITE_JOB);
}

void fillQueues()
{
    write("Y", 0, 1);
    write("D", 150, 77); // pending on an address that the reply brings
    KEY_ADDRESS wanted = key(1, "TV", 7, 3);
    intf_addConditionRead(wanted, CONDITION_READ_JOB);
    QVector<_RCP_VAR_PRO> recipe;
    for (const int address : {300, 350})
        recipe << variable(1, QString::fromLatin1("D"), address, 1, 0);
    intf_setRcpAddress(recipe);
}

bool sameValue(const _DATA_& a, const _DATA_& b)
{
    return a.writePending == b.writePending && a.reserved == b.reserved
           && a.monitorFlags == b.monitorFlags && a.bitMonitorMask == b.bitMonitorMask
           && a.station == b.station && a.regType == b.regType && a.address == b.address
           && std::memcmp(a.value, b.value, sizeof a.value) == 0
           && std::memcmp(a.writeValue, b.writeValue, sizeof a.writeValue) == 0;
}

} // namespace

OutstandingRead::OutstandingRead(int first, int step)
    : m_runtime("1#0#0#2147483647#125"), m_good(replyOf(first, step)), m_reply(m_good), m_refused(0)
{
    QList<KEY_ADDRESS> watched;
    watched << key(1, "D", ADDRESS, REGISTERS) << key(1, "M", 3, 20);
    intf_addrMerge(watched);
    m_runtime.poll(); // the coils, planned first
    m_runtime.deal(withCrc("01 01 03 5A3C0F"));
    m_runtime.poll();
    m_runtime.deal(replyOf(0x0F1E, 0x0101)); // other values than the reply brings
    m_runtime.poll();
    m_runtime.deal(withCrc("01 01 03 5A3C0F"));
    m_request = m_runtime.poll();
    fillQueues();
    m_runtime.reports.clear();
    m_reply.data(); // no longer shares its bytes with the good one
    m_cache = driver.dataAreas;
    m_reads = driver.readList;
    m_writes = driver.writeList;
    m_conditions = driver.condList;
    m_recipe = driver.rcpVarsA;
    m_blocks = driver.rcpVars;
    m_starts = driver.intList;
}

void OutstandingRead::flipBits(int start, int pattern)
{
    char* const data = m_reply.data();
    for (int bit = start; pattern != 0; ++bit, pattern >>= 1) {
        if (pattern & 1)
            data[bit / 8] = static_cast<char>(data[bit / 8] ^ 1 << bit % 8);
    }
}

bool OutstandingRead::refuses(const QByteArray& reply)
{
    QByteArray& received = const_cast<QByteArray&>(reply); // the driver does not change it
    QString errorText = QString::fromLatin1("");
    ++m_refused;
    return intf_dealRcvFrame(received, errorText) == REPLY_RETRY && errorText.isEmpty()
           && isUntouched();
}

bool OutstandingRead::isUntouched() const
{
    return driver.dataAreas.isSharedWith(m_cache) && driver.readList.isSharedWith(m_reads)
           && driver.writeList.isSharedWith(m_writes) && driver.condList.isSharedWith(m_conditions)
           && driver.rcpVarsA.isSharedWith(m_recipe) && driver.rcpVars.isSharedWith(m_blocks)
           && driver.intList.isSharedWith(m_starts) && driver.frameList.size() == 1
           && driver.errorCount == m_refused && driver.commFailed == 0
           && driver.currentKind == CYCLIC_READ_JOB && m_runtime.reports.isEmpty();
}

bool OutstandingRead::endsWell()
{
    if (m_reply != m_good || m_runtime.poll() != m_request || m_runtime.deal(m_reply) != 1)
        return false;
    QByteArray values;
    for (int i = 0; i < REGISTERS; ++i) {
        values.append(m_good.at(4 + 2 * i));
        values.append(m_good.at(3 + 2 * i));
    }
    return DriverFixture::data(1, "D", ADDRESS, REGISTERS, 2 * REGISTERS) == values;
}

int OutstandingRead::marksOfFailure() const
{
    int marks = 0;
    for (int i = 0; i < REGISTERS; ++i) {
        const int index =
            getIndexOfDataArea(1, QString::fromLatin1("D"), ADDRESS + i, driver.dataAreas);
        marks += driver.dataAreas.at(index).commError;
    }
    return marks;
}

bool OutstandingRead::onlyMarksDiffer() const
{
    bool same = driver.dataAreas.size() == m_cache.size();
    for (int i = 0; same && i < m_cache.size(); ++i) {
        const _DATA_& now = driver.dataAreas.at(i);
        same = sameValue(now, m_cache.at(i))
               && (now.commError == 0 || now.regType == QString::fromLatin1("D"));
    }
    return same && driver.writeList.isSharedWith(m_writes)
           && driver.condList.isSharedWith(m_conditions) && driver.rcpVarsA.isSharedWith(m_recipe)
           && driver.rcpVars.isSharedWith(m_blocks) && driver.intList.isSharedWith(m_starts)
           && driver.readList.size() == m_reads.size() && m_runtime.reports.isEmpty();
}
