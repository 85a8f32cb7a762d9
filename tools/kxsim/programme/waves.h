/// The waves of all stations of a line, shown in their memories.
#ifndef KX_KXSIM_PROGRAMME_WAVES_H
#define KX_KXSIM_PROGRAMME_WAVES_H

#include "kxsim/memory/stations.h"
#include "kxsim/programme/wave.h"

#include <QtCore/QString>

#include <set>
#include <tuple>
#include <vector>

namespace kxsim
{

class Waves
{
public:
    /// `stations` must outlive the waves.
    explicit Waves(Stations* stations) : m_stations(stations) {}

    /// Adds a wave. Returns false and one line in `*error` when its station is not
    /// simulated, or one of its addresses has a wave, was preset, or is a timer's or
    /// counter's.
    bool add(const Wave& wave, QString* error);

    /// Puts the values of a time into the memories; an address that was preset since
    /// keeps its value. Times may come in any order.
    void showAt(Moment now) const;

private:
    struct Place {
        ControllerMemory* memory;
        const RegisterType* type;
        int address;
        std::size_t wave; ///< index in m_waves
    };

    bool add(const Place& place, QString* error);

    Stations* m_stations;
    std::vector<Wave> m_waves;
    std::vector<Place> m_places;
    std::set<std::tuple<const ControllerMemory*, const RegisterType*, int>> m_taken;
};

} // namespace kxsim

#endif
