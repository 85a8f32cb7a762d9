/// How the scales of a plot are labelled.
#ifndef KX_KXPANEL_TREND_PLOT_TREND_SCALES_H
#define KX_KXPANEL_TREND_PLOT_TREND_SCALES_H

class QwtScaleDraw;

namespace kxpanel
{

/// Local times, the date where it is new. Becomes the plot's that takes it.
QwtScaleDraw* timeScale();

} // namespace kxpanel

#endif
