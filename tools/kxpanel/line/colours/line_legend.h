#ifndef KX_KXPANEL_LINE_COLOURS_LINE_LEGEND_H
#define KX_KXPANEL_LINE_COLOURS_LINE_LEGEND_H

#include <QtWidgets/QWidget>

namespace kxpanel
{

/// What fillings and marks of a picture mean, in one row.
class LineLegend : public QWidget
{
    Q_OBJECT

public:
    enum Picture { Cycle, Plan };

    explicit LineLegend(Picture picture, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture m_picture;
    QStringList m_texts; ///< of the fillings, then of the marks
};

} // namespace kxpanel

#endif
