#include "kxsim/options/programme_options.h"

namespace kxsim
{

namespace
{

/// Reads each of the texts with `parse` and appends the results.
template <typename Part>
bool takeEach(const QStringList& texts, bool (*parse)(const QString&, Part*, QString*),
              QList<Part>* parts, QString* error)
{
    for (const QString& text : texts) {
        Part part;
        if (!parse(text, &part, error))
            return false;
        *parts << part;
    }
    return true;
}

} // namespace

QList<QCommandLineOption> programmeOptions()
{
    return {
        {"still", "Let no value move but waves, timers and counters."},
        {"wave",
         "Let a value change with time: D10=0..4095/20s is a ramp, D11=sine:0..4095/20s a sine, "
         "M0=0..1/2s a square; repeatable.",
         "ADDRESS=[SHAPE:]FIRST..LAST/PERIOD"},
        {"timer",
         "Let TV5 rise by 1 in 100 ms up to 50, then close T5; T5=50/M5 while M5 is on; "
         "repeatable.",
         "CONTACT=PRESET[/BIT]"},
        {"counter",
         "Let CV3 count how often X3 goes on up to 10, then close C3: C3=10/X3; "
         "repeatable.",
         "CONTACT=PRESET/BIT"},
    };
}

bool takeProgramme(const QCommandLineParser& parser, Simulation* simulation, QString* error)
{
    simulation->moves = !parser.isSet(QStringLiteral("still"));
    return takeEach(parser.values(QStringLiteral("wave")), parseWave, &simulation->waves, error)
           && takeEach(parser.values(QStringLiteral("timer")), parseTimer, &simulation->timers,
                       error)
           && takeEach(parser.values(QStringLiteral("counter")), parseCounter,
                       &simulation->counters, error);
}

} // namespace kxsim
