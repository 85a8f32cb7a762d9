#ifndef TARVELAN_DATA_READ_FRAME_H
#define TARVELAN_DATA_READ_FRAME_H

#include "driver/records.h"
#include "registers/register_types.h"

/// What a read asked for, taken from the frame on the wire.
struct ReadRequest {
    int station;
    const RegisterType* type; ///< null when no register type has the name
    int address;
    int firstDataByte; ///< its index in the reply
    int dataLength;    ///< bits, or bytes of registers

    explicit ReadRequest(const FRAME_PRO& frame);
};

#endif
