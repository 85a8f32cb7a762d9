#ifndef KX_KXPANEL_LINE_COLOURS_LINE_COLOURS_H
#define KX_KXPANEL_LINE_COLOURS_LINE_COLOURS_H

#include <QtGui/QBrush>

class QPainter;
class QPalette;

namespace kxpanel
{

/// What a stretch of the line is filled with, told apart by its pattern as well as by its colour.
struct LineColours {
    QBrush sent;
    QBrush waited;
    QBrush received;
    QBrush asked;   ///< registers of a plan
    QBrush bridged; ///< the same, read along
};

LineColours lineColours(const QPalette& palette);

enum class LineMark { Late, Repeated, Failed };

/// A hollow triangle, a diamond or a cross.
/// @param size of its height, in the painter's units
void drawLineMark(QPainter* painter, const QPalette& palette, LineMark mark, const QPointF& centre,
                  double size);

} // namespace kxpanel

#endif
