#include "kxsim/service/controllers.h"

#include "kxsim/memory/memory_file.h"

namespace kxsim
{

namespace
{

bool addParts(const Simulation& simulation, Programme* programme, QString* error)
{
    for (const PresetContact& timer : simulation.timers) {
        if (!programme->addTimer(timer, error))
            return false;
    }
    for (const PresetContact& counter : simulation.counters) {
        if (!programme->addCounter(counter, error))
            return false;
    }
    for (const Wave& wave : simulation.waves) {
        if (!programme->addWave(wave, error))
            return false;
    }
    return true;
}

/// Then it is made one of that station.
bool isForEach(kx::AddressRange* range, int station)
{
    if (range->station >= 0)
        return false;
    range->station = station;
    return true;
}

} // namespace

std::unique_ptr<Controllers> Controllers::make(const Simulation& simulation, QString* error)
{
    std::unique_ptr<Controllers> controllers(new Controllers(simulation));
    if (!simulation.memoryFile.isEmpty()
        && !loadMemory(simulation.memoryFile, &controllers->m_stations, error))
        return nullptr;
    for (const kx::Assignment& preset : simulation.presets) {
        if (!controllers->m_stations.preset(preset, error))
            return nullptr;
    }
    if (!addParts(simulation, &controllers->m_programme, error))
        return nullptr;
    controllers->m_programme.start(simulation.moves);
    return controllers;
}

void Controllers::addStation(int number)
{
    if (m_stations.memory(number))
        return;
    m_stations.add(number);
    QString unused; // what fitted into the others fits into this one
    for (kx::Assignment preset : m_simulation.presets) {
        if (isForEach(&preset.range, number))
            m_stations.preset(preset, &unused);
    }
    Simulation own;
    for (PresetContact timer : m_simulation.timers) {
        if (isForEach(&timer.contact, number))
            own.timers << timer;
    }
    for (PresetContact counter : m_simulation.counters) {
        if (isForEach(&counter.contact, number))
            own.counters << counter;
    }
    for (Wave wave : m_simulation.waves) {
        if (isForEach(&wave.range, number))
            own.waves << wave;
    }
    addParts(own, &m_programme, &unused);
    m_programme.startStation(number);
}

} // namespace kxsim
