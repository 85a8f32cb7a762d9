/// The options that every command on a line shares.
#ifndef KX_KXHOST_OPTIONS_CONNECTION_OPTIONS_H
#define KX_KXHOST_OPTIONS_CONNECTION_OPTIONS_H

#include "addresses/address_text.h"
#include "exchange/connection.h"
#include "kxsim/faults/fault_plan.h"
#include "panel/session/session_settings.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

struct ConnectionOptions : ConnectionSettings {
    bool simulate = false; ///< simulated controllers inside the program; they name the port
    /// With `simulate`; commands add the stations that they need.
    QList<int> simulatedStations;
    kxsim::FaultPlan faults; ///< of the simulated line
    int station = 1;         ///< of addresses that name none
    SessionSettings session;
    QString library; ///< the driver's file; empty: beside the program, else the system's
    bool frames = false;
    bool json = false;
    bool takesAuto = false; ///< to be set before reading: --baud and --parity may be auto
    bool anyBaud = false;   ///< --baud auto
    bool anyParity = false; ///< --parity auto
};

/// Declares --port, --baud, --parity, --data-bits, --stop-bits, --tcp, --protocol,
/// --simulate, --fault, --fault-seed, --fault-delay, --station, --timeout, --settle, --quiet,
/// --retries, --reopen, --max-words, --max-bits, --library, --frames and --json, and what
/// addPortOptions() does.
/// @param timeout milliseconds that the help names as the usual time-out
/// @param hidden  long names of options that the help leaves out
void addConnectionOptions(QCommandLineParser* parser, int timeout = 1000,
                          const QStringList& hidden = QStringList());

/// Reads them. False and one line in `*error` when a value is wrong, or when not
/// exactly one of --port, --tcp and --simulate is given.
bool parseConnectionOptions(const QCommandLineParser& parser, ConnectionOptions* options,
                            QString* error);

/// Lets the simulated controllers answer for that station, or for those of the ranges, as well.
void simulateStation(int station, ConnectionOptions* options);
void simulateStationsOf(const QList<AddressRange>& ranges, ConnectionOptions* options);

} // namespace kx

#endif
