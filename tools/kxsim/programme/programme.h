/// What changes the memories of simulated controllers by itself, as a controller's
/// programme does. Knows no clock: a function of the time it is told and of what others
/// wrote before.
#ifndef KX_KXSIM_PROGRAMME_PROGRAMME_H
#define KX_KXSIM_PROGRAMME_PROGRAMME_H

#include "kxsim/memory/stations.h"
#include "kxsim/programme/counter.h"
#include "kxsim/programme/motion.h"
#include "kxsim/programme/timer.h"
#include "kxsim/programme/waves.h"

#include <vector>

namespace kxsim
{

class Programme
{
public:
    /// `stations` must outlive the programme and hold their presets.
    explicit Programme(Stations* stations) : m_waves(stations), m_stations(stations) {}

    /// Adds timers and counters, before waves: contact and value then are neither moved nor
    /// free for waves. Return false and one line in `*error` when their station is not
    /// simulated, or their contact has one already.
    bool addTimer(const PresetContact& timer, QString* error);
    bool addCounter(const PresetContact& counter, QString* error);

    /// See Waves::add().
    bool addWave(const Wave& wave, QString* error) { return m_waves.add(wave, error); }

    /// Puts the values of time 0 into the memories. Once, behind what was added.
    /// @param moves with the addresses of motion.h
    void start(bool moves);

    /// One more station, behind start() and behind what was added for it: its motions go through
    /// all that was.
    void startStation(int station);

    /// Brings the memories to a time. Call it before they are read or written, and at
    /// least every 100 ms when needsSteps(), or it has to catch up.
    void advanceTo(Moment now);

    /// Whether there is something that goes on from its last value.
    bool needsSteps() const { return !m_motions.empty() || scans(); }

private:
    /// A contact in its memory.
    struct Place {
        PresetContact plan;
        ControllerMemory* memory;
    };

    bool add(const PresetContact& contact, const char* option, std::vector<Place>* places,
             QString* error);
    void startContacts();
    bool scans() const { return !m_timerPlaces.empty() || !m_counterPlaces.empty(); }
    void moveTo(Moment now);
    void scan();

    std::vector<Place> m_timerPlaces;
    std::vector<Place> m_counterPlaces;
    std::vector<Timer> m_timers;
    std::vector<Counter> m_counters;
    qint64 m_scans = 0; ///< since time 0
    bool m_moves = false;
    std::vector<Motion> m_motions;
    Waves m_waves;
    Stations* m_stations;
};

} // namespace kxsim

#endif
