#include "kxpanel/line/limit/limit_curve.h"

#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/exchanges/exchange_words.h"
#include "kxpanel/line/limit/limit_costs.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace kxpanel
{

LimitCurve::LimitCurve(const LimitCosts* costs, QWidget* parent) : QWidget(parent), m_costs(costs)
{
    setAccessibleName(tr("Predicted time of a cycle over the longest request"));
    setToolTip(tr("Predicted time of a cycle in milliseconds over the longest request in "
                  "registers. A click chooses a limit."));
    connect(costs, &LimitCosts::advanced, this, [this] { update(); });
}

void LimitCurve::setChosen(int maxWords)
{
    m_chosen = maxWords;
    update();
}

void LimitCurve::setMeasured(qint64 time)
{
    m_measured = time;
    update();
}

QSize LimitCurve::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 45, fontMetrics().height() * 9};
}

QSize LimitCurve::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 6};
}

QRectF LimitCurve::plot() const
{
    const double row = fontMetrics().height();
    const int times = fontMetrics().horizontalAdvance(QStringLiteral("00000.0 ms "));
    return QRectF(rect()).adjusted(times, 1.5 * row, -row, -1.5 * row);
}

double LimitCurve::xOf(int maxWords) const
{
    return plot().left() + plot().width() * (maxWords - 1) / (kx::MOST_REGISTERS_PER_READ - 1);
}

double LimitCurve::yOf(qint64 time) const
{
    // Short requests may take fifty times as long; the differences at the other end count.
    const double low = std::log(static_cast<double>(m_shortest));
    const double high = std::log(static_cast<double>(m_longest));
    const double at = std::log(static_cast<double>(std::max(time, qint64(1))));
    return plot().bottom() - plot().height() * (at - low) / std::max(high - low, 0.01);
}

void LimitCurve::findRange()
{
    m_shortest = m_longest = m_costs->results().first().cost.duration;
    for (const kx::LengthResult& result : m_costs->results()) {
        m_shortest = std::min(m_shortest, result.cost.duration);
        m_longest = std::max(m_longest, result.cost.duration);
    }
    if (m_measured > 0) {
        m_shortest = std::min(m_shortest, m_measured);
        m_longest = std::max(m_longest, m_measured);
    }
    m_shortest = std::max(m_shortest - m_shortest / 10, qint64(1));
}

void LimitCurve::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_costs->results().isEmpty()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect(), Qt::AlignCenter, tr("Nothing is watched"));
        return;
    }
    findRange();
    paintAxis(&painter);
    QPolygonF curve;
    for (const kx::LengthResult& result : m_costs->results())
        curve << QPointF(xOf(result.maxWords), yOf(result.cost.duration));
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawPolyline(curve);
    paintBest(&painter);
    if (m_measured > 0)
        paintMeasured(&painter, curve);
}

void LimitCurve::paintBest(QPainter* painter) const
{
    const double row = fontMetrics().height();
    const QColor text = palette().color(QPalette::Text);
    if (const kx::LengthResult* best = m_costs->of(m_costs->best())) {
        const QPointF centre(xOf(best->maxWords), yOf(best->cost.duration));
        painter->setBrush(palette().color(QPalette::Highlight));
        painter->setPen(text);
        painter->drawEllipse(centre, row / 4, row / 4);
    }
    if (m_chosen > 0) {
        painter->setPen(QPen(text, 1, Qt::DashLine));
        painter->drawLine(QPointF(xOf(m_chosen), plot().top()),
                          QPointF(xOf(m_chosen), plot().bottom()));
    }
}

void LimitCurve::paintMeasured(QPainter* painter, const QPolygonF& curve) const
{
    const double y = yOf(m_measured);
    const QString words = tr("measured %1").arg(timeWords(m_measured));
    painter->setPen(QPen(verdictColour(ExchangeVerdict::Repeated, palette()), 1, Qt::DotLine));
    painter->drawLine(QPointF(plot().left(), y), QPointF(plot().right(), y));
    const QSizeF size(fontMetrics().horizontalAdvance(words), fontMetrics().height());
    painter->drawText(freePlace(size, y, curve), Qt::AlignCenter | Qt::TextDontClip, words);
}

/// Above a line or below it, where the curve does not run; else on the curve.
QRectF LimitCurve::freePlace(const QSizeF& size, double y, const QPolygonF& curve) const
{
    const QRectF area = plot();
    const double room = area.width() - size.width();
    for (const double top : {y - size.height(), y + 1}) {
        for (const double share : {0.5, 0.75, 1.0, 0.25}) {
            const QRectF place(QPointF(area.left() + room * share, top), size);
            bool isFree = area.contains(place);
            for (int i = 1; isFree && i < curve.size(); ++i)
                isFree = !place.intersects(
                    QRectF(curve.at(i - 1), curve.at(i)).normalized().adjusted(-2, -2, 2, 2));
            if (isFree)
                return place;
        }
    }
    return QRectF(QPointF(area.left() + room / 2, y - size.height()), size);
}

void LimitCurve::paintAxis(QPainter* painter) const
{
    const double row = fontMetrics().height();
    const QRectF area = plot();
    painter->setPen(palette().color(QPalette::Text));
    painter->drawLine(area.bottomLeft(), area.bottomRight());
    for (const int words : {1, 25, 50, 75, 100, 125}) {
        const double x = xOf(words);
        painter->drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + row / 4));
        painter->drawText(QRectF(x - 2 * row, area.bottom() + row / 4, 4 * row, row),
                          Qt::AlignHCenter, QString::number(words));
    }
    for (const qint64 time : {m_shortest, m_longest})
        painter->drawText(QRectF(0, yOf(time) - row, area.left() - row / 3, row), Qt::AlignRight,
                          timeWords(time));
    const QRectF heading(area.left(), 0, width() - row / 3 - area.left(), row);
    const QString words = tr("per cycle, by registers of the longest request");
    painter->drawText(
        heading, Qt::AlignRight,
        fontMetrics().elidedText(words, Qt::ElideRight, static_cast<int>(heading.width())));
}

void LimitCurve::mousePressEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const double share = (event->pos().x() - plot().left()) / plot().width();
    const int words = 1 + static_cast<int>(std::lround(share * (kx::MOST_REGISTERS_PER_READ - 1)));
    emit chosen(std::clamp(words, 1, kx::MOST_REGISTERS_PER_READ));
}

void LimitCurve::mouseMoveEvent(QMouseEvent* event)
{
    mousePressEvent(event); // drags what is chosen
}

} // namespace kxpanel
