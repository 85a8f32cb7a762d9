#include "long/known_addresses.h"

#include "long/soak_runtime.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace
{

const size_t TYPES = 13;
const int ADDRESSES = 32768; // more than the furthest mark
const size_t NOWHERE = static_cast<size_t>(-1);
const int BITS_PER_GROUP = 8;

enum Mark { UNKNOWN = 0, KNOWN = 1, SEEN = 2 };

size_t rowOf(const QString& regType)
{
    static const QStringList names =
        QString::fromLatin1("X,Y,M,SM,S,T,C,D,SD,CV,32CV,TV,Z").split(QLatin1Char(','));
    static int last = 0; // records of one type mostly stand together
    if (last < 0 || names.at(last) != regType)
        last = static_cast<int>(names.indexOf(regType));
    return last < 0 ? NOWHERE : static_cast<size_t>(last);
}

QString textOf(const _DATA_& area)
{
    return QString::fromLatin1("station %1, %2 %3")
        .arg(area.station)
        .arg(area.regType)
        .arg(area.address);
}

} // namespace

KnownAddresses::KnownAddresses()
    : m_known(MemoryController::STATIONS * TYPES * ADDRESSES, UNKNOWN), m_count(0)
{
}

void KnownAddresses::clear()
{
    std::fill(m_known.begin(), m_known.end(), UNKNOWN);
    m_count = 0;
}

size_t KnownAddresses::placeOf(int station, const QString& regType, int address) const
{
    const size_t row = rowOf(regType);
    if (station < 1 || station > MemoryController::STATIONS || row == NOWHERE || address < 0
        || address >= ADDRESSES)
        return NOWHERE;
    return (static_cast<size_t>(station - 1) * TYPES + row) * ADDRESSES
           + static_cast<size_t>(address);
}

void KnownAddresses::add(const DeviceRange& range, int addresses, int stride)
{
    if (addresses < 1)
        return;
    const size_t first = placeOf(range.station, range.regType, range.address);
    const int furthest = range.address + (addresses - 1) * stride;
    if (first == NOWHERE || placeOf(range.station, range.regType, furthest) == NOWHERE)
        soakFailed(
            QString::fromLatin1("%1 %2 is out of the soak").arg(range.regType).arg(furthest));
    for (int i = 0; i < addresses; ++i) {
        unsigned char& mark = m_known[first + static_cast<size_t>(i * stride)];
        m_count += mark == UNKNOWN ? 1 : 0;
        mark = KNOWN;
    }
}

void KnownAddresses::addAll(const DeviceRange& range)
{
    add(range, range.count / (holdsDoubleWords(range.regType) ? 2 : 1), 1);
}

void KnownAddresses::addWatched(const DeviceRange& range)
{
    if (!holdsBits(range.regType))
        return addAll(range);
    DeviceRange groups = range;
    groups.address -= range.address % BITS_PER_GROUP;
    const int bits = range.address % BITS_PER_GROUP + range.count;
    add(groups, (bits + BITS_PER_GROUP - 1) / BITS_PER_GROUP, BITS_PER_GROUP);
}

void KnownAddresses::addUnanswered(const DeviceRange& range)
{
    add(range, range.count, holdsBits(range.regType) ? MARK_STRIDE_OF_BITS : 1);
}

QString KnownAddresses::wrongIn(const QList<_DATA_>& cache) const
{
    std::vector<unsigned char> seen = m_known;
    for (int i = 0; i < cache.size(); ++i) {
        const _DATA_& area = cache.at(i);
        const size_t place = placeOf(area.station, area.regType, area.address);
        if (place == NOWHERE || seen[place] == UNKNOWN)
            return QString::fromLatin1("the cache holds %1, which nothing asked for")
                .arg(textOf(area));
        if (seen[place] == SEEN)
            return QString::fromLatin1("the cache holds %1 twice").arg(textOf(area));
        seen[place] = SEEN;
    }
    if (cache.size() != m_count)
        return QString::fromLatin1("the cache holds %1 of %2 values")
            .arg(cache.size())
            .arg(m_count);
    return QString();
}
