#ifndef KX_KXPANEL_TREND_TREND_SPAN_BOX_H
#define KX_KXPANEL_TREND_TREND_SPAN_BOX_H

#include "kxpanel/trend/model/trend_view.h"

#include <QtWidgets/QComboBox>

namespace kxpanel
{

/// How much time a trend shows: some spans to choose from, and whatever was zoomed to.
class TrendSpanBox : public QComboBox
{
    Q_OBJECT

public:
    /// @param view outlives it
    explicit TrendSpanBox(TrendView* view, QWidget* parent = nullptr);

signals:
    /// The view shows another span.
    void spanChanged();

private:
    void showSpan();

    TrendView* m_view;
    qint64 m_shown = 0;
};

} // namespace kxpanel

#endif
