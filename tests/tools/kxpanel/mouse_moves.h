/// The mouse over a widget, without the system's cursor: at once, and with buttons held down.
#ifndef KX_TESTS_TOOLS_KXPANEL_MOUSE_MOVES_H
#define KX_TESTS_TOOLS_KXPANEL_MOUSE_MOVES_H

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QWidget>

namespace kxpanel
{

inline void moveMouse(QWidget* widget, const QPoint& to, Qt::MouseButtons held = Qt::NoButton)
{
    QMouseEvent event(QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace kxpanel

#endif
