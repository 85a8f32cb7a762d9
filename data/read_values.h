#ifndef TARVELAN_DATA_READ_VALUES_H
#define TARVELAN_DATA_READ_VALUES_H

#include "driver/records.h"

#include <QtCore/QByteArray>

/// Bytes of a reply by index; one that the reply does not hold counts as 0.
class ReplyBytes
{
public:
    explicit ReplyBytes(const QByteArray& reply) : m_reply(reply) {}

    int length() const { return static_cast<int>(m_reply.size()); }

    int at(int index) const
    {
        return index >= 0 && index < m_reply.size() ? static_cast<unsigned char>(m_reply.at(index))
                                                    : 0;
    }

private:
    QByteArray m_reply; // shared, so it stays whole whatever the runtime does
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
