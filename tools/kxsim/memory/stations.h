/// The simulated controllers of one line, each with its own memory.
#ifndef KX_KXSIM_MEMORY_STATIONS_H
#define KX_KXSIM_MEMORY_STATIONS_H

#include "addresses/address_text.h"
#include "kxsim/memory/controller_memory.h"

#include <QtCore/QList>

#include <map>
#include <set>
#include <vector>

namespace kxsim
{

class Stations
{
public:
    /// One controller per station number, 1 to 247; at least one.
    explicit Stations(const QList<int>& numbers);

    /// One more, with zeros in its memory; memories that are there stay where they are.
    void add(int number) { m_memories[number]; }

    /// The memory of that station, or null when it is not simulated.
    ControllerMemory* memory(int station);

    /// All memories by station number.
    std::map<int, ControllerMemory>& all() { return m_memories; }

    /// Whether requests reach a station; they do until it is told otherwise.
    bool hears(int station) const { return m_deaf.count(station) == 0; }
    void setHears(int station, bool hears);

    /// The memories that a range means: of the station it names, or of all. Returns false
    /// and one line in `*error` when that station is not simulated.
    bool named(const kx::AddressRange& range, std::vector<ControllerMemory*>* memories,
               QString* error);

    /// Presets in the named station, or in all when none is named. Returns false
    /// and one line in `*error` when the named station is not simulated.
    bool preset(const kx::Assignment& assignment, QString* error);

    /// Sets without presetting, so that what moves goes on from there; the station must be
    /// one that named() finds.
    void set(const kx::Assignment& assignment);

    /// Values in the named station, or in the lowest when none is named.
    bool values(const kx::AddressRange& range, QList<quint32>* values, QString* error);

private:
    std::map<int, ControllerMemory> m_memories;
    std::set<int> m_deaf;
};

} // namespace kxsim

#endif
