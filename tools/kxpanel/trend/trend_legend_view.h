#ifndef KX_KXPANEL_TREND_TREND_LEGEND_VIEW_H
#define KX_KXPANEL_TREND_TREND_LEGEND_VIEW_H

#include "kxpanel/trend/model/trend_legend.h"

#include <QtWidgets/QTableView>

namespace kxpanel
{

/// The legend below a plot: rows are selected to be removed or given another axis.
class TrendLegendView : public QTableView
{
    Q_OBJECT

public:
    /// @param legend outlives it
    explicit TrendLegendView(TrendLegend* legend, QWidget* parent = nullptr);

    /// Numbers of the selected channels.
    QList<int> selected() const;

    /// High enough for five values.
    QSize sizeHint() const override;

signals:
    void axisChosen(const QList<int>& numbers, kxpanel::TrendAxis axis);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    TrendLegend* m_legend;
};

} // namespace kxpanel

#endif
