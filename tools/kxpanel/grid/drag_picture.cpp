#include "kxpanel/grid/drag_picture.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace kxpanel
{

namespace
{

const int MOST_NAMES = 3;
const int WIDEST = 24; // characters

QStringList rowsOf(const QStringList& names, const QFontMetrics& metrics)
{
    QStringList rows;
    for (const QString& name : names.mid(0, MOST_NAMES))
        rows << metrics.elidedText(name, Qt::ElideRight, WIDEST * metrics.averageCharWidth());
    if (names.size() > MOST_NAMES)
        rows << QStringLiteral("+ %1").arg(names.size() - MOST_NAMES);
    return rows;
}

} // namespace

QPixmap dragPicture(const QStringList& names, const QWidget* widget)
{
    const QFontMetrics metrics = widget->fontMetrics();
    const QStringList rows = rowsOf(names, metrics);
    const int margin = metrics.averageCharWidth();
    int width = 0;
    for (const QString& row : rows)
        width = qMax(width, metrics.horizontalAdvance(row));
    const QSize size(width + 2 * margin,
                     static_cast<int>(rows.size()) * metrics.lineSpacing() + margin);
    QPixmap picture(size * widget->devicePixelRatioF());
    picture.setDevicePixelRatio(widget->devicePixelRatioF());
    picture.fill(widget->palette().color(QPalette::Highlight));
    QPainter painter(&picture);
    painter.setFont(widget->font());
    painter.setPen(widget->palette().color(QPalette::HighlightedText));
    painter.drawText(QRect(QPoint(margin, 0), size), Qt::AlignVCenter,
                     rows.join(QLatin1Char('\n')));
    return picture;
}

} // namespace kxpanel
