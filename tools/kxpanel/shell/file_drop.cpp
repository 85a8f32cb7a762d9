#include "kxpanel/shell/file_drop.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace kxpanel
{

namespace
{

/// Empty unless it is one file of this computer.
QString fileOf(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

FileDrop::FileDrop(QWidget* window) : QObject(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* window, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        take(static_cast<QDropEvent*>(event));
        return true;
    default:
        return QObject::eventFilter(window, event);
    }
}

void FileDrop::take(QDropEvent* event)
{
    const QString path = fileOf(event->mimeData());
    const bool isAsked = QApplication::activeModalWidget() != nullptr; // something about a file
    if (path.isEmpty() || isAsked)
        return event->ignore();
    event->setDropAction(Qt::CopyAction); // who gives it keeps it
    event->accept();
    if (event->type() == QEvent::Drop)
        QMetaObject::invokeMethod(
            this, [this, path] { emit dropped(path); }, Qt::QueuedConnection);
}

} // namespace kxpanel
