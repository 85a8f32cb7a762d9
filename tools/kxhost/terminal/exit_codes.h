#ifndef KX_KXHOST_TERMINAL_EXIT_CODES_H
#define KX_KXHOST_TERMINAL_EXIT_CODES_H

namespace kx
{

/// What every command tells the shell.
enum ExitCode {
    EXIT_FINE = 0,
    EXIT_DEVICE_FAILED = 1, ///< a station did not answer, or refused, or standard output failed
    EXIT_DIFFERENT = 1,     ///< controllers hold other values than a file
    EXIT_WRONG_USAGE = 2,   ///< nothing was opened or sent
    EXIT_CANNOT_OPEN = 3,   ///< the port, the network or the driver library
    EXIT_NOT_COMPARED = 4   ///< values to be compared could not be read: nobody knows
};

} // namespace kx

#endif
