#include "kxpanel/frames/reading_place.h"

#include "kxpanel/frames/frames_model.h"

#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTableView>

namespace kxpanel
{

void ReadingPlace::mark(qint64 selected)
{
    const QScrollBar* bar = m_view->verticalScrollBar();
    const int row = m_model->rowOf(selected);
    if (row >= 0 && isInView(row)) {
        m_place = selected;
        m_rowsFromTop = row - bar->value();
        return;
    }
    if (bar->maximum() == 0)
        return; // so few rows that they are the end and the beginning: what was read before counts
    m_place = bar->value() == bar->maximum() ? END : m_model->placeOf(bar->value());
    m_rowsFromTop = 0;
}

void ReadingPlace::goBack()
{
    m_view->scrollToBottom(); // which lays the rows out, too
    if (m_place != END)
        m_view->verticalScrollBar()->setValue(m_model->rowFrom(m_place) - m_rowsFromTop);
}

bool ReadingPlace::isInView(int row) const
{
    const QRect cell = m_view->visualRect(m_model->index(row, 0));
    return m_view->viewport()->rect().intersects(cell);
}

} // namespace kxpanel
