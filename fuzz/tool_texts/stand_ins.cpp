#include "tool_texts/stand_ins.h"

#include "kxhost/commands/connection.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/files/replaced_file.h"
#include "panel/recipe/recipe_storage.h"
#include "support/require.h"

#include <QtCore/QJsonDocument>

namespace kx
{

namespace
{

const char RECIPE[] = "name,station,register,address,type,value\n"
                      "Speed,,D,100,uint16,1234\n"
                      "Total,,32CV,200,uint32,\n"
                      "Belt,2,Y,17,bit,1\n";

QStringList complaints;
QStringList json;
bool isDriverLent = false;

} // namespace

QStringList takeComplaints()
{
    QStringList taken;
    taken.swap(complaints);
    return taken;
}

QStringList takeJson()
{
    QStringList taken;
    taken.swap(json);
    return taken;
}

void lendDriver(bool lends)
{
    isDriverLent = lends;
}

void print(const QString&) {}

void say(const QString&) {}

void printJson(const QJsonObject& object)
{
    json << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString outputFailure()
{
    return QString();
}

int complain(const QString& message, int exitCode)
{
    complaints << message;
    return exitCode;
}

bool isStandardInputTerminal()
{
    return false;
}

bool isStandardOutputTerminal()
{
    return false;
}

QString driverFile(const QString& asked)
{
    return asked;
}

int openDriver(const QString&, DriverEntryPoints* entryPoints)
{
    if (!isDriverLent)
        return EXIT_CANNOT_OPEN;
    entryPoints->getRegListByType = intf_getRegListByType;
    entryPoints->getRegDiscription = intf_getRegDiscription;
    entryPoints->checkAddrValidity = intf_checkAddrValidity;
    entryPoints->checkAddr = intf_checkAddr;
    return EXIT_FINE;
}

int openLine(const ConnectionOptions& options, HostLine*)
{
    const int lines = (options.simulate ? 1 : 0) + (options.port.isEmpty() ? 0 : 1)
                      + (options.gateway.host.isEmpty() ? 0 : 1);
    require(lines == 1, "a connection has one line");
    require(options.station >= 1 && options.station <= 247, "a station is 1 to 247");
    for (const int station : options.simulatedStations)
        require(station >= 1 && station <= 247, "a simulated station is 1 to 247");
    require(options.session.maxWords >= 1 && options.session.maxWords <= 125,
            "a request has 1 to 125 registers");
    require(options.session.retries >= 1, "a request is sent");
    return EXIT_CANNOT_OPEN;
}

int openSession(const ConnectionOptions& options, HostSession* host)
{
    return openLine(options, host);
}

bool readRecipeFile(const QString& path, QByteArray* text, QString* error)
{
    if (path.isEmpty()) {
        *error = QStringLiteral("no file");
        return false;
    }
    *text = RECIPE;
    return true;
}

bool canReplaceFile(const QString&, QString*)
{
    return true;
}

bool replaceFile(const QString&, const QByteArray&, QString*)
{
    require(false, "no dump is stored without a line");
    return false;
}

bool canReplaceRecipeFile(const QString&, QString*)
{
    return true;
}

bool replaceRecipeFile(const QString&, const QByteArray&, QString*)
{
    require(false, "no recipe is stored without a line");
    return false;
}

} // namespace kx
