/// What is asked of the driver of a serial port beside the character format.
#ifndef KX_EXCHANGE_LINES_PORT_MODES_H
#define KX_EXCHANGE_LINES_PORT_MODES_H

namespace kx
{

struct PortModes {
    /// Bytes are to be reported at once, where the port's driver takes that: many a USB adapter
    /// holds each reply for up to 16 ms otherwise. What the driver did not take is done without.
    bool lowLatency = true;
    /// The port switches an RS-485 transceiver by its RTS line. A port that cannot is not opened.
    bool rs485 = false;
    bool rtsLowToSend = false; ///< RTS is low while sending, instead of high
    int rtsBefore = 0;         ///< milliseconds from RTS to the first character
    int rtsAfter = 0;          ///< milliseconds from the last character to RTS
};

} // namespace kx

#endif
