#ifndef KX_KXPANEL_TREND_TREND_PAGE_H
#define KX_KXPANEL_TREND_TREND_PAGE_H

#include "kxpanel/machine/line_clock.h"
#include "kxpanel/machine/session_times.h"
#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_legend.h"
#include "kxpanel/trend/model/trend_view.h"
#include "kxpanel/trend/trend_actions.h"
#include "kxpanel/trend/trend_files.h"
#include "kxpanel/window/page.h"

#include <QtCore/QTimer>

class QLabel;

namespace kxpanel
{

class TrendLegendView;
class TrendMouse;
class TrendPlot;
class TrendSpanBox;
class TrendValueField;

/// Values over time: what is dragged onto it from the grid is plotted from then on, whether the
/// page is shown or not. It draws 20 times a second at most, and only while it is seen.
class TrendPage : public Page
{
    Q_OBJECT

public:
    explicit TrendPage(const PageContext& context, QWidget* parent = nullptr);

    QString key() const override;
    QJsonObject layout() const override;
    void setLayout(const QJsonObject& layout) override;

    /// Plots values of the watch list.
    void addValues(const QList<int>& numbers);
    /// What can be opened and saved without asking for a name.
    TrendFiles* files() { return &m_files; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void build();
    void connectActions();
    void connectModels();
    void connectMachine(Machine* machine);
    void tick();
    void draw();
    void setCursor(int cursor);
    void moveCursor(int pixels);
    void showState();
    qint64 now() const { return m_clock.now(systemTimes().steady); }
    void followClock();
    void shift(qint64 milliseconds);

    LineClock m_clock;
    TrendView m_view;
    TrendChannels m_channels;
    TrendLegend m_legend;
    TrendPlot* m_plot;
    TrendMouse* m_mouse;
    TrendActions m_actions;
    TrendSpanBox* m_spans;
    TrendLegendView* m_table;
    TrendValueField* m_field;
    QLabel* m_state;
    TrendFiles m_files;
    QTimer m_timer;
    bool m_isStale = true; ///< what is drawn is not what there is
};

} // namespace kxpanel

#endif
