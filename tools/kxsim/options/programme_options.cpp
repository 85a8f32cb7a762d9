#include "kxsim/options/programme_options.h"

namespace kxsim
{

QList<QCommandLineOption> programmeOptions()
{
    return {
        {"still", "Let no value move but waves."},
        {"wave",
         "Let a value change with time: D10=0..4095/20s is a ramp, D11=sine:0..4095/20s a sine, "
         "M0=0..1/2s a square; repeatable.",
         "ADDRESS=[SHAPE:]FIRST..LAST/PERIOD"},
    };
}

bool takeProgramme(const QCommandLineParser& parser, Simulation* simulation, QString* error)
{
    simulation->moves = !parser.isSet(QStringLiteral("still"));
    for (const QString& text : parser.values(QStringLiteral("wave"))) {
        Wave wave;
        if (!parseWave(text, &wave, error))
            return false;
        simulation->waves << wave;
    }
    return true;
}

} // namespace kxsim
