#include "exchange/current_exchange.h"

#include "exchange/replies/reply_verdict.h"
#include "exchange/replies/whole_frame.h"

namespace kx
{

namespace
{

const int MOST_KEPT = 4096; // bytes of what came for one request
/// The last characters are taken as they come: the silence counts from them, and adapters and
/// drivers report what has come a moment later. The moment is for the machine, too: its first
/// getting up after a long sleep takes some 100 us, and the time of the end is told up to a
/// character too late. The last character is to find it up.
const qint64 TAKEN_AT_ONCE = 2;
const qint64 MOMENT = 250; // microseconds

} // namespace

CurrentExchange::CurrentExchange(OwedReplies* owed, StrayBytes* stray, Statistics* statistics)
    : m_owed(owed), m_statistics(statistics), m_collector(owed, stray, &statistics->thrownAway)
{
}

bool CurrentExchange::isRepeat(const FRAME_PRO& request) const
{
    return m_isToBeRepeated && isWholeFrame(request) && bytesOf(request) == m_record.request;
}

void CurrentExchange::begin(const FRAME_PRO& request, bool isRepeat)
{
    m_collector.begin(request);
    m_hasLooked = false;
    m_record = ExchangeRecord();
    m_record.job = request.job;
    m_record.repeated = isRepeat;
    m_record.sentAt = QDateTime::currentDateTimeUtc();
}

QByteArray CurrentExchange::send()
{
    m_record.request = bytesOf(request());
    return m_record.request;
}

std::optional<CollectedReply> CurrentExchange::add(const QByteArray& bytes, qint64 now,
                                                   const LineTiming& timing)
{
    const QByteArray kept = bytes.left(MOST_KEPT - static_cast<int>(m_record.reply.size()));
    m_record.reply += kept;
    m_statistics->bytesReceived += bytes.size() - kept.size();
    const qint64 sinceRequest = now - m_transmittedAt;
    std::optional<CollectedReply> reply = m_collector.add(bytes, sinceRequest, timing);
    if (reply && (reply->kind == ReplyKind::Good || reply->kind == ReplyKind::Exception))
        m_record.turnaround =
            qMax(qint64(0), sinceRequest - timing.transmissionTime(reply->bytes.size()));
    return reply;
}

qint64 CurrentExchange::leaveBytesUntil(qint64 now, const LineTiming& timing)
{
    const int missing = qMax(0, m_collector.missing());
    const qint64 whole = qMax(now, m_transmittedAt) + timing.transmissionTime(missing);
    const qint64 slack = qMax(timing.transmissionTime(TAKEN_AT_ONCE), MOMENT);
    const bool hasBegun = missing < request().recvLen;
    qint64 until = 0;
    if (!m_hasLooked)
        until = whole - timing.transmissionTime(missing) / 2;
    else if (hasBegun)
        until = whole - slack;
    m_hasLooked = true;
    // Which of two replies comes first is told by when its bytes come.
    return until > now + slack && !m_owed->owesOther(request()) ? until : 0;
}

void CurrentExchange::end(const CollectedReply& reply, const DriverEntryPoints& driver)
{
    m_record.replyKind = reply.kind;
    m_record.foreignReplies = m_collector.foreignReplies();
    if (reply.kind == ReplyKind::Exception)
        m_record.exceptionCode = exceptionCodeOf(reply.bytes);
    m_record.finishedAt = QDateTime::currentDateTimeUtc();
    m_collector.settle(reply);
    QByteArray bytes = reply.bytes;
    m_record.result = driver.dealRcvFrame(bytes, m_record.errorText);
    m_isToBeRepeated = m_record.result == REPLY_RETRY;
    m_statistics->add(m_record);
}

qint64 CurrentExchange::carriedAt(const LineTiming& timing) const
{
    return m_transmittedAt + timing.transmissionTime(m_record.reply.size());
}

} // namespace kx
