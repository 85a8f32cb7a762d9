#include "kxpanel/trend/trend_span_box.h"

#include "kxpanel/trend/model/trend_text.h"

namespace kxpanel
{

namespace
{

const qint64 SECOND = 1000; // milliseconds
const qint64 MINUTE = 60 * SECOND;
const qint64 HOUR = 60 * MINUTE;
const qint64 SPANS[] = {10 * SECOND, MINUTE, 5 * MINUTE, 15 * MINUTE, HOUR, 4 * HOUR, 24 * HOUR};

} // namespace

TrendSpanBox::TrendSpanBox(TrendView* view, QWidget* parent) : QComboBox(parent), m_view(view)
{
    for (const qint64 span : SPANS)
        addItem(spanText(span), span);
    setToolTip(tr("Time that the window shows"));
    setAccessibleName(toolTip());
    setMinimumContentsLength(12);
    connect(this, qOverload<int>(&QComboBox::activated), this,
            [this](int row) { m_view->setSpan(itemData(row).toLongLong()); });
    connect(m_view, &TrendView::changed, this, &TrendSpanBox::showSpan);
    showSpan();
}

/// One that cannot be chosen stands there as a text alone.
void TrendSpanBox::showSpan()
{
    if (m_shown == m_view->span())
        return;
    m_shown = m_view->span();
    setCurrentIndex(findData(m_shown));
    setPlaceholderText(spanText(m_shown));
    emit spanChanged();
}

} // namespace kxpanel
