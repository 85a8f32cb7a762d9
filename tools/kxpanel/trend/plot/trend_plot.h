#ifndef KX_KXPANEL_TREND_PLOT_TREND_PLOT_H
#define KX_KXPANEL_TREND_PLOT_TREND_PLOT_H

#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_view.h"

#include <qwt_plot.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>

namespace kxpanel
{

class TrendLanes;

/// Draws channels over the time that a view shows. It draws when told: refresh().
class TrendPlot : public QwtPlot
{
    Q_OBJECT

public:
    /// Both outlive it.
    TrendPlot(const TrendChannels* channels, TrendView* view, QWidget* parent = nullptr);

    void refresh();
    /// Of a place on the canvas, in its pixels.
    qint64 timeAt(double x) const;
    double placeOf(qint64 time) const;
    /// Of a canvas's place, on one of the scales.
    double valueAt(TrendSide side, double y) const;
    double placeOf(TrendSide side, double value) const;
    /// Milliseconds that one pixel stands for, 1 or more.
    qint64 pixelTime() const;
    /// Values that are shown on a scale now.
    TrendView::Range shownValues(TrendSide side) const;

signals:
    void valuesDropped(const QList<int>& numbers);
    void resized();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void placeTime();
    void placeValues(TrendSide side, double laneShare);
    void placeCursors();
    void takePalette();
    TrendView::Range wantedValues(TrendSide side) const;

    const TrendChannels* m_channels;
    TrendView* m_view;
    QwtPlotGrid* m_grid; ///< items are the plot's
    TrendLanes* m_lanes;
    QwtPlotTextLabel* m_hint; ///< while there is nothing to draw
    QwtPlotMarker* m_cursors[2];
    TrendView::Range m_shown[2];
};

} // namespace kxpanel

#endif
