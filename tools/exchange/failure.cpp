#include "exchange/failure.h"

#include "data/reply_handling.h"
#include "exchange/lines/mbap_frames.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const char* exceptionName(int code)
{
    switch (code) {
    case 1:
        return "illegal function";
    case 2:
        return "illegal data address";
    case 3:
        return "illegal data value";
    case 4:
        return "device failure";
    case 5:
        return "still at work";
    case 6:
        return "busy";
    case 10:
        return "gateway has no path";
    case 11:
        return "no answer to the gateway";
    default:
        return "other reason";
    }
}

FailureKind kindOf(ReplyKind kind)
{
    switch (kind) {
    case ReplyKind::Good:
        return FailureKind::NotTaken;
    case ReplyKind::None:
        return FailureKind::NoReply;
    case ReplyKind::Short:
        return FailureKind::ShortReply;
    case ReplyKind::Bad:
        return FailureKind::BadReply;
    case ReplyKind::Exception:
        return FailureKind::Exception;
    case ReplyKind::WrongByteCount:
        return FailureKind::WrongByteCount;
    case ReplyKind::Foreign:
        return FailureKind::ForeignReply;
    case ReplyKind::Lost:
        return FailureKind::LineLost;
    case ReplyKind::Broadcast:
        return FailureKind::Broadcast;
    case ReplyKind::NotSent:
        return FailureKind::NotWhole;
    case ReplyKind::NeverSilent:
        return FailureKind::NeverSilent;
    }
    return FailureKind::None;
}

AddressRange rangeOf(const VARIABLE& job)
{
    AddressRange range;
    range.type = findRegisterType(job.regType);
    range.address = job.address;
    range.values = range.type ? job.count / registersPerAddress(range.type) : job.count;
    range.station = job.station;
    return range;
}

} // namespace

Failure failureOf(FailureKind kind, const QString& text)
{
    Failure failure;
    failure.kind = kind;
    failure.text = text;
    return failure;
}

Failure failureOf(const ExchangeRecord& record)
{
    if (record.result == REPLY_ACCEPTED)
        return Failure();
    Failure failure;
    failure.kind = kindOf(record.replyKind);
    failure.station = record.job.station;
    failure.range = rangeOf(record.job);
    failure.exceptionCode = record.exceptionCode;
    failure.text = failure.kind == FailureKind::NotTaken
                       ? QStringLiteral("the driver did not take the reply")
                       : reasonText(record);
    return failure;
}

QString reasonText(const ExchangeRecord& record)
{
    const QString text = reasonText(record.replyKind, record.exceptionCode);
    const bool isNoFrame =
        record.replyKind == ReplyKind::Bad || record.replyKind == ReplyKind::Short;
    return isNoFrame && isMbapReply(record.reply) ? text + QStringLiteral(", a frame of Modbus TCP")
                                                  : text;
}

QString reasonText(ReplyKind kind, int exceptionCode)
{
    switch (kind) {
    case ReplyKind::Good:
        return QStringLiteral("good");
    case ReplyKind::None:
        return QStringLiteral("no reply");
    case ReplyKind::Short:
        return QStringLiteral("short reply");
    case ReplyKind::Bad:
        return QStringLiteral("bad reply");
    case ReplyKind::Exception:
        return exceptionText(exceptionCode);
    case ReplyKind::WrongByteCount:
        return QStringLiteral("wrong byte count");
    case ReplyKind::Foreign:
        return QStringLiteral("reply of another request");
    case ReplyKind::Lost:
        return QStringLiteral("line lost");
    case ReplyKind::Broadcast:
        return QStringLiteral("broadcast");
    case ReplyKind::NeverSilent:
        return QStringLiteral("the line is never silent");
    case ReplyKind::NotSent:
        return QStringLiteral("not whole, so not sent");
    }
    return QString();
}

QString exceptionText(int code)
{
    return QStringLiteral("exception %1 (%2)")
        .arg(QString::number(code), QLatin1String(exceptionName(code)));
}

} // namespace kx
