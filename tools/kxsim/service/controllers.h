/// Controllers made ready for service: their memories with all that was preset, and their
/// programme at time 0.
#ifndef KX_KXSIM_SERVICE_CONTROLLERS_H
#define KX_KXSIM_SERVICE_CONTROLLERS_H

#include "kxsim/memory/stations.h"
#include "kxsim/programme/programme.h"
#include "kxsim/service/simulation.h"

#include <memory>

namespace kxsim
{

class Controllers
{
public:
    /// Null, and one line in `*error`, when the memory file, a preset or the programme cannot be.
    static std::unique_ptr<Controllers> make(const Simulation& simulation, QString* error);

    /// One more station, with all that was made for each: its time is that of the others. Nothing
    /// happens when it is there.
    void addStation(int number);

    Stations* stations() { return &m_stations; }
    Programme* programme() { return &m_programme; }

private:
    explicit Controllers(const Simulation& simulation)
        : m_simulation(simulation), m_stations(simulation.stations), m_programme(&m_stations)
    {
    }

    Simulation m_simulation;
    Stations m_stations;
    Programme m_programme;
};

} // namespace kxsim

#endif
