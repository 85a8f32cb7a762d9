/// Simulated controllers inside the calling program: a serial line that a host
/// opens like any other, served by a thread of its own.
///
///     QString error;
///     const auto line = kxsim::SimulatedLine::start(kxsim::Simulation(), &error);
///     if (line)
///         openPort(line->portName()); // such as /dev/pts/5, any line settings
#ifndef KX_KXSIM_SERVICE_SIMULATED_LINE_H
#define KX_KXSIM_SERVICE_SIMULATED_LINE_H

#include "kxsim/service/simulation.h"

#include <QtCore/QString>

#include <memory>

namespace kxsim
{

class SimulatedLine
{
public:
    /// Starts serving on a new pseudo-terminal. Null, and one line in `*error`,
    /// when there is none to be had or the controllers cannot be, see
    /// Controllers::make().
    static std::unique_ptr<SimulatedLine> start(const Simulation& simulation, QString* error);

    /// Stops serving within milliseconds. Close the host's end before.
    ~SimulatedLine();

    /// The device to open as a serial port, or a link to it when the plan holds
    /// Fault::Close. Several openings in a row are fine.
    QString portName() const;

    /// Asks or changes the memory: "get D100:4@2" returns "D100@2=1,2,3,4", "set
    /// D100=5" an empty text, "faults" the counts of LineFaults::summary(); anything
    /// wrong returns "error: ...". Thread-safe.
    QString command(const QString& line);

    /// One more station, 1 to 247, as the others were made; nothing happens when it is there. What
    /// moves is where it would be, had it been there from the beginning. Thread-safe.
    void addStation(int number);

private:
    struct Parts;
    explicit SimulatedLine(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

} // namespace kxsim

#endif
