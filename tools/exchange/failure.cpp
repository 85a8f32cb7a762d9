#include "exchange/failure.h"

#include "data/reply_handling.h"
#include "exchange/reason_words.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

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
                       ? Text::tr("the driver did not take the reply")
                       : reasonText(record);
    return failure;
}

QString reasonText(const ExchangeRecord& record)
{
    return reasonWords(record, forPeople);
}

QString reasonText(ReplyKind kind, int exceptionCode)
{
    return reasonWords(kind, exceptionCode, forPeople);
}

QString exceptionText(int code)
{
    return exceptionWords(code, forPeople);
}

} // namespace kx
