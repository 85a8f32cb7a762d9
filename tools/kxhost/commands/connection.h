#ifndef KX_KXHOST_COMMANDS_CONNECTION_H
#define KX_KXHOST_COMMANDS_CONNECTION_H

#include "kxhost/gateway/gateway_advice.h"
#include "kxhost/options/connection_options.h"
#include "kxsim/service/simulated_line.h"
#include "panel/session/session.h"

#include <memory>

namespace kx
{

/// An open line.
struct HostLine {
    std::unique_ptr<kxsim::SimulatedLine> simulator; ///< with --simulate
    std::unique_ptr<Connection> connection;          ///< open
};

/// A driver at work on an open line.
struct HostSession : HostLine {
    using Advice = std::unique_ptr<GatewayAdvice, AdviceGiver>;

    std::unique_ptr<Session> session; ///< not started
    Advice advice;                    ///< with a gateway
};

/// The driver's file: the one asked for, else the one in ../lib of the program,
/// else the bare name for the system's search.
QString driverFile(const QString& asked);

/// Loads the driver; complains and returns an ExitCode other than 0 on failure.
/// For commands that need no line.
int openDriver(const QString& library, DriverEntryPoints* entryPoints);

/// Opens the line. Complains and returns as openSession() does.
int openLine(const ConnectionOptions& options, HostLine* host);

/// Loads the driver, opens the line and prepares a session. Complains in one line
/// and returns an ExitCode other than 0 when that fails. Runs the event loop until the line
/// is open, so it must not be called from inside that.
int openSession(const ConnectionOptions& options, HostSession* host);

} // namespace kx

#endif
