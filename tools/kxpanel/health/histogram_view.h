#ifndef KX_KXPANEL_HEALTH_HISTOGRAM_VIEW_H
#define KX_KXPANEL_HEALTH_HISTOGRAM_VIEW_H

#include "kxpanel/exchanges/reply_times.h"

#include <QtWidgets/QWidget>

namespace kxpanel
{

/// Reply times as bars over a logarithmic axis, with the median and the time of 99 in 100 marked.
/// A class is selected by mouse or the left and right keys, and told in words.
class HistogramView : public QWidget
{
    Q_OBJECT

public:
    explicit HistogramView(QWidget* parent = nullptr);

    void setTimes(const ReplyTimes& times, const QString& title);

    /// "4.6 to 5.1 ms: 12 replies, 8.0 %"; empty for a class that does not exist.
    QString classWords(int index) const;
    /// Of the axis, in microseconds: as many as have room beside each other, decades first.
    QVector<qint64> labelledTimes() const;
    /// -1: none
    int selected() const { return m_selected; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void classSelected(const QString& words);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRectF plot() const;
    /// Of the axis: 1, 2 and 5 times each power of ten.
    QVector<qint64> ticks() const;
    double xOf(qint64 time) const;
    /// Where the bar of a class ends, which is never too narrow to be seen and pointed at.
    double endOf(int index) const;
    void select(int index);
    void paintBars(QPainter* painter) const;
    void paintAxis(QPainter* painter) const;
    void paintMark(QPainter* painter, qint64 time, const QString& text, int row) const;

    ReplyTimes m_times;
    QString m_title;
    int m_selected = -1;
    qint64 m_begin = 1; ///< of the axis, microseconds
    qint64 m_end = 10;
};

} // namespace kxpanel

#endif
