/// Values that are dragged over a window, told to it as the platform tells it: which widget gets to
/// know is the window's matter. The platform without a display runs no drags itself.
#ifndef KX_TESTS_TOOLS_KXPANEL_VALUE_DRAGS_H
#define KX_TESTS_TOOLS_KXPANEL_VALUE_DRAGS_H

#include "kxpanel/tags/tag_list.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <memory>

namespace kxpanel
{

/// As the grid makes it.
inline QMimeData* valuesData(const QList<int>& numbers)
{
    auto* const data = new QMimeData;
    QByteArray lines;
    for (const int number : numbers)
        lines += QByteArray::number(number) + '\n';
    data->setData(QLatin1String(VALUES_MIME_TYPE), lines);
    data->setData(QLatin1String(PROCESS_MIME_TYPE),
                  QByteArray::number(QCoreApplication::applicationPid()));
    return data;
}

class ValueDrag
{
public:
    /// @param window any widget of it
    /// @param data becomes its own
    /// @param actions that are possible
    ValueDrag(QWidget* window, QMimeData* data, Qt::DropActions actions = Qt::CopyAction)
        : m_window(window->window()), m_data(data), m_actions(actions)
    {
    }

    void moveTo(QWidget* widget, const QPoint& place)
    {
        m_place = widget->mapTo(m_window, place);
        if (!m_isOver) {
            QDragEnterEvent enter(m_place, m_actions, m_data.get(), Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(m_window->windowHandle(), &enter);
            m_isOver = true;
            m_isAccepted = enter.isAccepted();
        }
        QDragMoveEvent move(m_place, m_actions, m_data.get(), Qt::LeftButton, Qt::NoModifier);
        move.setAccepted(m_isAccepted); // until somebody says otherwise
        QCoreApplication::sendEvent(m_window->windowHandle(), &move);
        m_isAccepted = move.isAccepted();
    }
    void moveTo(QWidget* widget) { moveTo(widget, widget->rect().center()); }

    /// Lets go, which tells nobody where nobody accepts.
    /// @return what was done with the values
    Qt::DropAction drop()
    {
        if (!m_isAccepted)
            return Qt::IgnoreAction;
        QDropEvent event(m_place, m_actions, m_data.get(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window->windowHandle(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

private:
    QWidget* m_window;
    std::unique_ptr<QMimeData> m_data;
    Qt::DropActions m_actions;
    QPoint m_place;
    bool m_isOver = false;
    bool m_isAccepted = false;
};

} // namespace kxpanel

#endif
