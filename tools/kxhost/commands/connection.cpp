#include "kxhost/commands/connection.h"

#include "exchange/lines/reopening_line.h"
#include "exchange/lines/serial_line.h"
#include "exchange/lines/tcp_line.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>

namespace kx
{

namespace
{

/// Starts the simulated controllers and lets `options` name their line.
bool simulate(ConnectionOptions* options, Connection* connection, QString* error)
{
    kxsim::Simulation simulation;
    simulation.stations = options->simulatedStations;
    simulation.faults = options->faults;
    connection->simulator = kxsim::SimulatedLine::start(simulation, error);
    if (!connection->simulator)
        return false;
    options->port = connection->simulator->portName();
    return true;
}

std::unique_ptr<Line> makeLine(const ConnectionOptions& options)
{
    if (!options.gateway.host.isEmpty())
        return std::make_unique<TcpLine>(options.gateway.host, options.gateway.port);
    return std::make_unique<SerialLine>(options.port, options.timing, options.parity);
}

/// Waits until the line is open; gives the reason when it fails.
QString openLine(Line* line)
{
    QEventLoop waiting;
    QString reason;
    bool isSettled = false;
    const auto settle = [&](const QString& error) {
        reason = error;
        isSettled = true;
        waiting.quit();
    };
    QObject::connect(line, &Line::opened, &waiting, [&] { settle(QString()); });
    QObject::connect(line, &Line::failed, &waiting, settle);
    line->open();
    if (!isSettled)
        waiting.exec();
    return reason;
}

} // namespace

QString driverFile(const QString& asked)
{
    if (!asked.isEmpty())
        return asked;
    const QString name = QString::fromLatin1(DRIVER_LIBRARY_NAME);
    const QDir program(QCoreApplication::applicationDirPath());
    const QString beside = QDir::cleanPath(program.filePath(QLatin1String("../lib/") + name));
    return QFile::exists(beside) ? beside : name;
}

int openDriver(const QString& library, DriverEntryPoints* entryPoints)
{
    QString error;
    if (!loadDriver(driverFile(library), entryPoints, &error))
        return complain(error + QLatin1String("; name its file with --library"), EXIT_CANNOT_OPEN);
    return EXIT_FINE;
}

int openConnection(const ConnectionOptions& asked, Connection* connection)
{
    ConnectionOptions options = asked;
    DriverEntryPoints entryPoints;
    const int driverResult = openDriver(options.library, &entryPoints);
    if (driverResult != EXIT_FINE)
        return driverResult;
    QString reason;
    if (options.simulate && !simulate(&options, connection, &reason))
        return complain(reason, EXIT_CANNOT_OPEN);
    connection->line = makeLine(options);
    if (options.patience > 0)
        connection->line =
            std::make_unique<ReopeningLine>(std::move(connection->line), options.patience);
    reason = openLine(connection->line.get());
    if (!reason.isEmpty())
        return complain(reason, EXIT_CANNOT_OPEN);
    connection->session =
        std::make_unique<DriverSession>(entryPoints, connection->line.get(), options.session);
    return EXIT_FINE;
}

} // namespace kx
