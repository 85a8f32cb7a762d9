#ifndef KX_EXCHANGE_REPLIES_STRAY_BYTES_H
#define KX_EXCHANGE_REPLIES_STRAY_BYTES_H

#include "exchange/replies/owed_replies.h"
#include "exchange/replies/statistics.h"

namespace kx
{

/// Bytes that belong to no request in flight: sorts them into late replies, doubles
/// and noise, and counts them.
class StrayBytes
{
public:
    explicit StrayBytes(ThrownAway* counts) : m_counts(counts) {}

    /// Of more than 4096 unsorted bytes the first ones are counted as bytes in no frame.
    void add(const QByteArray& bytes);

    /// To be called when the line has fallen silent: what is no whole frame now never
    /// will be.
    /// @param heldBack the request that waited for a late reply, or null. Only a reply
    ///                 that it waited for is owed no longer: at other times a double,
    ///                 or the same bytes from another station, may look like it.
    void sort(OwedReplies* owed, const FRAME_PRO* heldBack);

    /// Counts one whole frame that is not what was asked for.
    void throwAway(const QByteArray& frame, OwedReplies* owed, const FRAME_PRO* heldBack = nullptr);

    /// The frame that doubles are told by.
    void setLastTaken(const QByteArray& reply) { m_lastTaken = reply; }

private:
    ThrownAway* m_counts;
    QByteArray m_bytes;
    QByteArray m_lastTaken;
};

} // namespace kx

#endif
