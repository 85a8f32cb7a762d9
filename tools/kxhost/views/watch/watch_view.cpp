#include "kxhost/views/watch/watch_view.h"

namespace kx
{

void WatchView::attach(const Watch* watch)
{
    m_watch = watch;
    connect(watch, &Watch::exchanged, this, &WatchView::showExchange);
    connect(watch, &Watch::linkChanged, this,
            [this](const LinkEvent& event) { showLinkEvent(event, QDateTime::currentDateTime()); });
    connect(watch, &Watch::entriesChanged, this, &WatchView::showEntries);
}

void WatchView::showEntries(const QList<int>& indexes)
{
    const QDateTime time = QDateTime::currentDateTime();
    for (const int index : indexes)
        showEntry(m_watch->list().entries().at(index), time);
}

} // namespace kx
