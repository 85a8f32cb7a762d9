/// A controller that answers every read, each coil and register with its own number:
/// what is shown then tells from where it came.
#ifndef KX_TESTS_TOOLS_PANEL_WATCH_NUMBERING_CONTROLLER_H
#define KX_TESTS_TOOLS_PANEL_WATCH_NUMBERING_CONTROLLER_H

#include <QtCore/QByteArray>

namespace kx
{

class NumberingController
{
public:
    /// A coil holds one bit of its number, the one of this place, 0 to 14.
    static const int COIL_BITS = 15;
    int coilBit = 0;
    bool refuses = false;    ///< every read, as an illegal address
    int mostRegisters = 125; ///< more in one read are an illegal value
    int mostCoils = 2000;    ///< more in one read are an illegal value
    int held = -1;           ///< what each register holds instead of its number; -1: nothing
    int missing = -1;        ///< the number of a coil and register that is an illegal address

    /// Writes are confirmed, and change nothing.
    /// @param request a whole read or write of coils or holding registers
    QByteArray replyTo(const QByteArray& request) const;
};

} // namespace kx

#endif
