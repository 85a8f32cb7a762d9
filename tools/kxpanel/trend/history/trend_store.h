#ifndef KX_KXPANEL_TREND_HISTORY_TREND_STORE_H
#define KX_KXPANEL_TREND_HISTORY_TREND_STORE_H

#include "kxpanel/trend/history/ring.h"
#include "kxpanel/trend/history/trend_sample.h"

#include <QtCore/QVector>

namespace kxpanel
{

/// What one value was over hours, in bounded memory.
///
/// The newest samples are kept as they are. Above them stand levels of spans, each of 4, 16, 64,
/// 256 or 1024 samples, and as many of each as half of the samples: the coarser a level, the
/// further back it goes. A question is answered by the finest that is left, so that the lowest and
/// the highest value are never lost, and only when they were becomes less exact with age.
///
///     samples  |                              ........|   8192: at 20 a second 7 minutes
///     of 4     |                      | | | | | | | | |   14 minutes
///     of 16    |          |   |   |   |   |   |   |   |   55 minutes
///     ...                                                 of 256 14 hours, of 1024 58 hours
///
/// A value that stays takes no memory, so that one which changes seldom is kept for longer.
class TrendStore
{
public:
    static constexpr int USUAL_SAMPLES = 8192;

    /// @param samples that are kept as they are; a power of two, 64 or more
    explicit TrendStore(int samples = USUAL_SAMPLES);

    /// A read, in constant time. One that is earlier than the sample before takes that one's time:
    /// it was told late. Of a clock that was set back, shift() or clear() comes first.
    void append(const TrendSample& sample);
    /// @param value gapValue() or notANumber() when there is none
    void append(qint64 time, double value) { append(TrendSample(time, value)); }
    void clear();
    /// Moves all that there is, in time that grows with it.
    void shift(qint64 milliseconds);

    bool isEmpty() const { return m_samples.isEmpty(); }
    /// Time of the oldest sample that is known of, NO_TIME without any.
    qint64 begin() const;
    /// Since when each sample is kept as it was.
    qint64 exactSince() const;
    /// Time of the newest one.
    qint64 end() const;

    /// What there was from `from` to just before `to`, with the value that held at its beginning.
    /// Exact after exactSince(); before, it may hold up to one span more at either side. Costs the
    /// same for any length.
    TrendSpan between(qint64 from, qint64 to) const;

    /// between() of `count` columns in a row, each `step` milliseconds wide. Those that begin after
    /// `until` are empty.
    QVector<TrendSpan> columns(qint64 from, qint64 step, int count, qint64 until) const;

    /// Samples in their order from the one that held at `from` to just before `to`: all after
    /// exactSince(), before of each span the first, last, lowest, highest and the first gap.
    QVector<TrendSample> samples(qint64 from, qint64 to) const;

    qint64 bytes() const;
    static qint64 mostBytes(int samples = USUAL_SAMPLES);

private:
    struct Place {
        qint64 number; ///< of the sample, or of a span's first; -1: none
        qint64 width;  ///< samples, of a span
    };

    Place lastBefore(qint64 time) const;
    qint64 oldest() const;
    qint64 numberFrom(const Place& before, qint64 time) const;
    qint64 numberTo(const Place& before) const;
    TrendSpan joined(qint64 first, qint64 end) const;
    TrendSpan spanFrom(qint64 number, qint64 end, qint64* next) const;

    Ring<TrendSample> m_samples;
    std::vector<Ring<TrendSpan>> m_levels;
};

} // namespace kxpanel

#endif
