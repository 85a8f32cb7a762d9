#include "exchange/replies/reply_parts.h"

#include "addresses/request_limits.h"
#include "exchange/replies/driver_request.h"
#include "exchange/replies/reply_verdict.h"

#include <algorithm>

namespace kx
{

namespace
{

/// Cuts from the front what one reply after the other is.
class ReplyCutter
{
public:
    explicit ReplyCutter(const ExchangeRecord& record)
        : m_request(driverRequest(record.request)),
          m_rest(record.reply),
          m_othersLeft(record.foreignReplies),
          m_isAnswered(record.replyKind != ReplyKind::Foreign)
    {
    }

    QVector<ReplyPart> parts()
    {
        while (!m_rest.isEmpty() && takeOne()) {
        }
        return m_parts;
    }

private:
    /// False behind the last part.
    bool takeOne()
    {
        const Judgement judgement = judgeReply(m_request, m_rest);
        switch (judgement.verdict) {
        case Verdict::Echo:
            take(PartKind::Echo, judgement.length);
            return true;
        case Verdict::Good:
            if (m_isAnswered && m_othersLeft <= 0)
                return takeAnswer(judgement.length);
            // It came too soon to be the reply.
            takeOther(judgement.length);
            return true;
        case Verdict::Foreign:
            takeOther(judgement.length);
            return true;
        case Verdict::Exception:
        case Verdict::WrongByteCount:
            return takeAnswer(judgement.length);
        case Verdict::Bad:
        case Verdict::Incomplete:
            break;
        }
        return takeDamaged();
    }

    void take(PartKind kind, int length)
    {
        m_parts << ReplyPart{kind, m_rest.left(length)};
        m_rest.remove(0, length);
    }

    void takeOther(int length)
    {
        take(PartKind::OtherFrame, length);
        --m_othersLeft;
    }

    bool takeAnswer(int length)
    {
        take(PartKind::Answer, length);
        const int other = frameLengthOf(m_rest);
        if (other > 0)
            take(PartKind::OtherFrame, other);
        if (!m_rest.isEmpty())
            take(PartKind::Noise, static_cast<int>(m_rest.size()));
        return false;
    }

    bool takeDamaged()
    {
        for (int at = 1; at < static_cast<int>(m_rest.size()) - 1; ++at) {
            const int length = answerLengthAt(at);
            if (length == 0)
                continue;
            take(PartKind::Noise, at);
            return takeAnswer(length);
        }
        take(PartKind::Damaged, static_cast<int>(m_rest.size()));
        return false;
    }

    /// 0: none is there. Looks closely only where station and function suit.
    int answerLengthAt(int at) const
    {
        const auto byteAt = [this](int index) { return static_cast<uchar>(m_rest.at(index)); };
        if (byteAt(at) != m_request.frame[0]
            || (byteAt(at + 1) & ~EXCEPTION_FLAG) != m_request.frame[1])
            return 0;
        const Judgement judgement =
            judgeReply(m_request, m_rest.mid(at, std::max(m_request.recvLen, m_request.sendLen)));
        const bool isAnswer =
            judgement.verdict == Verdict::Good || judgement.verdict == Verdict::Exception;
        return isAnswer ? judgement.length : 0;
    }

    FRAME_PRO m_request;
    QByteArray m_rest;
    int m_othersLeft;  ///< frames thrown away before the answer
    bool m_isAnswered; ///< else all whole frames were thrown away
    QVector<ReplyPart> m_parts;
};

} // namespace

QVector<ReplyPart> partsOfReply(const ExchangeRecord& record)
{
    if (record.request.isEmpty()) // nothing answers it
        return record.reply.isEmpty() ? QVector<ReplyPart>()
                                      : QVector<ReplyPart>{{PartKind::Noise, record.reply}};
    return ReplyCutter(record).parts();
}

QByteArray answerAmong(const QVector<ReplyPart>& parts)
{
    for (const ReplyPart& part : parts) {
        if (part.kind == PartKind::Answer)
            return part.bytes;
    }
    return QByteArray();
}

} // namespace kx
