#include "kxpanel/machine/machine_line.h"

#include <QtCore/QCoreApplication>

#include <limits>

namespace kxpanel
{

namespace
{

/// As long as can be said: 24 days, after which the line counts as closed.
const int PATIENCE = std::numeric_limits<int>::max(); // milliseconds

/// What the demonstration shows. D0, D1, M0, Y0, 32CV200, TV0 and T0 move by themselves.
const char* const WAVES[] = {
    "D100=sine:-50..850/40s",    // tenths of a degree
    "D101=triangle:0..1000/25s", // per mille
    "D102=0..1500/12s",          // a ramp
    "D103=sine:-120..120/9s",    "M10=0..1/6s", "M11=0..1/3s", "X10=0..1/8s", "Y10=0..1/10s",
};

const char* const PRESETS[] = {
    "D110=650",                     // a limit that may be written
    "D111=1200",                    //
    "D120=0,16968",                 // 50.0 as a float, the low word first
    "D130=16961,21571,18464,14112", // "BATCH 7 ", two characters a word
    "M20=1",
};

} // namespace

kxsim::Simulation simulationOf(const kx::ConnectionOptions& options)
{
    kxsim::Simulation simulation;
    simulation.stations = options.simulatedStations;
    if (simulation.stations.isEmpty())
        simulation.stations << options.station;
    simulation.faults = options.faults;
    QString error;
    for (const char* const text : WAVES) {
        kxsim::Wave wave;
        if (kxsim::parseWave(QString::fromLatin1(text), &wave, &error))
            simulation.waves << wave;
    }
    for (const char* const text : PRESETS) {
        kx::Assignment preset;
        if (kx::parseAssignment(QString::fromLatin1(text), &preset, &error))
            simulation.presets << preset;
    }
    return simulation;
}

std::unique_ptr<MachineLine> makeLine(const kx::ConnectionOptions& options, QString* error)
{
    auto line = std::make_unique<MachineLine>();
    kx::ConnectionSettings settings = options;
    settings.patience = PATIENCE;
    if (options.simulate) {
        line->simulator = kxsim::SimulatedLine::start(simulationOf(options), error);
        if (!line->simulator)
            return nullptr;
        settings.port = line->simulator->portName();
        settings.gateway.host.clear();
    }
    line->connection = std::make_unique<kx::Connection>(settings);
    line->name = options.simulate ? QCoreApplication::translate("kxpanel", "simulated controller")
                                  : line->connection->line()->name();
    return line;
}

} // namespace kxpanel
