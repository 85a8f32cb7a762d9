#include "kxsim/service/controllers.h"

#include "kxsim/memory/memory_file.h"

namespace kxsim
{

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
    for (const Wave& wave : simulation.waves) {
        if (!controllers->m_programme.add(wave, error))
            return nullptr;
    }
    controllers->m_programme.start(simulation.moves);
    return controllers;
}

} // namespace kxsim
