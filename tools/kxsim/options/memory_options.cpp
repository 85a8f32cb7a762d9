#include "kxsim/options/memory_options.h"

namespace kxsim
{

namespace
{

bool refusePreset(QString* error, const QString& message)
{
    *error = message;
    return false;
}

bool takePresets(const QStringList& texts, Simulation* simulation, QString* error)
{
    for (const QString& text : texts) {
        kx::Assignment preset;
        if (!kx::parseAssignment(text, &preset, error))
            return false;
        const int station = preset.range.station;
        if (station >= 0 && !simulation->stations.contains(station))
            return refusePreset(error,
                                QStringLiteral("%1: station %2 is not simulated; add --station %2")
                                    .arg(text, QString::number(station)));
        simulation->presets << preset;
    }
    return true;
}

bool takeFile(const QCommandLineParser& parser, const QString& option, QString* path,
              QString* error)
{
    *path = parser.value(option);
    return !parser.isSet(option) || !path->isEmpty()
           || refusePreset(error,
                           QStringLiteral("--%1: the name of the file is missing").arg(option));
}

} // namespace

QList<QCommandLineOption> memoryOptions()
{
    return {
        {"set", "Preset values; repeatable.", "ADDRESS=VALUE[,VALUE...]"},
        {"load", "Values to begin with: a table with the columns address,value.", "FILE"},
        {"save", "Save all values but 0 there at the end, in the form of --load.", "FILE"},
    };
}

bool takeMemory(const QCommandLineParser& parser, Options* options, QString* error)
{
    return takePresets(parser.values(QStringLiteral("set")), &options->simulation, error)
           && takeFile(parser, QStringLiteral("load"), &options->simulation.memoryFile, error)
           && takeFile(parser, QStringLiteral("save"), &options->savedFile, error);
}

} // namespace kxsim
