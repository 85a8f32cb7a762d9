#include "kxpanel/line/plan/plan_picture.h"

#include "kxpanel/line/colours/line_colours.h"
#include "kxpanel/line/plan/plan_labels.h"
#include "registers/register_types.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <algorithm>

namespace kxpanel
{

namespace
{

bool isSameRequest(const kx::PlannedRequest& one, const kx::PlannedRequest& other)
{
    return one.station == other.station && one.type == other.type && one.address == other.address
           && one.count == other.count;
}

} // namespace

PlanPicture::PlanPicture(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Requests of a cycle over the addresses"));
    setToolTip(
        tr("What each request of a cycle reads, a row for each type of a station; as wide as "
           "its reply is long. Left and Right select a request."));
}

void PlanPicture::setPlan(const QList<kx::PolledRange>& polls, const kx::WatchedRanges& watched,
                          const RequestCost& cost)
{
    const kx::PlannedRequest before =
        m_selected >= 0 ? barOf(m_places.at(m_selected)).request : kx::PlannedRequest();
    m_rows = planRows(polls, watched);
    m_cost = cost;
    m_places.clear();
    m_widest = 0;
    m_mostBars = 0;
    for (int row = 0; row < m_rows.size(); ++row) {
        double width = 0;
        const QVector<PlanBar>& bars = m_rows.at(row).bars;
        for (int bar = 0; bar < bars.size(); ++bar) {
            m_places << Place{row, bar, width};
            width += widthOf(bars.at(bar).request, bars.at(bar).request.count);
        }
        m_widest = std::max(m_widest, width);
        m_mostBars = std::max(m_mostBars, static_cast<int>(bars.size()));
    }
    if (m_selected >= bars()
        || (m_selected >= 0 && !isSameRequest(barOf(m_places.at(m_selected)).request, before)))
        m_selected = -1;
    tell(m_selected);
    updateGeometry();
    update();
}

int PlanPicture::rowHeight() const
{
    return fontMetrics().height() * 5 / 2;
}

double PlanPicture::labelWidth() const
{
    return fontMetrics().horizontalAdvance(QStringLiteral("0000 32CV "));
}

PlanPicture::Measures PlanPicture::measures() const
{
    Measures measures;
    measures.height = fontMetrics().height();
    measures.labels = labelWidth();
    const double room = width() - measures.labels;
    const double character = fontMetrics().averageCharWidth();
    measures.gap = std::min(character * 0.75, room / 4 / std::max(m_mostBars, 1));
    const double free = room - measures.gap * (m_mostBars + 1);
    measures.scale = m_widest > 0 ? std::clamp(free / m_widest, 0.0, character * 2.0) : 0;
    return measures;
}

QRectF PlanPicture::barRect(int index, const Measures& measures) const
{
    const Place& place = m_places.at(index);
    const PlanBar& bar = barOf(place);
    const double left =
        measures.labels + measures.gap * (place.bar + 1) + place.before * measures.scale;
    const double width = std::max(widthOf(bar.request, bar.request.count) * measures.scale, 1.0);
    const double top = place.row * double(rowHeight()) + measures.height / 4;
    return {left, top, width, measures.height};
}

QSize PlanPicture::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40,
            rowHeight() * std::max(static_cast<int>(m_rows.size()), 1)};
}

void PlanPicture::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    if (m_rows.isEmpty()) {
        painter.drawText(rect(), Qt::AlignCenter, tr("Nothing is watched"));
        return;
    }
    const Measures size = measures();
    const int first = std::max(event->rect().top() / rowHeight(), 0);
    const int last = event->rect().bottom() / rowHeight();
    for (int row = first; row <= std::min(last, static_cast<int>(m_rows.size()) - 1); ++row) {
        const QRectF place(0, row * double(rowHeight()), size.labels - size.gap,
                           fontMetrics().height() * 1.5);
        painter.drawText(
            place, Qt::AlignRight | Qt::AlignVCenter,
            QStringLiteral("%1 %2").arg(QString::number(m_rows.at(row).station),
                                        QString::fromLatin1(m_rows.at(row).type->name)));
    }
    const int endBar = firstBarOf(last + 1);
    for (int index = firstBarOf(first); index < endBar; ++index)
        paintBar(&painter, index, barRect(index, size));
    for (int row = first; row <= std::min(last, static_cast<int>(m_rows.size()) - 1); ++row)
        paintAddresses(&painter, row, size);
}

int PlanPicture::firstBarOf(int row) const
{
    const auto found = std::partition_point(m_places.begin(), m_places.end(),
                                            [row](const Place& place) { return place.row < row; });
    return static_cast<int>(found - m_places.begin());
}

void PlanPicture::paintAddresses(QPainter* painter, int row, const Measures& measures) const
{
    const QVector<PlanBar>& bars = m_rows.at(row).bars;
    const int firstBar = firstBarOf(row);
    const int count = static_cast<int>(bars.size());
    QVector<BarPlace> places;
    for (int bar = 0; bar < count; ++bar) {
        const QRectF place = barRect(firstBar + bar, measures);
        places << BarPlace{place.left(), place.right()};
    }
    const QFontMetricsF metrics(font());
    const QVector<PlanLabel> labels =
        planLabels(bars, places, width(),
                   [&metrics](const QString& text) { return metrics.horizontalAdvance(text); });
    painter->setPen(palette().color(QPalette::Text));
    const double top = barRect(firstBar, measures).bottom();
    for (const PlanLabel& label : labels)
        painter->drawText(QRectF(label.left, top, width() - label.left, measures.height),
                          Qt::AlignLeft, label.text);
}

void PlanPicture::paintBar(QPainter* painter, int index, const QRectF& whole) const
{
    const PlanBar& bar = barOf(m_places.at(index));
    const LineColours colours = lineColours(palette());
    const double unit = whole.width() / bar.request.count;
    for (const bool isAsked : {false, true}) { // what is asked for is seen, however narrow
        for (const PlanRun& run : bar.runs) {
            if (run.isAsked != isAsked)
                continue;
            const QRectF part(whole.left() + run.first * unit, whole.top(),
                              std::max(run.count * unit, 1.0), whole.height());
            painter->fillRect(part, isAsked ? colours.asked : colours.bridged);
        }
    }
    if (index != m_selected)
        return;
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(palette().color(QPalette::Text), 2));
    painter->drawRect(whole.adjusted(-1, -1, 1, 1));
}

int PlanPicture::barAt(const QPointF& point) const
{
    const Measures size = measures();
    for (int index = 0; index < m_places.size(); ++index) {
        if (barRect(index, size).contains(point))
            return index;
    }
    return -1;
}

void PlanPicture::tell(int index)
{
    const int shown = index >= 0 ? index : m_selected;
    if (shown < 0) {
        emit told(QString());
        return;
    }
    const PlanBar& bar = barOf(m_places.at(shown));
    emit told(barWords(bar, m_cost(bar.request).duration));
}

void PlanPicture::select(int index)
{
    m_selected = index;
    tell(index);
    update();
    if (index >= 0)
        emit selectedAt(barRect(index).center().toPoint());
}

void PlanPicture::mouseMoveEvent(QMouseEvent* event)
{
    tell(barAt(event->pos()));
}

void PlanPicture::mousePressEvent(QMouseEvent* event)
{
    select(barAt(event->pos()));
}

void PlanPicture::leaveEvent(QEvent*)
{
    tell(m_selected);
}

void PlanPicture::keyPressEvent(QKeyEvent* event)
{
    const int step = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    if (step == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int index = m_selected + step;
    if (index >= 0 && index < bars())
        select(index);
}

} // namespace kxpanel
