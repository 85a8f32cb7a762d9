#include "kxpanel/line/colours/line_colours.h"

#include "kxpanel/exchanges/exchange_verdict.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace kxpanel
{

LineColours lineColours(const QPalette& palette)
{
    const bool dark = isDark(palette);
    const QColor sent = dark ? QColor(0x64, 0xB5, 0xF6) : QColor(0x15, 0x65, 0xC0);
    const QColor waited = dark ? QColor(0xBD, 0xBD, 0xBD) : QColor(0x75, 0x75, 0x75);
    const QColor received = dark ? QColor(0x81, 0xC7, 0x84) : QColor(0x2E, 0x7D, 0x32);
    const QColor bridged = dark ? QColor(0xFF, 0xB7, 0x4D) : QColor(0xEF, 0x8A, 0x17);
    return {QBrush(sent), QBrush(waited, Qt::Dense6Pattern), QBrush(received, Qt::Dense2Pattern),
            QBrush(sent), QBrush(bridged, Qt::Dense3Pattern)};
}

void drawLineMark(QPainter* painter, const QPalette& palette, LineMark mark, const QPointF& centre,
                  double size)
{
    const QColor colour = verdictColour(
        mark == LineMark::Failed ? ExchangeVerdict::Failed : ExchangeVerdict::Repeated, palette);
    const double half = size / 2;
    const auto at = [&centre, half](double x, double y) {
        return QPointF(centre.x() + x * half, centre.y() + y * half);
    };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(colour, std::max(size / 6, 1.0)));
    painter->setBrush(mark == LineMark::Late ? QBrush(Qt::NoBrush) : QBrush(colour));
    switch (mark) {
    case LineMark::Late:
        painter->drawPolygon(QPolygonF({at(0, -1), at(1, 1), at(-1, 1)}));
        break;
    case LineMark::Repeated:
        painter->drawPolygon(QPolygonF({at(0, -1), at(1, 0), at(0, 1), at(-1, 0)}));
        break;
    case LineMark::Failed:
        painter->drawLine(at(-1, -1), at(1, 1));
        painter->drawLine(at(-1, 1), at(1, -1));
        break;
    }
    painter->restore();
}

} // namespace kxpanel
