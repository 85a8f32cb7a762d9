#include "listen/exchange_matcher.h"

#include "addresses/request_limits.h"
#include "listen/frame_shape.h"

namespace kx
{

namespace
{

const int REPEATED_BYTES = 6; // station, function, address, value or quantity

bool isReadFunction(int function)
{
    return function >= 1 && function <= 4;
}

/// Whether a frame of a write's station and function says that it was done: it repeats the
/// address and, as the write has them there, the value or the quantity.
bool confirms(const QByteArray& write, const QByteArray& frame)
{
    return answerLength(write, frame) == frame.size()
           && frame.left(REPEATED_BYTES) == write.left(REPEATED_BYTES);
}

/// A frame of another function may be either: it is taken for a request.
bool canBeRequest(const QByteArray& frame)
{
    const bool isException = (functionOf(frame) & EXCEPTION_FLAG) != 0;
    return isKnownFunction(frame) ? requestLength(frame) == frame.size() : !isException;
}

} // namespace

ExchangeMatcher::Answer ExchangeMatcher::answerOf(const HeardPiece& frame) const
{
    const QByteArray& request = m_open.bytes;
    const QByteArray& bytes = frame.bytes;
    if (request.isEmpty() || stationOf(bytes) != stationOf(request))
        return Answer::No;
    if (functionOf(bytes) == (functionOf(request) | EXCEPTION_FLAG))
        return Answer::Refusal;
    if (functionOf(bytes) != functionOf(request))
        return Answer::No;
    if (!isKnownFunction(request))
        return Answer::Yes;
    const bool isRead = isReadFunction(functionOf(request));
    if (!isRead)
        return confirms(request, bytes) ? Answer::Yes : Answer::No;
    // The same bytes once more are the request once more.
    if (answerLength(request, bytes) == bytes.size() && bytes != request)
        return Answer::Yes;
    return requestLength(bytes) == bytes.size() ? Answer::No : Answer::Unfitting;
}

bool ExchangeMatcher::isOwnDamage(const HeardPiece& noise) const
{
    const QByteArray& bytes = noise.bytes;
    if (m_open.bytes.isEmpty() || bytes.size() < 2)
        return false;
    return stationOf(bytes) == stationOf(m_open.bytes)
           && (functionOf(bytes) & ~EXCEPTION_FLAG) == functionOf(m_open.bytes);
}

HeardExchange ExchangeMatcher::close(HeardKind kind, const HeardPiece& reply)
{
    HeardExchange over = {kind, m_open, reply}; // not const, so that it can be moved out
    m_open = HeardPiece();
    return over;
}

void ExchangeMatcher::takeRequest(const HeardPiece& frame, QList<HeardExchange>* over)
{
    if (!m_open.bytes.isEmpty())
        *over << close(HeardKind::Unanswered);
    if (stationOf(frame.bytes) == 0)
        *over << HeardExchange{HeardKind::Broadcast, frame, HeardPiece()};
    else
        m_open = frame;
}

QList<HeardExchange> ExchangeMatcher::take(HeardPiece* piece)
{
    QList<HeardExchange> over = expire(piece->firstRead);
    if (!piece->isFrame) {
        over << (isOwnDamage(*piece) ? close(HeardKind::Damaged, *piece)
                                     : HeardExchange{HeardKind::Noise, HeardPiece(), *piece});
        return over;
    }
    switch (answerOf(*piece)) {
    case Answer::Yes:
        over << close(HeardKind::Answered, *piece);
        break;
    case Answer::Refusal:
        over << close(HeardKind::Refused, *piece);
        break;
    case Answer::Unfitting:
        over << close(HeardKind::Unfitting, *piece);
        break;
    case Answer::No:
        piece->isRequest = canBeRequest(piece->bytes);
        if (piece->isRequest)
            takeRequest(*piece, &over);
        else
            over << HeardExchange{HeardKind::Stray, HeardPiece(), *piece};
    }
    return over;
}

QList<HeardExchange> ExchangeMatcher::expire(qint64 now)
{
    QList<HeardExchange> over;
    if (!m_open.bytes.isEmpty() && now - m_open.lastRead > m_replyTimeout)
        over << close(HeardKind::Unanswered);
    return over;
}

QList<HeardExchange> ExchangeMatcher::finish()
{
    QList<HeardExchange> over;
    if (!m_open.bytes.isEmpty())
        over << close(HeardKind::Open);
    return over;
}

} // namespace kx
