#include "kxsim/options/fault_options.h"

namespace kxsim
{

QList<QCommandLineOption> faultOptions()
{
    return {
        {"fault", "Let requests meet a fault with a probability from 0 to 1; repeatable.",
         "KIND:PROBABILITY"},
        {"fault-seed", "Seed of the faults and of --turnaround, for repeatable runs (default 1).",
         "NUMBER", "1"},
        {"fault-delay", "Milliseconds that delayed replies are late (default 1500).", "MS", "1500"},
    };
}

bool takeFaults(const QCommandLineParser& parser, Simulation* simulation, QString* error)
{
    FaultPlan& faults = simulation->faults;
    for (const QString& text : parser.values(QStringLiteral("fault"))) {
        if (!addFault(text, &faults, error))
            return false;
    }
    return parseFaultSeed(parser.value(QStringLiteral("fault-seed")), &faults, error)
           && parseFaultDelay(parser.value(QStringLiteral("fault-delay")), &faults, error);
}

} // namespace kxsim
