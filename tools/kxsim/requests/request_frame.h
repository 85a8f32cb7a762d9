/// Modbus RTU requests among received bytes. Pure functions.
#ifndef KX_KXSIM_REQUESTS_REQUEST_FRAME_H
#define KX_KXSIM_REQUESTS_REQUEST_FRAME_H

#include <QtCore/QByteArray>

namespace kxsim
{

struct FoundRequest {
    enum Kind {
        INCOMPLETE, ///< the bytes so far may be the beginning of a request
        DAMAGED,    ///< no request begins at the first byte
        WHOLE       ///< a request with its CRC, whatever it asks
    };
    Kind kind;
    int length; ///< with WHOLE, CRC and all; else 0
};

/// Looks at the beginning of `received`, which is not empty. Where the function leaves
/// the length open, or a byte count does not suit its quantity, a request ends at the
/// first two bytes that are the CRC of those before them.
FoundRequest findRequest(const QByteArray& received);

/// The exception with which a whole request must be refused whatever it is about: 1 for
/// functions other than 1, 3, 5, 6, 15 and 16, 3 for a write of several values whose
/// quantity is 0 or beyond what a frame may carry (1968 coils, 123 registers), or whose
/// byte count does not suit it. 0 when the form is right.
int formFault(const QByteArray& request);

} // namespace kxsim

#endif
