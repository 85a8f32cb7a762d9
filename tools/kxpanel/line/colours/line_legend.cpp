#include "kxpanel/line/colours/line_legend.h"

#include "kxpanel/line/colours/line_colours.h"

#include <QtGui/QPainter>

namespace kxpanel
{

LineLegend::LineLegend(Picture picture, QWidget* parent) : QWidget(parent), m_picture(picture)
{
    if (picture == Plan)
        m_texts = QStringList({tr("asked for"), tr("read along")});
    else
        m_texts = QStringList(
            {tr("sent"), tr("waited"), tr("received"), tr("late"), tr("repeated"), tr("failed")});
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setAccessibleName(m_texts.join(QStringLiteral(", ")));
}

QSize LineLegend::sizeHint() const
{
    const int row = fontMetrics().height();
    int width = 0;
    for (const QString& text : m_texts)
        width += fontMetrics().horizontalAdvance(text) + 3 * row;
    return {width, row * 3 / 2};
}

QSize LineLegend::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 10, sizeHint().height()};
}

void LineLegend::paintEvent(QPaintEvent*)
{
    const LineColours colours = lineColours(palette());
    const QList<QBrush> fillings =
        m_picture == Plan ? QList<QBrush>({colours.asked, colours.bridged})
                          : QList<QBrush>({colours.sent, colours.waited, colours.received});
    const LineMark marks[] = {LineMark::Late, LineMark::Repeated, LineMark::Failed};
    QPainter painter(this);
    const double row = fontMetrics().height();
    double left = 0;
    for (int i = 0; i < m_texts.size(); ++i) {
        const QRectF swatch(left, row / 4 + row / 8, row * 1.5, row * 0.75);
        if (i < fillings.size())
            painter.fillRect(swatch, fillings.at(i));
        else
            drawLineMark(&painter, palette(), marks[i - fillings.size()], swatch.center(),
                         row * 0.7);
        left += row * 1.75;
        const double width = fontMetrics().horizontalAdvance(m_texts.at(i));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRectF(left, row / 4, width + 1, row), Qt::AlignLeft, m_texts.at(i));
        left += width + row * 1.25;
    }
}

} // namespace kxpanel
