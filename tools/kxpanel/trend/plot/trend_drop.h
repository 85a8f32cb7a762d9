#ifndef KX_KXPANEL_TREND_PLOT_TREND_DROP_H
#define KX_KXPANEL_TREND_PLOT_TREND_DROP_H

#include <QtCore/QList>

class QDropEvent;
class QMimeData;

namespace kxpanel
{

/// Accepts a drag if it brings values of this program, as copies: numbers of another program's are
/// other values, and the list keeps what is dragged from it.
bool takeDrag(QDropEvent* event);

/// The numbers that were dragged from the grid.
QList<int> draggedValues(const QMimeData& data);

} // namespace kxpanel

#endif
