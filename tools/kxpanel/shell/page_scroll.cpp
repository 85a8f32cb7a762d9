#include "kxpanel/shell/page_scroll.h"

#include <QtWidgets/QApplication>

namespace kxpanel
{

PageScroll::PageScroll(QWidget* page, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the page has it
    setWidgetResizable(true);
    setWidget(page);
    connect(qApp, &QApplication::focusChanged, this, &PageScroll::showFocus);
}

/// The area itself shows what Tab goes to from within it alone.
void PageScroll::showFocus(const QWidget*, QWidget* now)
{
    if (now && isAncestorOf(now) && now->visibleRegion().isEmpty())
        ensureWidgetVisible(now);
}

} // namespace kxpanel
