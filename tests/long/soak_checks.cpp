// What the soak expects of every result, value and report.

#include "long/soak_runtime.h"

#include <cstdio>
#include <cstdlib>

namespace
{

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

QByteArray lowByteFirst(const quint16* words, int length)
{
    QByteArray bytes(length, '\0');
    for (int i = 0; i < length; ++i)
        bytes[i] = static_cast<char>(words[i / 2] >> 8 * (i % 2) & 0xFF);
    return bytes;
}

} // namespace

void soakFailed(const QString& what)
{
    std::fprintf(stderr, "soak: %s\n", qPrintable(what));
    std::exit(1);
}

void soakExpect(bool holds, const char* what, const VARIABLE& job)
{
    if (!holds)
        soakFailed(QString::fromLatin1("%1: station %2, %3 %4, count %5")
                       .arg(QString::fromLatin1(what))
                       .arg(job.station)
                       .arg(job.regType)
                       .arg(job.address)
                       .arg(job.count));
}

void SoakRuntime::checkResult(int result, bool isGood)
{
    m_badInARow = isGood ? 0 : m_badInARow + 1;
    const bool isLast = m_badInARow == SOAK_RETRY_LIMIT;
    const int expected = isGood ? REPLY_ACCEPTED : isLast ? REPLY_FAILED : REPLY_RETRY;
    if (isLast)
        m_badInARow = 0;
    soakExpect(result == expected, "another result than expected", m_request.job);
    m_counts.accepted += result == REPLY_ACCEPTED ? 1 : 0;
    m_counts.repeated += result == REPLY_RETRY ? 1 : 0;
    m_counts.failed += result == REPLY_FAILED ? 1 : 0;
    soakExpect(driver.frameList.size() == (result == REPLY_RETRY ? 1 : 0), "frames left over",
               m_request.job);
    soakExpect(driver.writeList.size() <= 513 && driver.condList.size() <= 513, "a queue too long",
               m_request.job);
}

void SoakRuntime::checkServed(int kind, const VARIABLE& job)
{
    const DeviceRange range = rangeOf(job);
    if (kind == WRITE_JOB) {
        ++m_counts.writes;
        const QByteArray sent(reinterpret_cast<const char*>(job.data), bytesOf(range));
        soakExpect(inMemory(m_controller, range) == sent, "a confirmed write is not in memory",
                   job);
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
        if (lowByteFirst(&m_recipe[offset], bytesOf(range)) != inMemory(m_controller, range))
            soakFailed(QString::fromLatin1("a recipe differs: %1").arg(range.regType));
        m_counts.valuesCompared += range.count;
        offset += static_cast<size_t>(range.count + GAP_IN_RECIPE_BUFFER);
    }
}

QByteArray SoakRuntime::values(const DeviceRange& range)
{
    m_known.addAll(range);
    QByteArray out(bytesOf(range), '\xEE');
    intf_getData(range.station, range.regType, range.address, range.count,
                 reinterpret_cast<unsigned char*>(out.data()));
    return out;
}

void SoakRuntime::noteCached(int result, int kind)
{
    const bool isRead =
        kind == CYCLIC_READ_JOB || kind == CONDITION_READ_JOB || kind == RECIPE_READ_JOB;
    if (isRead && result == REPLY_ACCEPTED)
        m_known.addAll(rangeOf(m_request.job));
    if (isRead && result == REPLY_FAILED)
        m_known.addUnanswered(rangeOf(m_request.job));
}

void SoakRuntime::checkCache()
{
    ++m_counts.cachesChecked;
    const QString wrong = m_known.wrongIn(driver.dataAreas);
    if (!wrong.isEmpty())
        soakFailed(QString::fromLatin1("exchange %1: %2").arg(m_counts.exchanges).arg(wrong));
}

void SoakRuntime::compare(const DeviceRange& range)
{
    m_counts.valuesCompared += range.count;
    const QByteArray seen = values(range);
    const QByteArray there = inMemory(m_controller, range);
    if (seen != there)
        soakFailed(QString::fromLatin1("exchange %1, job kind %2: station %3, %4 %5, count %6: the "
                                       "cache holds %7, the controller %8")
                       .arg(m_counts.exchanges)
                       .arg(driver.currentKind)
                       .arg(range.station)
                       .arg(range.regType)
                       .arg(range.address)
                       .arg(range.count)
                       .arg(QString::fromLatin1(seen.toHex()), QString::fromLatin1(there.toHex())));
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
    if (link != SOAK_LINK)
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
