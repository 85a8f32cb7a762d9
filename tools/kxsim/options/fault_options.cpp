#include "kxsim/options/fault_options.h"

namespace kxsim
{

namespace
{

bool takeOutages(const QStringList& texts, Simulation* simulation, QString* error)
{
    for (const QString& text : texts) {
        Outage outage;
        if (!parseOutage(text, &outage, error))
            return false;
        if (!simulation->stations.contains(outage.station)) {
            *error = QStringLiteral("--down %1: station %2 is not simulated; add --station %2")
                         .arg(text, QString::number(outage.station));
            return false;
        }
        simulation->outages << outage;
    }
    return true;
}

} // namespace

QList<QCommandLineOption> faultOptions()
{
    return {
        {"fault", "Let requests meet a fault with a probability from 0 to 1; repeatable.",
         "KIND:PROBABILITY"},
        {"fault-seed", "Seed of the faults and of --turnaround, for repeatable runs (default 1).",
         "NUMBER", "1"},
        {"fault-delay", "Milliseconds that delayed replies are late (default 1500).", "MS", "1500"},
        {"down",
         "Let a station hear nothing from FROM to TO after the start, without TO for good, with "
         "PERIOD in each such time: 3@10s..30s/60s; repeatable.",
         "STATION@FROM..[TO][/PERIOD]"},
    };
}

bool takeFaults(const QCommandLineParser& parser, Simulation* simulation, QString* error)
{
    FaultPlan& faults = simulation->faults;
    for (const QString& text : parser.values(QStringLiteral("fault"))) {
        if (!addFault(text, &faults, error))
            return false;
    }
    return takeOutages(parser.values(QStringLiteral("down")), simulation, error)
           && parseFaultSeed(parser.value(QStringLiteral("fault-seed")), &faults, error)
           && parseFaultDelay(parser.value(QStringLiteral("fault-delay")), &faults, error);
}

} // namespace kxsim
