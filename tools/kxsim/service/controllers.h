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

    Stations* stations() { return &m_stations; }
    Programme* programme() { return &m_programme; }

private:
    explicit Controllers(const QList<int>& stations)
        : m_stations(stations), m_programme(&m_stations)
    {
    }

    Stations m_stations;
    Programme m_programme;
};

} // namespace kxsim

#endif
