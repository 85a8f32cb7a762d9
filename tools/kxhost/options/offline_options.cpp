#include "kxhost/options/offline_options.h"

namespace kx
{

void addOfflineOptions(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String("json"), QLatin1String("Write JSON, an object per line.")});
    parser->addOption({QLatin1String("library"),
                       QLatin1String("File of the driver library (default: the one beside the "
                                     "program, else the system's)."),
                       QLatin1String("PATH")});
}

bool wantsJson(const QCommandLineParser& parser)
{
    return parser.isSet(QLatin1String("json"));
}

QString askedLibrary(const QCommandLineParser& parser)
{
    return parser.value(QLatin1String("library"));
}

} // namespace kx
