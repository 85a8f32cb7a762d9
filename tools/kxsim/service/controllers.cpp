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

} // namespace

std::unique_ptr<Controllers> Controllers::make(const Simulation& simulation, QString* error)
{
    std::unique_ptr<Controllers> controllers(new Controllers(simulation.stations));
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

} // namespace kxsim
