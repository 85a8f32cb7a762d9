#ifndef KX_KXPANEL_HEALTH_HEALTH_PAGE_H
#define KX_KXPANEL_HEALTH_HEALTH_PAGE_H

#include "kxpanel/health/fault_count.h"
#include "kxpanel/window/page.h"

#include <QtCore/QTimer>

class QLabel;
class QTableView;

namespace kxpanel
{

class HealthModel;
class HistogramView;

/// How well each station answers, and what was thrown away, since the counts began.
class HealthPage : public Page
{
    Q_OBJECT

public:
    explicit HealthPage(const PageContext& context, QWidget* parent = nullptr);

    QString key() const override { return QStringLiteral("health"); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeTable();
    void onExchanged(const QVector<Exchange>& exchanges);
    void onCounted(const kx::WatchSummary& summary);
    void onLineChanged(const LineStatus& status);
    void reset();
    void selectFirst();
    void showTimes();
    void showFaults();

    HealthModel* m_model;
    QTableView* m_table = nullptr;
    HistogramView* m_histogram;
    QLabel* m_class;
    QLabel* m_faults;
    QLabel* m_since;
    QTimer m_refresh; ///< shows the times of what came, now and then
    FaultCount m_count;
};

} // namespace kxpanel

#endif
