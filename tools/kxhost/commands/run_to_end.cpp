#include "kxhost/commands/run_to_end.h"

#include "kxhost/terminal/console.h"
#include "panel/text/frame_text.h"

namespace kx
{

void showFrames(const DriverSession* session, const ConnectionOptions& options)
{
    if (!options.frames)
        return;
    const bool asJson = options.json;
    QObject::connect(session, &DriverSession::exchanged, session,
                     [asJson](const ExchangeRecord& record) {
                         if (asJson)
                             return printJson(exchangeJson(record));
                         for (const QString& line : exchangeLines(record))
                             printLine(line);
                     });
}

void simulateStation(int station, ConnectionOptions* options)
{
    if (!options->simulatedStations.contains(station))
        options->simulatedStations << station;
}

} // namespace kx
