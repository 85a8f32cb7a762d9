/// Collects what comes back while a request is in flight until it is the reply.
#ifndef KX_EXCHANGE_REPLIES_REPLY_COLLECTOR_H
#define KX_EXCHANGE_REPLIES_REPLY_COLLECTOR_H

#include "exchange/replies/exchange_record.h"
#include "exchange/replies/owed_replies.h"
#include "exchange/replies/statistics.h"
#include "exchange/replies/stray_bytes.h"

#include <optional>

namespace kx
{

struct CollectedReply {
    ReplyKind kind = ReplyKind::None;
    QByteArray bytes; ///< for the driver
};

/// Replies of other requests and echoes are thrown away and counted; what stands behind
/// the reply is left to StrayBytes.
///
/// A reply that is complete sooner after its request than its characters can travel
/// is another's: while one is owed, it is thrown away, provided that the line keeps
/// time. That is believed after three replies that came in time and in parts while nothing else
/// was owed, and no more once one came too soon: a pseudo-terminal delivers at once, and what a
/// busy program finds late was not late for that.
class ReplyCollector
{
public:
    /// All three stay the caller's and outlive the collector.
    ReplyCollector(OwedReplies* owed, StrayBytes* stray, ThrownAway* counts);

    /// A request goes out; nothing has come back for it.
    void begin(const FRAME_PRO& request);
    const FRAME_PRO& request() const { return m_request; }

    /// @param sinceRequest microseconds since the request's last character
    /// @return the reply (Good, Bad, Exception or, without bytes, WrongByteCount), once it
    ///         is there
    std::optional<CollectedReply> add(const QByteArray& bytes, qint64 sinceRequest,
                                      const LineTiming& timing);

    /// What there is when no more is waited for: Short, Foreign or None.
    CollectedReply incomplete() const;

    /// Bytes that a good reply lacks; below 1 when it should have been whole.
    int missing() const { return m_request.recvLen - static_cast<int>(m_bytes.size()); }

    /// How many replies of other requests came meanwhile.
    int foreignReplies() const { return m_foreignReplies; }

    /// The exchange is over: who is owed a reply now, and what the bytes behind it are.
    void settle(const CollectedReply& reply);

private:
    bool isTooSoon(int length, qint64 sinceRequest, const LineTiming& timing);
    void throwAway(int length);

    OwedReplies* m_owed;
    StrayBytes* m_stray;
    ThrownAway* m_counts;
    FRAME_PRO m_request = FRAME_PRO();
    QByteArray m_bytes; ///< without the replies of other requests
    bool m_hasComeInParts = false;
    int m_foreignReplies = 0;
    int m_repliesInTime = 0;       ///< while nothing else was owed; counted as far as it matters
    bool m_hasComeTooSoon = false; ///< one did while nothing else was owed
};

} // namespace kx

#endif
