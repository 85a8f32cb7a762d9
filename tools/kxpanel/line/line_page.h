#ifndef KX_KXPANEL_LINE_LINE_PAGE_H
#define KX_KXPANEL_LINE_LINE_PAGE_H

#include "kxpanel/line/cycle/line_record.h"
#include "kxpanel/line/cycle/measured_cycle.h"
#include "kxpanel/line/limit/answer_times.h"
#include "kxpanel/line/limit/limit_costs.h"
#include "kxpanel/window/page.h"

#include <QtCore/QTimer>

class QAction;
class QLabel;
class QScrollArea;

namespace kxpanel
{

class CyclePicture;
class LimitPanel;
class PlanPicture;

/// How the line is used: the requests as they ran, what a cycle reads, and how long its requests
/// had best be.
class LinePage : public Page
{
    Q_OBJECT

public:
    explicit LinePage(const PageContext& context, QWidget* parent = nullptr);

    QString key() const override { return QStringLiteral("line"); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeCycle();
    QWidget* makePlan();
    void makeActions();
    void onExchanged(const QVector<Exchange>& exchanges);
    void onLiveChanged(bool live);
    void forgetWaiting();
    void onLineChanged(const LineStatus& status);
    void onCounted();
    bool hasOtherPace() const;
    AnswerPace paceNow() const;
    void onValuesChanged();
    void predict();
    void showPlan();
    void showShares();
    void applyLimits(int maxWords, int maxBits);

    PageContext m_context;
    LineRecord m_record;
    MeasuredCycle m_cycle;
    AnswerTimes m_answers;
    AnswerPace m_pace; ///< of what is predicted
    LimitCosts m_costs;
    /// While paused, what the record has no more room for.
    ExchangeHistory m_waiting{LineRecord::MOST};
    qint64 m_waitingCount = 0;               ///< with those that are forgotten
    kx::LineTiming m_timing;                 ///< of the serial line, be it behind a gateway
    kx::LineTiming m_recordTiming;           ///< of what this side sees of it
    QMap<int, kx::StationRules> m_shortened; ///< as LineStatus::shortened
    qint64 m_replyTimeout = 0;               ///< microseconds; 0: not known
    bool m_isNetwork = false;
    int m_sessions = 0;  ///< of the line, that have begun
    QList<int> m_silent; ///< stations, when it was predicted last
    QString m_line;      ///< its name
    QTimer m_changes;    ///< gathers edits of the tags
    bool m_isPredicted = false;
    CyclePicture* m_picture = nullptr;
    QLabel* m_shares = nullptr;
    QLabel* m_words = nullptr;
    PlanPicture* m_plan = nullptr;
    QScrollArea* m_scroll = nullptr;
    LimitPanel* m_limits = nullptr;
    QAction* m_pause = nullptr;
};

} // namespace kxpanel

#endif
