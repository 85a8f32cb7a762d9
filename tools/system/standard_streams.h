/// Standard input, output and error of a program that was started without them.
#ifndef KX_SYSTEM_STANDARD_STREAMS_H
#define KX_SYSTEM_STANDARD_STREAMS_H

namespace kx
{

/// Takes the numbers of closed standard streams, so that no file opened later gets one:
/// what is printed would go to the serial line. Such a stream is at its end at once, and
/// writing to it fails. The first call of main(), before anything is opened.
void occupyClosedStreams();

} // namespace kx

#endif
