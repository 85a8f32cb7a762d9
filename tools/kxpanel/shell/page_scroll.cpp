#include "kxpanel/shell/page_scroll.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

namespace kxpanel
{

PageScroll::PageScroll(QWidget* page, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the page has it
    setWidget(page);
    connect(qApp, &QApplication::focusChanged, this, &PageScroll::showFocus);
}

/// What has the keyboard loses it when QWidget's destructor hides it.
PageScroll::~PageScroll()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void PageScroll::fit()
{
    const QSize least = widget()->minimumSizeHint();
    QSize room = maximumViewportSize();
    const bool isTooHigh = least.height() > room.height();
    if (isTooHigh)
        room.rwidth() -= verticalScrollBar()->sizeHint().width();
    if (least.width() > room.width())
        room.rheight() -= horizontalScrollBar()->sizeHint().height();
    if (!isTooHigh && least.height() > room.height()) // for the bar below it
        room.rwidth() -= verticalScrollBar()->sizeHint().width();
    widget()->resize(room.expandedTo(least));
}

/// The area itself shows what Tab goes to from within it alone.
void PageScroll::showFocus(const QWidget*, QWidget* now)
{
    if (now && isAncestorOf(now) && now->visibleRegion().isEmpty())
        ensureWidgetVisible(now);
}

bool PageScroll::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest && widget())
        fit();
    return QScrollArea::event(event);
}

bool PageScroll::eventFilter(QObject* watched, QEvent* event)
{
    const bool isTaken = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        fit();
    return isTaken;
}

void PageScroll::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    fit();
}

} // namespace kxpanel
