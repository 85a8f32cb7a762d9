/// Replies that stations may still send: those of requests that were given up or
/// repeated before their reply came.
///
/// A reply to a read carries no address, so the late reply to a read of D0 looks like
/// the reply to a read of D100 of the same length. The runtime therefore holds back a
/// request for as long as an owed reply could be taken for its own.
///
/// The same request again needs no such wait while the station has been silent since
/// and nothing else was written to it: the late reply is its reply, too. So neither
/// repeats nor the cyclic requests to a dead station are held back.
#ifndef KX_EXCHANGE_REPLIES_OWED_REPLIES_H
#define KX_EXCHANGE_REPLIES_OWED_REPLIES_H

#include "driver/records.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

namespace kx
{

class OwedReplies
{
public:
    /// A request went out; its reply may come until `until`. Times are on one clock,
    /// in any unit.
    void add(const FRAME_PRO& request, qint64 until);

    /// This request got a reply; sent several times, it is owed one less.
    void forget(const FRAME_PRO& request);

    /// Whether the frame may be the good reply to one of them.
    bool isOwed(const QByteArray& frame) const { return indexOf(frame) >= 0; }
    /// Forgets the request that it answers, of several the oldest; false if none.
    bool take(const QByteArray& frame);

    /// Whether nothing but one reply to this request can come.
    bool isOwedOnly(const FRAME_PRO& request) const;

    /// Whether a reply to another request can come.
    bool owesOther(const FRAME_PRO& request) const;

    /// Drops what can no longer come.
    void forgetBefore(qint64 now);

    /// Until when a reply may come that looks like the reply to `request` and is not;
    /// 0 if none.
    qint64 blockedUntil(const FRAME_PRO& request) const;

private:
    struct Owed {
        FRAME_PRO request;
        qint64 until;
        bool isOld; ///< the station has answered, or was written to, since
    };

    void age(const FRAME_PRO& request);

    int indexOf(const QByteArray& frame) const;

    QList<Owed> m_owed; ///< the oldest first
};

} // namespace kx

#endif
