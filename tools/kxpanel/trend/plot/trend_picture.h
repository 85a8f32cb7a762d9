#ifndef KX_KXPANEL_TREND_PLOT_TREND_PICTURE_H
#define KX_KXPANEL_TREND_PLOT_TREND_PICTURE_H

#include "kxpanel/trend/model/trend_legend.h"
#include "kxpanel/trend/plot/trend_plot.h"

namespace kxpanel
{

/// Saves a plot as it is seen, with its legend above, as PNG of twice the resolution or as SVG,
/// which the name's suffix tells; a file that is there is replaced as a whole.
/// @param caption one line at the foot: where the cursors are
/// @return false and one line in `*error`
bool saveTrendPicture(const QString& path, TrendPlot* plot, const TrendLegend& legend,
                      const QString& caption, QString* error);

} // namespace kxpanel

#endif
