#include "exchange/replies/reply_collector.h"

#include "exchange/replies/reply_verdict.h"

namespace kx
{

namespace
{

// A pseudo-terminal may bring one in parts, too.
const int REPLIES_THAT_SHOW_TIME = 3;

} // namespace

ReplyCollector::ReplyCollector(OwedReplies* owed, StrayBytes* stray, ThrownAway* counts)
    : m_owed(owed), m_stray(stray), m_counts(counts)
{
}

void ReplyCollector::begin(const FRAME_PRO& request)
{
    m_request = request;
    m_bytes.clear();
    m_hasComeInParts = false;
    m_foreignReplies = 0;
}

std::optional<CollectedReply> ReplyCollector::add(const QByteArray& bytes, qint64 sinceRequest,
                                                  const LineTiming& timing)
{
    m_hasComeInParts = m_hasComeInParts || !(m_bytes.isEmpty() || bytes.isEmpty());
    m_bytes += bytes;
    for (;;) {
        const Judgement judgement = judgeReply(m_request, m_bytes);
        switch (judgement.verdict) {
        case Verdict::Incomplete:
            return std::nullopt;
        case Verdict::Echo:
            ++m_counts->echoes;
            m_bytes.remove(0, judgement.length);
            break;
        case Verdict::Foreign:
            throwAway(judgement.length);
            break;
        case Verdict::Good:
            if (!isTooSoon(judgement.length, sinceRequest, timing))
                return CollectedReply{ReplyKind::Good, m_bytes.left(judgement.length)};
            throwAway(judgement.length);
            break;
        case Verdict::WrongByteCount:
            // The driver would take it: it looks at length and CRC only.
            m_bytes.remove(0, judgement.length);
            return CollectedReply{ReplyKind::WrongByteCount, QByteArray()};
        case Verdict::Bad:
            return CollectedReply{ReplyKind::Bad, m_bytes.left(judgement.length)};
        case Verdict::Exception:
            return CollectedReply{ReplyKind::Exception, m_bytes.left(judgement.length)};
        }
    }
}

bool ReplyCollector::isTooSoon(int length, qint64 sinceRequest, const LineTiming& timing)
{
    const bool isSoon = sinceRequest < timing.transmissionTime(length);
    if (m_owed->isOwedOnly(m_request)) {
        m_hasComeTooSoon = m_hasComeTooSoon || isSoon;
        if (m_hasComeInParts)
            m_repliesInTime = qMin(m_repliesInTime + 1, REPLIES_THAT_SHOW_TIME);
    }
    const bool keepsTime = !m_hasComeTooSoon && m_repliesInTime == REPLIES_THAT_SHOW_TIME;
    return isSoon && keepsTime && m_owed->owesOther(m_request);
}

void ReplyCollector::throwAway(int length)
{
    ++m_foreignReplies;
    m_stray->throwAway(m_bytes.left(length), m_owed);
    m_bytes.remove(0, length);
}

CollectedReply ReplyCollector::incomplete() const
{
    if (!m_bytes.isEmpty())
        return {ReplyKind::Short, m_bytes};
    return {m_foreignReplies > 0 ? ReplyKind::Foreign : ReplyKind::None, QByteArray()};
}

void ReplyCollector::settle(const CollectedReply& reply)
{
    const bool isGood = reply.kind == ReplyKind::Good;
    const bool isAnswered = isGood || reply.kind == ReplyKind::Exception
                            || reply.kind == ReplyKind::Bad || reply.kind == ReplyKind::Short
                            || reply.kind == ReplyKind::WrongByteCount;
    // A refusal or damaged bytes may belong to another reply that is owed.
    if (isGood || (isAnswered && m_owed->isOwedOnly(m_request)))
        m_owed->forget(m_request);
    if (isAnswered)
        m_stray->setLastTaken(reply.bytes);
    m_stray->add(m_bytes.mid(reply.bytes.size()));
}

} // namespace kx
