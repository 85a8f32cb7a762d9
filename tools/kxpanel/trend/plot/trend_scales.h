/// How the scales of a plot are labelled.
#ifndef KX_KXPANEL_TREND_PLOT_TREND_SCALES_H
#define KX_KXPANEL_TREND_PLOT_TREND_SCALES_H

class QwtScaleDraw;

namespace kxpanel
{

/// Local times, with the date below the first one and at midnight. Becomes the plot's that takes
/// it.
QwtScaleDraw* timeScale();

/// Numbers as in all tables, whatever the language. Becomes the plot's that takes it.
QwtScaleDraw* valueScale();

} // namespace kxpanel

#endif
