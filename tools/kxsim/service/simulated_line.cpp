#include "kxsim/service/simulated_line.h"

#include "kxsim/line/pseudo_terminal.h"
#include "kxsim/service/simulator.h"

#include <QtCore/QTemporaryDir>

#include <thread>
#include <utility>

namespace kxsim
{

struct SimulatedLine::Parts {
    Parts(std::unique_ptr<PseudoTerminal> openTerminal,
          std::unique_ptr<Controllers> madeControllers, const Simulation& simulation)
        : terminal(std::move(openTerminal)),
          controllers(std::move(madeControllers)),
          simulator(terminal.get(), controllers.get(), simulation),
          portName(terminal->name())
    {
    }

    QTemporaryDir folder; ///< of the link
    std::unique_ptr<PseudoTerminal> terminal;
    std::unique_ptr<Controllers> controllers;
    Simulator simulator;
    QString portName;
    std::thread thread;
};

SimulatedLine::SimulatedLine(std::unique_ptr<Parts> parts) : m_parts(std::move(parts))
{
    Simulator& simulator = m_parts->simulator;
    m_parts->thread = std::thread([&simulator] { simulator.run(); });
}

std::unique_ptr<SimulatedLine> SimulatedLine::start(const Simulation& simulation, QString* error)
{
    std::unique_ptr<Controllers> controllers = Controllers::make(simulation, error);
    if (!controllers)
        return nullptr;
    std::unique_ptr<PseudoTerminal> terminal = PseudoTerminal::open(error);
    if (!terminal)
        return nullptr;
    auto parts = std::make_unique<Parts>(std::move(terminal), std::move(controllers), simulation);
    if (simulation.faults.holds(Fault::Close)) {
        parts->portName = parts->folder.filePath(QStringLiteral("line"));
        if (!parts->terminal->linkFrom(parts->portName, error))
            return nullptr;
    }
    return std::unique_ptr<SimulatedLine>(new SimulatedLine(std::move(parts)));
}

SimulatedLine::~SimulatedLine()
{
    m_parts->simulator.stop();
    m_parts->thread.join();
}

QString SimulatedLine::portName() const
{
    return m_parts->portName;
}

QString SimulatedLine::command(const QString& line)
{
    return m_parts->simulator.command(line);
}

void SimulatedLine::addStation(int number)
{
    m_parts->simulator.addStation(number);
}

} // namespace kxsim
