#include "kxpanel/frames/follow_end.h"

#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTableView>

namespace kxpanel
{

FollowEnd::FollowEnd(QTableView* view) : QObject(view), m_view(view)
{
    const QScrollBar* bar = view->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &FollowEnd::onScrolled);
    connect(bar, &QScrollBar::rangeChanged, this, &FollowEnd::onRangeChanged);
    const QAbstractItemModel* model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &FollowEnd::onInserted);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &FollowEnd::onRemoved);
}

void FollowEnd::onScrolled(int value)
{
    m_isAtEnd = value == m_view->verticalScrollBar()->maximum();
}

void FollowEnd::onRangeChanged()
{
    QScrollBar* bar = m_view->verticalScrollBar();
    m_isAtEnd = m_isAtEnd || bar->value() >= bar->maximum(); // without a scroll when fewer rows fit
    if (m_isAtEnd)
        bar->setValue(bar->maximum());
}

void FollowEnd::onInserted()
{
    if (m_isAtEnd)
        m_view->scrollToBottom();
}

void FollowEnd::onRemoved(const QModelIndex&, int first, int last)
{
    QScrollBar* bar = m_view->verticalScrollBar();
    if (bar->value() != bar->maximum())
        bar->setValue(bar->value() - (last - first + 1));
}

} // namespace kxpanel
