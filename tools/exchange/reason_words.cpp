#include "exchange/reason_words.h"

#include "exchange/lines/mbap_frames.h"

namespace kx
{

namespace
{

const char* exceptionName(int code)
{
    switch (code) {
    case 1:
        return QT_TRANSLATE_NOOP("kx", "illegal function");
    case 2:
        return QT_TRANSLATE_NOOP("kx", "illegal data address");
    case 3:
        return QT_TRANSLATE_NOOP("kx", "illegal data value");
    case 4:
        return QT_TRANSLATE_NOOP("kx", "device failure");
    case 5:
        return QT_TRANSLATE_NOOP("kx", "still at work");
    case 6:
        return QT_TRANSLATE_NOOP("kx", "busy");
    case 10:
        return QT_TRANSLATE_NOOP("kx", "gateway has no path");
    case 11:
        return QT_TRANSLATE_NOOP("kx", "no answer to the gateway");
    default:
        return QT_TRANSLATE_NOOP("kx", "other reason");
    }
}

/// Of all but exceptions, which have a code.
const char* kindName(ReplyKind kind)
{
    switch (kind) {
    case ReplyKind::Good:
        return QT_TRANSLATE_NOOP("kx", "good");
    case ReplyKind::None:
        return QT_TRANSLATE_NOOP("kx", "no reply");
    case ReplyKind::Short:
        return QT_TRANSLATE_NOOP("kx", "short reply");
    case ReplyKind::Bad:
        return QT_TRANSLATE_NOOP("kx", "bad reply");
    case ReplyKind::WrongByteCount:
        return QT_TRANSLATE_NOOP("kx", "wrong byte count");
    case ReplyKind::Foreign:
        return QT_TRANSLATE_NOOP("kx", "reply of another request");
    case ReplyKind::Lost:
        return QT_TRANSLATE_NOOP("kx", "line lost");
    case ReplyKind::Broadcast:
        return QT_TRANSLATE_NOOP("kx", "broadcast");
    case ReplyKind::NeverSilent:
        return QT_TRANSLATE_NOOP("kx", "the line is never silent");
    case ReplyKind::NotSent:
        return QT_TRANSLATE_NOOP("kx", "not whole, so not sent");
    case ReplyKind::Exception:
        break;
    }
    return "";
}

} // namespace

QString reasonWords(ReplyKind kind, int exceptionCode, Wording wording)
{
    return kind == ReplyKind::Exception ? exceptionWords(exceptionCode, wording)
                                        : wording(kindName(kind));
}

QString reasonWords(const ExchangeRecord& record, Wording wording)
{
    const QString text = reasonWords(record.replyKind, record.exceptionCode, wording);
    const bool isNoFrame =
        record.replyKind == ReplyKind::Bad || record.replyKind == ReplyKind::Short;
    return isNoFrame && isMbapReply(record.reply)
               ? wording(QT_TRANSLATE_NOOP("kx", "%1, a frame of Modbus TCP")).arg(text)
               : text;
}

QString exceptionWords(int code, Wording wording)
{
    return wording(QT_TRANSLATE_NOOP("kx", "exception %1 (%2)"))
        .arg(QString::number(code), wording(exceptionName(code)));
}

} // namespace kx
