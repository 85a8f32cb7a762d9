#ifndef KX_KXPANEL_TREND_PLOT_TREND_LANES_H
#define KX_KXPANEL_TREND_PLOT_TREND_LANES_H

#include "kxpanel/trend/plot/trend_curves.h"

namespace kxpanel
{

/// Strips at the foot of a plot, one for each channel that shares no scale: a bit is high or low,
/// any other value runs from its lowest to its highest, which are written beside it.
class TrendLanes : public QwtPlotItem
{
public:
    /// Both outlive it.
    TrendLanes(const TrendChannels* channels, const TrendView* view);

    /// Of a canvas, the part that lanes take: up to 0.7.
    /// @param height of the canvas, in pixels
    /// @param row height of a row of text, in pixels
    static double share(const QList<TrendChannel>& channels, double height, double row);

    /// As share() gave it.
    void setShare(double share) { m_share = share; }

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

private:
    void drawLane(QPainter* painter, const QwtScaleMap& xMap, const QRectF& lane,
                  const TrendChannel& channel) const;

    void drawLabel(QPainter* painter, const QRectF& lane, const TrendChannel& channel) const;

    const TrendChannels* m_channels;
    const TrendView* m_view;
    double m_share = 0;
};

} // namespace kxpanel

#endif
