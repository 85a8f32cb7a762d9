#ifndef KX_KXPANEL_LINE_PLAN_PLAN_PICTURE_H
#define KX_KXPANEL_LINE_PLAN_PLAN_PICTURE_H

#include "kxpanel/line/limit/request_cost.h"
#include "kxpanel/line/plan/plan_rows.h"

#include <QtWidgets/QWidget>

namespace kxpanel
{

/// The requests of a plan as bars over the addresses, a row for each type of a station: what is
/// asked for and what is read along. Addresses that no request reads are left out. It is as high
/// as its rows and stands in a scroll area.
class PlanPicture : public QWidget
{
    Q_OBJECT

public:
    explicit PlanPicture(QWidget* parent = nullptr);

    /// @param cost for the times that are told
    void setPlan(const QList<kx::PolledRange>& polls, const kx::WatchedRanges& watched,
                 const RequestCost& cost);

    /// Of all bars by rising row and address, -1: none
    int selected() const { return m_selected; }
    int bars() const { return static_cast<int>(m_places.size()); }
    /// Where a bar is drawn.
    QRectF barRect(int index) const { return barRect(index, measures()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// What the mouse points at, or else what is selected; empty: neither.
    void told(const QString& words);
    void selectedAt(const QPoint& place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Place {
        int row;
        int bar;
        double before; ///< width of the bars before it in its row
    };

    const PlanBar& barOf(const Place& place) const
    {
        return m_rows.at(place.row).bars.at(place.bar);
    }
    /// In pixels. Texts are measured for it, which is dear for each of thousands of bars.
    struct Measures {
        double height; ///< of a bar
        double labels; ///< width
        double gap;
        double scale; ///< width of a register
    };

    int rowHeight() const;
    double labelWidth() const;
    Measures measures() const;
    QRectF barRect(int index, const Measures& measures) const;
    int barAt(const QPointF& point) const;
    void tell(int index);
    void select(int index);
    void paintBar(QPainter* painter, int index, const QRectF& whole) const;
    /// Of the first and the last of each request, where there is room.
    void paintAddresses(QPainter* painter, int row, const Measures& measures) const;
    /// The first bar of a row or of one behind it.
    int firstBarOf(int row) const;

    QVector<PlanRow> m_rows;
    QVector<Place> m_places; ///< of each bar
    double m_widest = 0;     ///< of the rows, without gaps
    int m_mostBars = 0;      ///< of a row
    RequestCost m_cost;
    int m_selected = -1;
};

} // namespace kxpanel

#endif
