#ifndef TARVELAN_DATA_REPLY_BYTES_H
#define TARVELAN_DATA_REPLY_BYTES_H

#include "driver/wrapping.h"

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

    /// Elements of `size` bytes each, from byte `index` on, that the reply holds whole.
    int wholeElements(int index, int size) const
    {
        return index >= 0 && index < m_length ? (m_length - index) / size : 0;
    }

    /// What lies there, up to the end of the reply.
    const unsigned char* from(int index) const { return m_bytes + index; }

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

#endif
