/// The records that cross the boundary between the runtime and the driver.
///
/// All are plain values: a copy copies every field, strings by sharing, the
/// 1024-byte payloads byte for byte. Their layout is binary interface.
/// All integers are signed 32-bit. Create them value-initialised
/// (`VARIABLE job = VARIABLE();`) so that no field holds left-over memory.
#ifndef TARVELAN_DRIVER_RECORDS_H
#define TARVELAN_DRIVER_RECORDS_H

#include <QtCore/QString>

#include <cstring>

/// Bytes in every payload (`VARIABLE::data`, `KEY_ADDRESS::data`).
const int PAYLOAD_SIZE = 1024;
/// Bytes in `FRAME_PRO::frame`.
const int FRAME_SIZE = 1024;

/// Job kinds, as found in `VARIABLE::kind` and `tarvelan::currentKind`.
enum JobKind {
    NO_JOB = 0,
    WRITE_JOB = 2,
    CONDITION_READ_JOB = 3,
    CYCLIC_READ_JOB = 4,
    RECIPE_WRITE_JOB = 5,
    RECIPE_READ_JOB = 6
};

/// One read or write job.
struct VARIABLE {
    int kind;        ///< see JobKind; a recipe block keeps the one of the job before
    int station;     ///< station number; only its low byte is sent
    QString regType; ///< register type name, one of the 13 of `REG_LIST`
    int address;     ///< device address of the first element, as a number
    /// Elements: bits for bit types, 16-bit registers for word types; "32CV"
    /// counts two registers per 32-bit value.
    int count;
    /// Values to write: one byte per bit (0 or 1), two bytes per register (low
    /// byte first), four bytes per "32CV" value (least significant first).
    unsigned char data[PAYLOAD_SIZE];

    VARIABLE() = default;
    VARIABLE(const VARIABLE&) = default;

    // Member by member. Compilers assign arrays a byte at a time when left alone,
    // and a name that is shared already need not be counted anew.
    VARIABLE& operator=(const VARIABLE& other)
    {
        if (this == &other)
            return *this;
        kind = other.kind;
        station = other.station;
        if (!regType.isSharedWith(other.regType))
            regType = other.regType;
        address = other.address;
        count = other.count;
        std::memcpy(data, other.data, sizeof data);
        return *this;
    }
};

/// One address range that the runtime asks to have read.
struct KEY_ADDRESS {
    QString keyName;                  ///< the runtime's text; carried, not interpreted
    int keyTag1;                      ///< the runtime's value; carried
    int keyTag2;                      ///< the runtime's value; carried
    int station;                      ///< station number
    QString regType;                  ///< register type name
    QString addrText;                 ///< the runtime's second text; carried
    int address;                      ///< first device address, as a number
    int bitIndex;                     ///< -1: `count` is in bits (splits condition reads by bits)
    int count;                        ///< elements, as `VARIABLE::count`
    unsigned char data[PAYLOAD_SIZE]; ///< carried
};

/// One prepared request with the job that produced it.
struct FRAME_PRO {
    unsigned char frame[FRAME_SIZE]; ///< request bytes, station first, CRC last
    /// Bytes to transmit, 1 to `FRAME_SIZE`. A write of more registers than the frame
    /// holds gives more, one of a negative count gives less; such a frame is not whole
    /// and must not be sent (hand over an empty reply, and it fails like an
    /// unanswered request).
    int sendLen;
    int recvLen;   ///< bytes of a good reply
    int frameFunc; ///< index of the first data byte in the reply: 3 for reads, 0 for writes
    int dataLen;   ///< reads: bits asked for, or bytes of registers; writes: 0
    int reserved;  ///< never written by the driver's frame builders
    VARIABLE job;  ///< the job that the frame was built from

    FRAME_PRO() = default;
    FRAME_PRO(const FRAME_PRO&) = default;

    // As for VARIABLE.
    FRAME_PRO& operator=(const FRAME_PRO& other)
    {
        if (this == &other)
            return *this;
        std::memcpy(frame, other.frame, sizeof frame);
        sendLen = other.sendLen;
        recvLen = other.recvLen;
        frameFunc = other.frameFunc;
        dataLen = other.dataLen;
        reserved = other.reserved;
        job = other.job;
        return *this;
    }
};

/// One recipe variable.
struct _RCP_VAR_PRO {
    int rcpId;                 ///< link number that the variable belongs to
    int station;               ///< station number
    QString regType;           ///< register type name
    int address;               ///< device address, as a number
    int count;                 ///< 16-bit registers; of bit types bits
    int bufOffset;             ///< position in the recipe buffer, in 16-bit words
    unsigned char rcpExtra[4]; ///< the runtime's values; carried unread
};

/// One cached value: the value of one address of one register type at one
/// station. For values, see the payload layout of `VARIABLE::data`.
struct _DATA_ {
    unsigned char commError;    ///< 1: the last read went unanswered after all retries
    unsigned char writePending; ///< 1: readers see `writeValue`, else `value`
    int reserved;               ///< 0; a word reply clears `writePending` only while it is 0
    /// Words and 32CV. Bit 0: watched as a whole; bit 1: first word of a watched
    /// 32-bit pair; bit 2: second word of a pair that starts one address below.
    int monitorFlags;
    /// Bit types: bit k set on the record of a group's first address (a multiple
    /// of 8) means that address group + k is watched. Words: bit b of the word is.
    int bitMonitorMask;
    int station;                 ///< key, part 1
    QString regType;             ///< key, part 2
    int address;                 ///< key, part 3
    unsigned char value[4];      ///< last value read or confirmed
    unsigned char writeValue[4]; ///< last value written by the runtime
};

#endif
