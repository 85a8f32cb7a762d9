#ifndef KX_EXCHANGE_LINE_SILENCE_H
#define KX_EXCHANGE_LINE_SILENCE_H

#include <QtCore/QtGlobal>

namespace kx
{

/// The silence before a request, without which stations cannot tell where it begins.
/// Times are microseconds on the loop's clock.
class LineSilence
{
public:
    /// @param quiet longer than the frame gap: wanted, but done without when it does not come
    /// @param patience how long a line may go on without being silent
    LineSilence(qint64 quiet, qint64 patience) : m_quiet(quiet), m_patience(patience) {}

    /// 3.5 characters; 0 on a network.
    void setFrameGap(qint64 gap) { m_gap = gap; }
    /// The latest reply was no frame: more of what it was may be on its way.
    void setNoisy(bool isNoisy) { m_isNoisy = isNoisy; }

    /// Characters were on the line until then, or will be.
    void heardUntil(qint64 time) { m_since = qMax(m_since, time); }

    /// A request waits for the silence from now on.
    void await(qint64 now);

    /// All the silence wanted, or the least that a request needs.
    bool isLong(qint64 now) const { return now >= m_since + qMax(m_quiet, least()); }
    bool isEnough(qint64 now) const { return now >= m_since + least(); }
    /// It did not come while it was waited for.
    bool isOverdue(qint64 now) const { return now >= overdueAt(); }

    /// When to look again.
    qint64 nextAt() const { return qMin(m_since + qMax(m_quiet, least()), overdueAt()); }

private:
    qint64 least() const;
    qint64 overdueAt() const;

    qint64 m_quiet;
    qint64 m_patience;
    qint64 m_gap = 0;
    bool m_isNoisy = false;
    qint64 m_since = 0;
    qint64 m_awaitedSince = 0;
};

} // namespace kx

#endif
