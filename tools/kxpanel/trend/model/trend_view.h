#ifndef KX_KXPANEL_TREND_MODEL_TREND_VIEW_H
#define KX_KXPANEL_TREND_MODEL_TREND_VIEW_H

#include <QtCore/QObject>

#include <array>
#include <optional>

namespace kxpanel
{

enum class TrendSide { Left, Right };

/// Which part of the time and of the values a plot shows, and where its cursors are. Times are
/// milliseconds since 1970 in UTC. It has no clock: setNow() tells it.
///
///     State   Event                              Next state
///     Live    setNow()                           Live, the window ends there
///     Live    pan(), show(), pause()             Paused
///     Live    zoom(), setSpan()                  Live
///     Paused  goLive()                           Live
class TrendView : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 SHORTEST_SPAN = 20;                    ///< milliseconds
    static constexpr qint64 LONGEST_SPAN = 366 * qint64(86400000); ///< a year

    static constexpr qint64 USUAL_SPAN = 60000; ///< milliseconds
    static constexpr double MOST_VALUE = 1e300; ///< what is beyond is outside of any range

    struct Range {
        double low = 0;
        double high = 0;
    };

    using QObject::QObject;

    bool isLive() const { return m_isLive; }
    qint64 from() const { return m_to - m_span; }
    qint64 to() const { return m_to; }
    qint64 span() const { return m_span; }
    qint64 now() const { return m_now; }

    void setNow(qint64 now);
    void pause();
    /// The newest, over the span that is shown.
    void goLive();
    void setSpan(qint64 span);
    /// @param factor below 1 shows less
    /// @param anchor a time that stays where it is; unused while live, as the window ends now
    void zoom(double factor, qint64 anchor);
    /// @param share of the span; negative goes back
    void pan(double share);
    /// Moves the window's end, by whole milliseconds.
    void moveBy(qint64 milliseconds);
    /// All times are others, and look the same.
    void shift(qint64 milliseconds);
    /// As it is at first: live, a minute, all values, no cursors.
    void reset();
    void show(qint64 from, qint64 to);

    /// Values that are shown, of a scale; none: all that there are.
    std::optional<Range> values(TrendSide side) const { return m_values.at(index(side)); }
    void showValues(TrendSide side, std::optional<Range> values);

    /// @param cursor 0 or 1
    std::optional<qint64> cursor(int cursor) const { return m_cursors.at(place(cursor)); }
    /// Sets it, and the keys move it from now on.
    void setCursor(int cursor, qint64 time);
    /// Moves the cursor that was set last, if there is one; it stays in the window.
    void moveCursor(qint64 milliseconds);
    void clearCursors();
    /// From the first to the second, in milliseconds; none unless both are set.
    std::optional<qint64> difference() const;

signals:
    void changed();
    void liveChanged(bool isLive);
    void cursorsChanged();

private:
    static std::size_t index(TrendSide side) { return side == TrendSide::Left ? 0 : 1; }
    static std::size_t place(int cursor) { return cursor == 0 ? 0 : 1; }
    void setLive(bool isLive);

    bool m_isLive = true;
    qint64 m_now = 0;
    qint64 m_to = 0;
    qint64 m_span = USUAL_SPAN;
    std::array<std::optional<Range>, 2> m_values;
    std::array<std::optional<qint64>, 2> m_cursors;
    int m_lastCursor = 0;
};

/// A range in which values can be drawn and scales labelled: never empty, endless or finer than
/// numbers are. A single value stands in its middle.
TrendView::Range drawnRange(double low, double high);

} // namespace kxpanel

#endif
