#ifndef KX_KXPANEL_GRID_DRAG_PICTURE_H
#define KX_KXPANEL_GRID_DRAG_PICTURE_H

#include <QtCore/QStringList>
#include <QtGui/QPixmap>

class QWidget;

namespace kxpanel
{

/// What the mouse takes along: the names of what is dragged, small enough to see where it goes.
/// @param widget from which it is dragged, for its font, colours and resolution
QPixmap dragPicture(const QStringList& names, const QWidget* widget);

} // namespace kxpanel

#endif
