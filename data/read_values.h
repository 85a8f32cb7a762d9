#ifndef TARVELAN_DATA_READ_VALUES_H
#define TARVELAN_DATA_READ_VALUES_H

#include "driver/records.h"
#include "driver/wrapping.h"
#include "registers/type_names.h"

#include <QtCore/QByteArray>

/// Bytes of a reply by index; one that the reply does not hold counts as 0. The
/// reply must outlive it.
class ReplyBytes
{
public:
    explicit ReplyBytes(const QByteArray& reply)
        : m_bytes(reinterpret_cast<const unsigned char*>(reply.constData())),
          m_length(static_cast<int>(reply.size()))
    {
    }

    int at(int index) const { return index >= 0 && index < m_length ? m_bytes[index] : 0; }

    /// Two bytes, high byte first.
    int wordAt(int index) const
    {
        if (Q_LIKELY(index >= 0 && index < m_length - 1))
            return m_bytes[index] << 8 | m_bytes[index + 1];
        return at(index) << 8 | at(wrapAdd(index, 1));
    }

private:
    const unsigned char* m_bytes;
    int m_length;
};

/// What a read asked for, taken from the frame on the wire.
struct ReadRequest {
    int station;
    const RegisterType* type; ///< null when no register type has the name
    int address;
    int firstDataByte; ///< its index in the reply
    int dataLength;    ///< bits, or bytes of registers

    explicit ReadRequest(const FRAME_PRO& frame);
};

/// Decodes a good reply into the cache and, while a recipe is read, into the
/// recipe buffer. Each changed value is reported before it is stored.
void storeReadValues(const ReadRequest& request, const ReplyBytes& reply);

/// Marks the records that an unanswered read covered as failed.
void markUnanswered(const ReadRequest& request);

#endif
