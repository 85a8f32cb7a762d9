#ifndef KX_KXPANEL_LINE_CYCLE_CYCLE_PICTURE_H
#define KX_KXPANEL_LINE_CYCLE_CYCLE_PICTURE_H

#include "kxpanel/line/cycle/line_record.h"
#include "kxpanel/line/cycle/time_axis.h"

#include <QtWidgets/QWidget>

namespace kxpanel
{

/// The exchanges of the line on a time axis: what was sent, waited for and received, and what went
/// wrong. It shows the latest until it is moved, zooms by wheel and keys, and tells in words what
/// the mouse points at or what is selected.
class CyclePicture : public QWidget
{
    Q_OBJECT

public:
    /// @param record stays the caller's and outlives the picture
    explicit CyclePicture(const LineRecord* record, QWidget* parent = nullptr);

    /// Something was added to the record, or it was cleared.
    void onRecordChanged();

    bool isLive() const { return m_isLive; }
    /// Shows the latest, and what comes.
    void setLive(bool live);
    /// Shows about so many of the latest cycles, as far as they are known.
    void showCycles(int cycles);
    void zoom(double factor);

    /// A place of the record, -1: none
    qint64 selected() const { return m_selected; }
    const TimeAxis& axis() const { return m_axis; }
    LineShares shares() const { return m_record->shares(m_axis.from(), m_axis.to()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void liveChanged(bool live);
    /// What the mouse points at, or else what is selected; empty: neither.
    void told(const QString& words);
    /// What is seen is another.
    void shown();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// @return it is one of the picture's keys
    bool moveBy(int key);
    void selectNext(int step);
    void pan(double pixels);
    void select(qint64 place);
    void bringIntoView(qint64 place);
    void tell(qint64 place);
    void changeView();

    const LineRecord* m_record;
    TimeAxis m_axis;
    qint64 m_selected = -1;
    bool m_isLive = true;
    bool m_isFitted = false; ///< to cycles, or the person chose
    double m_pressedAt = -1; ///< where the mouse went down; -1: it is up
    double m_draggedTo = 0;
    bool m_isDragged = false;
};

} // namespace kxpanel

#endif
