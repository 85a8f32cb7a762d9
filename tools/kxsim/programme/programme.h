/// What changes the memories of simulated controllers by itself, as a controller's
/// programme does. Knows no clock: a function of the time it is told and of what others
/// wrote before.
#ifndef KX_KXSIM_PROGRAMME_PROGRAMME_H
#define KX_KXSIM_PROGRAMME_PROGRAMME_H

#include "kxsim/memory/stations.h"
#include "kxsim/programme/motion.h"
#include "kxsim/programme/waves.h"

#include <vector>

namespace kxsim
{

class Programme
{
public:
    /// `stations` must outlive the programme and hold their presets.
    explicit Programme(Stations* stations) : m_waves(stations), m_stations(stations) {}

    /// See Waves::add().
    bool add(const Wave& wave, QString* error) { return m_waves.add(wave, error); }

    /// Puts the values of time 0 into the memories. Once, behind what was added.
    /// @param moves with the addresses of motion.h
    void start(bool moves);

    /// Brings the memories to a time. Call it before they are read or written, and at
    /// least every 100 ms when needsSteps(), or it has to catch up.
    void advanceTo(Moment now);

    /// Whether there is something that goes on from its last value.
    bool needsSteps() const { return !m_motions.empty(); }

private:
    std::vector<Motion> m_motions;
    Waves m_waves;
    Stations* m_stations;
};

} // namespace kxsim

#endif
