#ifndef KX_KXPANEL_TREND_PLOT_TREND_MOUSE_H
#define KX_KXPANEL_TREND_PLOT_TREND_MOUSE_H

#include "kxpanel/trend/plot/trend_plot.h"

#include <QtCore/QPointF>

class QMouseEvent;
class QRubberBand;
class QWheelEvent;

namespace kxpanel
{

/// What the mouse does on a plot's canvas: the wheel zooms the time, with Ctrl the values; a band
/// that is drawn zooms both; with the middle button, or Shift, the window follows; a cursor is
/// taken along.
class TrendMouse : public QObject
{
    Q_OBJECT

public:
    /// The plot's own. The view outlives it.
    TrendMouse(TrendPlot* plot, TrendView* view);

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Where the mouse is, when it is over the canvas.
    std::optional<qint64> time() const;

private:
    enum class Drag { None, Band, Pan, Cursor };

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void wheel(const QWheelEvent& event);
    void zoomValues(double factor, double y);
    void takeBand(const QRect& drawn);
    /// The cursor at a place; -1: none.
    int cursorAt(double x) const;

    TrendPlot* m_plot;
    TrendView* m_view;
    QRubberBand* m_band;
    Drag m_drag = Drag::None;
    Qt::MouseButton m_button = Qt::NoButton; ///< that began the drag
    QPoint m_begin;
    int m_cursor = 0;
};

} // namespace kxpanel

#endif
