#include "kxhost/commands/read_loop.h"

#include "kxhost/console.h"
#include "kxhost/frame_text.h"

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

QString reasonOf(const ExchangeRecord& record)
{
    return outcomeText(record).section(QLatin1Char(','), 0, 0);
}

void simulateStation(int station, ConnectionOptions* options)
{
    if (!options->simulatedStations.contains(station))
        options->simulatedStations << station;
}
