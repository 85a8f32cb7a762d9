#ifndef TARVELAN_DATA_READ_VALUES_H
#define TARVELAN_DATA_READ_VALUES_H

#include "driver/records.h"

#include <QtCore/QByteArray>

/// Bytes of a reply by index; one that the reply does not hold counts as 0.
class ReplyBytes
{
public:
    explicit ReplyBytes(const QByteArray& reply)
        : m_reply(reply),
          m_bytes(reinterpret_cast<const unsigned char*>(m_reply.constData())),
          m_length(static_cast<unsigned int>(m_reply.size()))
    {
    }

    int at(int index) const
    {
        // A negative index is a large one when taken as unsigned.
        const unsigned int position = static_cast<unsigned int>(index);
        return position < m_length ? m_bytes[position] : 0;
    }

private:
    const QByteArray m_reply; // shared, so it stays whole whatever the runtime does
    const unsigned char* m_bytes;
    unsigned int m_length;
};

/// What a read asked for, copied from the frame on the wire.
struct ReadRequest {
    int station;
    QString regType;
    int address;
    int firstDataByte;
    int dataLength; ///< bits, or bytes of registers

    explicit ReadRequest(const FRAME_PRO& frame);
};

/// Decodes a good reply into the cache and, while a recipe is read, into the
/// recipe buffer. Each changed value is reported before it is stored.
void storeReadValues(const ReadRequest& request, const ReplyBytes& reply);

/// Marks the records that an unanswered read covered as failed.
void markUnanswered(const ReadRequest& request);

#endif
