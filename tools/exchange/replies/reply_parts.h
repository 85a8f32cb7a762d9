/// What came back for a request, cut into what its runs of bytes are. Pure functions.
#ifndef KX_EXCHANGE_REPLIES_REPLY_PARTS_H
#define KX_EXCHANGE_REPLIES_REPLY_PARTS_H

#include "exchange/replies/exchange_record.h"

#include <QtCore/QVector>

namespace kx
{

enum class PartKind {
    Answer,     ///< the station's whole reply or refusal, with the byte count asked for or not
    Damaged,    ///< what should have been the reply: its CRC is wrong, or bytes are missing
    Echo,       ///< the request itself, as on a line that hears its own bytes
    OtherFrame, ///< a whole frame that was not taken for the reply
    Noise       ///< bytes in no frame
};

struct ReplyPart {
    PartKind kind = PartKind::Noise;
    QByteArray bytes; ///< at least one

    /// Whole and with the right CRC, of whomever.
    bool isFrame() const { return kind != PartKind::Damaged && kind != PartKind::Noise; }
};

/// In the order in which they came, all of the reply's bytes. As judgeReply() has it, and beyond
/// that the answer behind noise is found, which the driver never sees: it is asked for once more.
QVector<ReplyPart> partsOfReply(const ExchangeRecord& record);

/// The bytes of the Answer; empty: there is none.
QByteArray answerAmong(const QVector<ReplyPart>& parts);

} // namespace kx

#endif
