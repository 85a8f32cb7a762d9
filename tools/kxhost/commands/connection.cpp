#include "kxhost/commands/connection.h"

#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

namespace kx
{

namespace
{

/// Starts the simulated controllers and lets `options` name their line.
bool simulate(ConnectionOptions* options, HostLine* host, QString* error)
{
    kxsim::Simulation simulation;
    simulation.stations = options->simulatedStations;
    simulation.faults = options->faults;
    host->simulator = kxsim::SimulatedLine::start(simulation, error);
    if (!host->simulator)
        return false;
    options->port = host->simulator->portName();
    return true;
}

/// What the port took otherwise than it was asked and, where details are shown, its modes.
void tellPort(const Line& line, bool withModes)
{
    QStringList texts = line.remarks();
    if (withModes && !line.modeText().isEmpty())
        texts << line.modeText();
    for (const QString& text : texts)
        complain(line.name() + QLatin1String(": ") + text, EXIT_FINE);
}

int waitUntilOpen(Connection* connection)
{
    const QObject waiting;
    QObject::connect(connection, &Connection::opened, &waiting,
                     [] { QCoreApplication::exit(EXIT_FINE); });
    QObject::connect(connection, &Connection::failed, &waiting, [](const Failure& failure) {
        QCoreApplication::exit(complain(failure.text, EXIT_CANNOT_OPEN));
    });
    connection->open();
    return QCoreApplication::exec();
}

/// Null without a gateway.
HostSession::Advice adviceAbout(const ConnectionOptions& options, Session* session)
{
    if (options.gateway.host.isEmpty())
        return nullptr;
    HostSession::Advice advice(new GatewayAdvice(session->line()->name(), options.protocol));
    QObject::connect(session, &Session::exchanged, advice.get(), &GatewayAdvice::onExchange);
    QObject::connect(session, &Session::lineFailed, advice.get(), &GatewayAdvice::onLineLost);
    return advice;
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

int openLine(const ConnectionOptions& asked, HostLine* host)
{
    ConnectionOptions options = asked;
    QString reason;
    if (options.simulate && !simulate(&options, host, &reason))
        return complain(reason, EXIT_CANNOT_OPEN);
    host->connection = std::make_unique<Connection>(options);
    return waitUntilOpen(host->connection.get());
}

int openSession(const ConnectionOptions& options, HostSession* host)
{
    DriverEntryPoints entryPoints;
    const int driverResult = openDriver(options.library, &entryPoints);
    if (driverResult != EXIT_FINE)
        return driverResult;
    const int lineResult = openLine(options, host);
    if (lineResult != EXIT_FINE)
        return lineResult;
    tellPort(*host->connection->line(), options.frames);
    QString reason;
    host->session =
        Session::create(entryPoints, host->connection->line(), options.session, &reason);
    if (!host->session)
        return complain(reason, EXIT_CANNOT_OPEN);
    host->advice = adviceAbout(options, host->session.get());
    return EXIT_FINE;
}

} // namespace kx
