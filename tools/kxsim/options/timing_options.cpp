#include "kxsim/options/timing_options.h"

#include "kxsim/timing/turnaround.h"

namespace kxsim
{

QList<QCommandLineOption> timingOptions()
{
    return {
        {"turnaround",
         "Time from a request's end to its reply, such as 5ms or 800us; 5..20ms differs from "
         "reply to reply, seeded by --fault-seed (default 0ms).",
         "TIME"},
        {"pace",
         "Let bytes take the time of a serial line: 9600 or 19200,8E1 (default 8N1; without "
         "--pace no time).",
         "BAUD[,FORMAT]"},
    };
}

bool takeTiming(const QCommandLineParser& parser, Simulation* simulation, QString* error)
{
    const QString turnaround = QStringLiteral("turnaround");
    const QString pace = QStringLiteral("pace");
    return (!parser.isSet(turnaround)
            || parseTurnaround(parser.value(turnaround), &simulation->turnaround, error))
           && (!parser.isSet(pace) || parsePace(parser.value(pace), &simulation->pace, error));
}

} // namespace kxsim
