#include "kxsim/memory/stations.h"

namespace kxsim
{

namespace
{

using Setter = void (ControllerMemory::*)(const RegisterType* type, int address, quint32 value);

void apply(const kx::Assignment& assignment, const std::vector<ControllerMemory*>& memories,
           Setter setter)
{
    for (ControllerMemory* const memory : memories) {
        int address = assignment.range.address;
        for (const qint64 value : assignment.values)
            (memory->*setter)(assignment.range.type, address++, static_cast<quint32>(value));
    }
}

QString notSimulated(const kx::AddressRange& range)
{
    return QStringLiteral("%1@%2: station %2 is not simulated")
        .arg(kx::addressText(range.type, range.address))
        .arg(range.station);
}

} // namespace

Stations::Stations(const QList<int>& numbers)
{
    for (const int number : numbers)
        m_memories[number];
}

ControllerMemory* Stations::memory(int station)
{
    const auto found = m_memories.find(station);
    return found == m_memories.end() ? nullptr : &found->second;
}

void Stations::setHears(int station, bool hears)
{
    if (hears)
        m_deaf.erase(station);
    else
        m_deaf.insert(station);
}

bool Stations::named(const kx::AddressRange& range, std::vector<ControllerMemory*>* memories,
                     QString* error)
{
    if (range.station < 0) {
        for (auto& [station, stationMemory] : m_memories)
            memories->push_back(&stationMemory);
        return true;
    }
    ControllerMemory* const only = memory(range.station);
    if (only)
        memories->push_back(only);
    else
        *error = notSimulated(range);
    return only != nullptr;
}

bool Stations::preset(const kx::Assignment& assignment, QString* error)
{
    std::vector<ControllerMemory*> memories;
    if (!named(assignment.range, &memories, error))
        return false;
    apply(assignment, memories, &ControllerMemory::preset);
    return true;
}

void Stations::set(const kx::Assignment& assignment)
{
    QString unused;
    std::vector<ControllerMemory*> memories;
    if (named(assignment.range, &memories, &unused))
        apply(assignment, memories, &ControllerMemory::setValue);
}

bool Stations::values(const kx::AddressRange& range, QList<quint32>* values, QString* error)
{
    const ControllerMemory* const named =
        range.station < 0 ? &m_memories.begin()->second : memory(range.station);
    if (!named) {
        *error = notSimulated(range);
        return false;
    }
    for (int address = range.address; address < range.address + range.values; ++address)
        values->append(named->value(range.type, address));
    return true;
}

} // namespace kxsim
