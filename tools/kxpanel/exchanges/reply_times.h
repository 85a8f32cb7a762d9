#ifndef KX_KXPANEL_EXCHANGES_REPLY_TIMES_H
#define KX_KXPANEL_EXCHANGES_REPLY_TIMES_H

#include <QtCore/QVector>

namespace kxpanel
{

/// How long replies took, counted in classes that widen with the time, each of which is an eighth
/// of an octave or less: so any time is known to an eighth, in the same memory however many
/// came. All in microseconds.
class ReplyTimes
{
public:
    void add(qint64 time);

    qint64 count() const { return m_count; }
    qint64 longest() const { return m_longest; }
    /// The shortest time that so many of the replies did not exceed, rounded up to the end of its
    /// class, and never above the longest.
    /// @param share 0 to 1: 0.5 gives the median
    /// @return 0 without replies
    qint64 quantile(double share) const;
    qint64 median() const { return quantile(0.5); }

    /// Counts of the classes from 0 on; none behind the last that counted any.
    const QVector<qint64>& classes() const { return m_classes; }
    static int classOf(qint64 time);
    /// The shortest time of a class; of the next one it is where this one ends.
    static qint64 beginOf(int index);

private:
    QVector<qint64> m_classes;
    qint64 m_count = 0;
    qint64 m_longest = 0;
};

} // namespace kxpanel

#endif
