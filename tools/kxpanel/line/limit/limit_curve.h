#ifndef KX_KXPANEL_LINE_LIMIT_LIMIT_CURVE_H
#define KX_KXPANEL_LINE_LIMIT_LIMIT_CURVE_H

#include <QtWidgets/QWidget>

namespace kxpanel
{

class LimitCosts;

/// Predicted time of a cycle over the longest request, with the best limit, the one that is chosen
/// and the time measured. A limit is chosen by a click.
class LimitCurve : public QWidget
{
    Q_OBJECT

public:
    /// @param costs stays the caller's and outlives the curve
    explicit LimitCurve(const LimitCosts* costs, QWidget* parent = nullptr);

    void setChosen(int maxWords);
    /// @param time of a cycle in microseconds; 0: not known
    void setMeasured(qint64 time);

    double xOf(int maxWords) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void chosen(int maxWords);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QRectF plot() const;
    double yOf(qint64 time) const;
    void findRange();
    void paintBest(QPainter* painter) const;
    void paintMeasured(QPainter* painter, const QPolygonF& curve) const;
    QRectF freePlace(const QSizeF& size, double y, const QPolygonF& curve) const;
    void paintAxis(QPainter* painter) const;

    const LimitCosts* m_costs;
    int m_chosen = 0;
    qint64 m_measured = 0;
    qint64 m_shortest = 1; ///< at the bottom of the plot, microseconds
    qint64 m_longest = 2;
};

} // namespace kxpanel

#endif
