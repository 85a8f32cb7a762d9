#include "kxpanel/trend/model/trend_colours.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

struct Look {
    QRgb onLight;
    QRgb onDark;
};

// Neighbours differ in lightness, too.
const Look LOOKS[] = {
    {0x0072B2, 0x56B4E9}, // blue
    {0xC24E00, 0xFF8A4C}, // vermilion
    {0x00795A, 0x2BC79A}, // green
    {0xA3427F, 0xE39AC7}, // purple
    {0x8A6100, 0xE6B422}, // ochre
    {0x303030, 0xF0F0F0}, // black, white
};
const int COLOURS = 6;

const Qt::PenStyle STYLES[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
const int STYLE_COUNT = 4;
static_assert(COLOURS * STYLE_COUNT == TREND_LOOKS, "each colour in each kind");

} // namespace

bool isDark(const QColor& ground)
{
    return ground.lightness() < 128;
}

QColor trendColour(int look, const QColor& ground)
{
    const Look& row = LOOKS[look % COLOURS];
    return QColor(isDark(ground) ? row.onDark : row.onLight);
}

QPen trendPen(int look, const QColor& ground)
{
    QPen pen(trendColour(look, ground));
    pen.setStyle(STYLES[look / COLOURS % STYLE_COUNT]);
    pen.setWidth(1); // wider ones are slow where a curve fills the plot
    return pen;
}

void drawTrendSample(int look, const QColor& ground, const QRect& box, QPainter* painter)
{
    QPen pen = trendPen(look, ground);
    const int width = std::max(2, box.height() / 6);
    pen.setWidth(width);
    pen.setCapStyle(Qt::FlatCap);
    // Two dashes and the gap between them fill the box.
    if (pen.style() == Qt::DashLine)
        pen.setDashPattern({box.width() / (2.5 * width), box.width() / (5.0 * width)});
    painter->save();
    painter->setPen(pen);
    painter->drawLine(box.left(), box.center().y(), box.right() + 1, box.center().y());
    painter->restore();
}

} // namespace kxpanel
