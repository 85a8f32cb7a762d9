#ifndef KX_KXPANEL_MACHINE_MACHINE_LINE_H
#define KX_KXPANEL_MACHINE_MACHINE_LINE_H

#include "kxhost/options/connection_options.h"
#include "kxsim/service/simulated_line.h"

#include <memory>

namespace kxpanel
{

/// A line as a person asked for it, and what answers on it when that is simulated. What is lost is
/// opened again until the line is deleted.
struct MachineLine {
    std::unique_ptr<kxsim::SimulatedLine> simulator;
    std::unique_ptr<kx::Connection> connection; ///< not opened; goes before the simulator
    QString name;                               ///< as LineStatus::name
};

/// The simulated controllers of a line: each station has values that move by themselves.
kxsim::Simulation simulationOf(const kx::ConnectionOptions& options);

/// Null and one line in `*error` when there is nothing to simulate with.
std::unique_ptr<MachineLine> makeLine(const kx::ConnectionOptions& options, QString* error);

} // namespace kxpanel

#endif
