#include "kxpanel/trend/plot/trend_drop.h"

#include "kxpanel/tags/tag_list.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>

namespace kxpanel
{

bool takeDrag(QDropEvent* event)
{
    const QMimeData& data = *event->mimeData();
    const bool isMeant = data.hasFormat(QLatin1String(VALUES_MIME_TYPE))
                         && data.data(QLatin1String(PROCESS_MIME_TYPE)).toLongLong()
                                == QCoreApplication::applicationPid()
                         && event->possibleActions().testFlag(Qt::CopyAction);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(isMeant);
    return isMeant;
}

QList<int> draggedValues(const QMimeData& data)
{
    QList<int> numbers;
    for (const QByteArray& line : data.data(QLatin1String(VALUES_MIME_TYPE)).split('\n')) {
        const int number = line.trimmed().toInt();
        if (number > 0)
            numbers << number;
    }
    return numbers;
}

} // namespace kxpanel
