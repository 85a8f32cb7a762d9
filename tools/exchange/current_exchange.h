#ifndef KX_EXCHANGE_CURRENT_EXCHANGE_H
#define KX_EXCHANGE_CURRENT_EXCHANGE_H

#include "exchange/driver_library.h"
#include "exchange/replies/reply_collector.h"

namespace kx
{

/// The exchange that goes on: its request, what came for it, and what the driver made of that.
/// Times are microseconds on the loop's clock.
class CurrentExchange
{
public:
    /// All three stay the caller's and outlive this.
    CurrentExchange(OwedReplies* owed, StrayBytes* stray, Statistics* statistics);

    /// Whether the request was the latest to be sent, and is to be sent again.
    bool isRepeat(const FRAME_PRO& request) const;
    void begin(const FRAME_PRO& request, bool isRepeat);
    /// The bytes of a whole request, which goes out now.
    QByteArray send();
    /// When the request's last character leaves.
    void setTransmittedAt(qint64 time) { m_transmittedAt = time; }
    /// What has come since; the reply once it is there.
    std::optional<CollectedReply> add(const QByteArray& bytes, qint64 now,
                                      const LineTiming& timing);
    /// Until when the bytes of the reply may be left in the port, since it cannot be whole on a
    /// line that keeps time; 0: they are to be taken as they come. To be asked when the request
    /// went out, and whenever what waited was taken. The first time is half of the reply's: what
    /// is whole by then shows that the line does not keep time.
    qint64 leaveBytesUntil(qint64 now, const LineTiming& timing);
    /// The reply as far as it came.
    CollectedReply incomplete() const { return m_collector.incomplete(); }
    /// Hands the reply to the driver and counts it.
    void end(const CollectedReply& reply, const DriverEntryPoints& driver);
    /// The driver hears nothing, and hands the request out again.
    void giveUp() { m_isToBeRepeated = true; }

    const FRAME_PRO& request() const { return m_collector.request(); }
    const ExchangeRecord& record() const { return m_record; }
    /// When the line has carried what came: a pseudo-terminal delivers at once what a serial
    /// line carries for milliseconds.
    qint64 carriedAt(const LineTiming& timing) const;

private:
    const OwedReplies* m_owed;
    Statistics* m_statistics;
    ReplyCollector m_collector;
    ExchangeRecord m_record;
    bool m_isToBeRepeated = false;
    qint64 m_transmittedAt = 0;
    bool m_hasLooked = false; ///< for the reply
};

} // namespace kx

#endif
