/// Colours that stay apart for people who see few, on light ground and on dark.
#ifndef KX_KXPANEL_TREND_MODEL_TREND_COLOURS_H
#define KX_KXPANEL_TREND_MODEL_TREND_COLOURS_H

#include <QtGui/QColor>
#include <QtGui/QPainter>
#include <QtGui/QPen>

namespace kxpanel
{

/// Looks that differ: as many colours, each in as many kinds of lines.
const int TREND_LOOKS = 24;

bool isDark(const QColor& ground);

/// @param look 0 or more; from TREND_LOOKS on they come again
QColor trendColour(int look, const QColor& ground);

/// A line in that colour, solid for the first six.
QPen trendPen(int look, const QColor& ground);

/// A piece of that line, as a legend shows it.
void drawTrendSample(int look, const QColor& ground, const QRect& box, QPainter* painter);

} // namespace kxpanel

#endif
