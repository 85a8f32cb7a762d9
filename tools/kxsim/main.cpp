// kxsim: simulated controllers on a pseudo-terminal or a serial port.

#include "kxsim/line/pseudo_terminal.h"
#include "kxsim/options/options.h"
#include "kxsim/service/simulator.h"
#include "panel/recipe/recipe_storage.h"
#include "system/printable_text.h"
#include "system/standard_streams.h"

#include <QtCore/QCoreApplication>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace
{

const int SAVING_FAILED = 1;
const int WRONG_USAGE = 2;
const int PORT_FAILED = 3;

kxsim::Simulator* signalled = nullptr;

void stopOnSignal(int)
{
    signalled->stop();
}

// At once, for scripts that wait for the line.
void say(std::FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", kx::printableText(text).toLocal8Bit().constData());
    std::fflush(stream);
}

int fail(int exitCode, const QString& message)
{
    say(stderr, QStringLiteral("kxsim: ") + message);
    return exitCode;
}

std::unique_ptr<kxsim::SlaveLine> openLine(const kxsim::Options& options, QString* error)
{
    if (!options.port.device.isEmpty())
        return kxsim::SerialPort::open(options.port, error);
    auto terminal = kxsim::PseudoTerminal::open(error);
    if (terminal && !options.link.isEmpty() && !terminal->linkFrom(options.link, error))
        return nullptr;
    return terminal;
}

int serve(const kxsim::Options& options, kxsim::SlaveLine* line, kxsim::Controllers* controllers)
{
    kxsim::Simulator simulator(line, controllers, options.simulation);
    if (options.logs)
        simulator.setLog([](const QString& text) { say(stderr, text); });
    simulator.setCommands(STDIN_FILENO, [](const QString& text) { say(stdout, text); });
    signalled = &simulator;
    std::signal(SIGINT, stopOnSignal);
    std::signal(SIGTERM, stopOnSignal);
    // nohup lets it outlive its terminal.
    if (std::signal(SIGHUP, stopOnSignal) == SIG_IGN)
        std::signal(SIGHUP, SIG_IGN);
    // In the background of a terminal, commands are given up rather than all else.
    std::signal(SIGTTIN, SIG_IGN);
    // Whoever read the answers may be gone; the line is still served.
    std::signal(SIGPIPE, SIG_IGN);
    say(stdout, QStringLiteral("kxsim: listening on ") + line->name());
    const bool wasStopped = simulator.run();
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGHUP, SIG_DFL);
    if (!options.simulation.faults.chances.isEmpty())
        say(stdout, QStringLiteral("kxsim: ") + simulator.command(QStringLiteral("faults")));
    const int exitCode =
        wasStopped ? 0 : fail(PORT_FAILED, line->name() + QStringLiteral(": the line was lost"));
    QString error;
    if (!options.savedFile.isEmpty()
        && !kx::replaceRecipeFile(options.savedFile, simulator.memory(), &error))
        return fail(SAVING_FAILED, QStringLiteral("the memory is not saved: ") + error);
    return exitCode;
}

} // namespace

int main(int argc, char* argv[])
{
    kx::occupyClosedStreams();
    const QCoreApplication application(argc, argv);
    kxsim::Options options;
    QString error;
    if (!kxsim::parseOptions(QCoreApplication::arguments(), &options, &error))
        return fail(WRONG_USAGE, error);
    if (!options.information.isEmpty()) {
        std::fputs(options.information.toLocal8Bit().constData(), stdout);
        return 0;
    }
    const auto controllers = kxsim::Controllers::make(options.simulation, &error);
    if (!controllers)
        return fail(WRONG_USAGE, error);
    if (!options.savedFile.isEmpty() && !kx::canReplaceRecipeFile(options.savedFile, &error))
        return fail(WRONG_USAGE, QStringLiteral("--save ") + error);
    const auto line = openLine(options, &error);
    if (!line)
        return fail(PORT_FAILED, error);
    return serve(options, line.get(), controllers.get());
}
