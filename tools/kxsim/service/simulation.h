/// What to simulate.
#ifndef KX_KXSIM_SERVICE_SIMULATION_H
#define KX_KXSIM_SERVICE_SIMULATION_H

#include "addresses/address_text.h"
#include "kxsim/faults/fault_plan.h"
#include "kxsim/faults/outage.h"
#include "kxsim/programme/preset_contact.h"
#include "kxsim/programme/wave.h"
#include "kxsim/timing/duration_text.h"
#include "kxsim/timing/pace.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace kxsim
{

struct Simulation {
    QList<int> stations = {1};     ///< 1 to 247, at least one; each has its own memory
    QString memoryFile;            ///< values to begin with, see memory_file.h; empty: none
    QList<kx::Assignment> presets; ///< in all stations unless they name one
    bool moves = true;             ///< values change by themselves, presets never
    QList<PresetContact> timers;   ///< one for a T at most
    QList<PresetContact> counters; ///< one for a C at most
    QList<Wave> waves;             ///< none of a preset, one for an address at most
    FaultPlan faults;              ///< its seed is the turnaround's, too
    QList<Outage> outages;         ///< of stations that are simulated
    Pace pace;                     ///< of the line
    DurationRange turnaround;      ///< from the end of a request to its reply
};

} // namespace kxsim

#endif
