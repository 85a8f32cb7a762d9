#ifndef KX_KXHOST_TERMINAL_EXIT_CODES_H
#define KX_KXHOST_TERMINAL_EXIT_CODES_H

namespace kx
{

/// What every command tells the shell.
enum ExitCode {
    EXIT_FINE = 0,
    EXIT_DEVICE_FAILED = 1, ///< a station did not answer, or refused, or standard output failed
    EXIT_WRONG_USAGE = 2,   ///< nothing was opened or sent
    EXIT_CANNOT_OPEN = 3    ///< the port, the network or the driver library
};

} // namespace kx

#endif
