#ifndef KX_LISTEN_EXCHANGE_MATCHER_H
#define KX_LISTEN_EXCHANGE_MATCHER_H

#include "listen/heard_exchange.h"

#include <QtCore/QList>

namespace kx
{

/// Finds out which frames are requests and which of them are answered by what. One request at
/// most is open: a master has one on the line at a time.
class ExchangeMatcher
{
public:
    /// @param replyTimeout microseconds after which a frame answers no more. A write of one
    ///        coil or register and its reply are alike: later, it is the request again.
    explicit ExchangeMatcher(qint64 replyTimeout) : m_replyTimeout(replyTimeout) {}

    /// The bytes of the open request; empty when none is.
    const QByteArray& open() const { return m_open.bytes; }

    /// Takes the next piece of the line and says in it whether it is a request. Returns what
    /// is over with it.
    QList<HeardExchange> take(HeardPiece* piece);

    /// What is over when nothing came until `now`.
    QList<HeardExchange> expire(qint64 now);

    /// What is left at the end.
    QList<HeardExchange> finish();

private:
    enum class Answer { No, Yes, Refusal, Unfitting };

    Answer answerOf(const HeardPiece& frame) const;
    bool isOwnDamage(const HeardPiece& noise) const;
    HeardExchange close(HeardKind kind, const HeardPiece& reply = HeardPiece());
    void takeRequest(const HeardPiece& frame, QList<HeardExchange>* over);

    qint64 m_replyTimeout;
    HeardPiece m_open;
};

} // namespace kx

#endif
