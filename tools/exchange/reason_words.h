/// What came back for a request, in words for people or for programs. Pure functions.
#ifndef KX_EXCHANGE_REASON_WORDS_H
#define KX_EXCHANGE_REASON_WORDS_H

#include "exchange/replies/exchange_record.h"
#include "system/translated_text.h"

namespace kx
{

/// "good", "no reply", "exception 2 (illegal data address)".
QString reasonWords(ReplyKind kind, int exceptionCode, Wording wording);

/// The same of a whole exchange, in which a reply in another protocol is known: "bad reply, a frame
/// of Modbus TCP".
QString reasonWords(const ExchangeRecord& record, Wording wording);

/// "exception 2 (illegal data address)".
QString exceptionWords(int code, Wording wording);

} // namespace kx

#endif
