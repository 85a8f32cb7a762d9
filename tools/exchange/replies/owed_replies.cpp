#include "exchange/replies/owed_replies.h"

#include "exchange/replies/reply_verdict.h"

#include <algorithm>
#include <cstring>

namespace kx
{

namespace
{

// Longer than any retry limit: a station that owes more has died.
const int MOST_OWED = 256;

bool areSame(const FRAME_PRO& one, const FRAME_PRO& other)
{
    return one.sendLen == other.sendLen
           && std::memcmp(one.frame, other.frame, static_cast<size_t>(one.sendLen)) == 0;
}

} // namespace

void OwedReplies::add(const FRAME_PRO& request, qint64 until)
{
    if (m_owed.size() == MOST_OWED)
        m_owed.removeFirst();
    if (!isReadRequest(request))
        age(request);
    m_owed.append({request, until, false});
}

void OwedReplies::age(const FRAME_PRO& request)
{
    for (Owed& owed : m_owed) {
        if (owed.request.frame[0] == request.frame[0] && !areSame(owed.request, request))
            owed.isOld = true;
    }
}

void OwedReplies::forget(const FRAME_PRO& request)
{
    const auto found = std::find_if(m_owed.begin(), m_owed.end(), [&](const Owed& owed) {
        return areSame(owed.request, request);
    });
    if (found != m_owed.end())
        m_owed.erase(found);
    for (Owed& owed : m_owed)
        owed.isOld = owed.isOld || owed.request.frame[0] == request.frame[0];
}

int OwedReplies::indexOf(const QByteArray& frame) const
{
    for (int i = 0; i < m_owed.size(); ++i) {
        const Judgement judgement = judgeReply(m_owed.at(i).request, frame);
        // An exception tells too little of the request that it refuses.
        if (judgement.verdict == Verdict::Good && judgement.length == frame.size())
            return i;
    }
    return -1;
}

bool OwedReplies::take(const QByteArray& frame)
{
    const int index = indexOf(frame);
    if (index >= 0)
        m_owed.removeAt(index);
    return index >= 0;
}

bool OwedReplies::isOwedOnly(const FRAME_PRO& request) const
{
    return m_owed.size() == 1 && areSame(m_owed.first().request, request);
}

bool OwedReplies::owesOther(const FRAME_PRO& request) const
{
    return std::any_of(m_owed.begin(), m_owed.end(),
                       [&](const Owed& owed) { return !areSame(owed.request, request); });
}

void OwedReplies::forgetBefore(qint64 now)
{
    const auto isOver = [now](const Owed& owed) { return owed.until <= now; };
    m_owed.erase(std::remove_if(m_owed.begin(), m_owed.end(), isOver), m_owed.end());
}

qint64 OwedReplies::blockedUntil(const FRAME_PRO& request) const
{
    qint64 until = 0;
    for (const Owed& owed : m_owed) {
        const bool isItsOwn = areSame(owed.request, request) && !owed.isOld;
        if (!isItsOwn && areMistakable(owed.request, request))
            until = std::max(until, owed.until);
    }
    return until;
}

} // namespace kx
