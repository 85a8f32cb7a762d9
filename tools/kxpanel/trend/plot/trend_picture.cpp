#include "kxpanel/trend/plot/trend_picture.h"

#include "kxpanel/trend/model/trend_colours.h"
#include "panel/files/replaced_file.h"

#include <QtCore/QBuffer>
#include <QtCore/QFileInfo>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgGenerator>

#include <qwt_plot_renderer.h>

namespace kxpanel
{

namespace
{

const int RESOLUTION = 2; // pixels of a picture for one of the screen

/// "Pressure  [bar]  1: 7.4  2: 8.1  2-1: 0.7": the values at the cursors and their difference.
QString rowText(const TrendLegend& legend, int row)
{
    const auto text = [&](int column) { return legend.index(row, column).data().toString(); };
    QStringList parts = {text(TrendLegend::Name)};
    if (!text(TrendLegend::Unit).isEmpty())
        parts << QLatin1Char('[') + text(TrendLegend::Unit) + QLatin1Char(']');
    const QPair<int, const char*> columns[] = {{TrendLegend::First, "1: "},
                                               {TrendLegend::Second, "2: "},
                                               {TrendLegend::Difference, "2-1: "}};
    for (const auto& column : columns) {
        if (!text(column.first).isEmpty())
            parts << QLatin1String(column.second) + text(column.first);
    }
    return parts.join(QLatin1String("  "));
}

QList<int> shownRows(const TrendLegend& legend)
{
    QList<int> rows;
    for (int row = 0; row < legend.rowCount(); ++row) {
        if (legend.index(row, TrendLegend::Name).data(Qt::CheckStateRole) == Qt::Checked)
            rows << row;
    }
    return rows;
}

struct Picture {
    TrendPlot* plot;
    const TrendLegend* legend;
    QString caption;

    int rowHeight() const { return plot->fontMetrics().height() * 5 / 4; }

    QSize size() const
    {
        const int rows = static_cast<int>(shownRows(*legend).size()) + 1;
        return plot->size() + QSize(0, rows * rowHeight());
    }

    void paint(QPainter* painter) const
    {
        const QPalette palette = plot->palette();
        painter->fillRect(QRect(QPoint(), size()), palette.color(QPalette::Window));
        painter->setFont(plot->font());
        QRect row(rowHeight() / 2, 0, plot->width() - rowHeight(), rowHeight());
        for (const int index : shownRows(*legend)) {
            const int look =
                legend->index(index, TrendLegend::Name).data(TrendLegend::LookRole).toInt();
            drawTrendSample(look, palette.color(QPalette::Window),
                            QRect(row.topLeft(), QSize(2 * row.height(), row.height())), painter);
            painter->setPen(palette.color(QPalette::WindowText));
            painter->drawText(row.adjusted(row.height() * 5 / 2, 0, 0, 0), Qt::AlignVCenter,
                              rowText(*legend, index));
            row.translate(0, row.height());
        }
        QwtPlotRenderer().render(plot, painter, QRectF(QPointF(0, row.top()), plot->size()));
        row.moveTop(row.top() + plot->height());
        painter->setPen(palette.color(QPalette::WindowText));
        painter->drawText(row, Qt::AlignVCenter, caption);
    }
};

QByteArray asSvg(const Picture& picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(picture.size());
    generator.setResolution(picture.plot->logicalDpiX()); // else letters would be smaller
    generator.setViewBox(QRect(QPoint(), picture.size()));
    generator.setTitle(picture.plot->accessibleName());
    QPainter painter(&generator);
    picture.paint(&painter);
    painter.end();
    return buffer.data();
}

QByteArray asPng(const Picture& picture)
{
    QImage image(picture.size() * RESOLUTION, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(RESOLUTION, RESOLUTION);
    picture.paint(&painter);
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace

bool saveTrendPicture(const QString& path, TrendPlot* plot, const TrendLegend& legend,
                      const QString& caption, QString* error)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const Picture picture = {plot, &legend, caption};
    if (suffix == QLatin1String("svg"))
        return kx::replaceFile(path, asSvg(picture), error);
    if (suffix == QLatin1String("png"))
        return kx::replaceFile(path, asPng(picture), error);
    *error = TrendPlot::tr("%1: its name must end with .png or .svg").arg(path);
    return false;
}

} // namespace kxpanel
