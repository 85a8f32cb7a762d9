#ifndef KX_KXPANEL_LINE_CYCLE_TIME_AXIS_H
#define KX_KXPANEL_LINE_CYCLE_TIME_AXIS_H

#include <QtCore/QVector>

namespace kxpanel
{

/// A stretch of time, in microseconds since 1970 in UTC, over a stretch of pixels.
class TimeAxis
{
public:
    static constexpr qint64 SHORTEST = 1000; ///< microseconds
    static constexpr qint64 LONGEST = 600000000;

    qint64 from() const { return m_from; }
    qint64 to() const { return m_from + m_span; }
    qint64 span() const { return m_span; }

    /// @param width more than 0
    void setPixels(double left, double width);
    double left() const { return m_left; }
    double width() const { return m_width; }

    double xOf(qint64 time) const;
    qint64 timeAt(double x) const;

    /// Keeps the span.
    void setEnd(qint64 to) { m_from = to - m_span; }
    /// Within SHORTEST and LONGEST; keeps the end.
    void setSpan(qint64 span);
    /// The time at `x` stays there.
    /// @param factor below 1: shows less
    void zoom(double factor, double x);
    /// @param pixels above 0: towards later times
    void pan(double pixels);

    /// Times to label: of 1, 2 or 5 times a power of ten, as near as `apart` pixels at least.
    QVector<qint64> ticks(double apart) const;

private:
    qint64 m_from = 0;
    qint64 m_span = 1000000;
    double m_left = 0;
    double m_width = 1;
};

} // namespace kxpanel

#endif
