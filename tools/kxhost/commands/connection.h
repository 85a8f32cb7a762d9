#ifndef KX_KXHOST_COMMANDS_CONNECTION_H
#define KX_KXHOST_COMMANDS_CONNECTION_H

#include "kxhost/options/connection_options.h"
#include "kxsim/service/simulated_line.h"
#include "panel/session/session.h"

#include <memory>

namespace kx
{

/// A driver at work on an open line.
struct HostSession {
    std::unique_ptr<kxsim::SimulatedLine> simulator; ///< with --simulate
    std::unique_ptr<Connection> connection;          ///< open
    std::unique_ptr<Session> session;                ///< not started
};

/// The driver's file: the one asked for, else the one in ../lib of the program,
/// else the bare name for the system's search.
QString driverFile(const QString& asked);

/// Loads the driver; complains and returns an ExitCode other than 0 on failure.
/// For commands that need no line.
int openDriver(const QString& library, DriverEntryPoints* entryPoints);

/// Loads the driver, opens the line and prepares a session. Complains in one line
/// and returns an ExitCode other than 0 when that fails. Runs the event loop until the line
/// is open, so it must not be called from inside that.
int openSession(const ConnectionOptions& options, HostSession* host);

} // namespace kx

#endif
