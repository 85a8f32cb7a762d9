#include "kxpanel/tables/fill_column.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

namespace kxpanel
{

namespace
{

const int MOST_TRIES = 3;

} // namespace

FillColumn::FillColumn(QTableView* table, int column, int least)
    : QObject(table), m_table(table), m_column(column), m_least(least)
{
    table->viewport()->installEventFilter(this);
    connect(table->horizontalHeader(), &QHeaderView::sectionResized, this, &FillColumn::fit);
    fit();
}

void FillColumn::fit()
{
    if (m_isFitting)
        return;
    m_isFitting = true;
    QHeaderView* const header = m_table->horizontalHeader();
    header->setSectionResizeMode(m_column, QHeaderView::Fixed); // by hand it would spring back
    int room = 0;
    for (int tries = 0; tries < MOST_TRIES && room != m_table->viewport()->width(); ++tries) {
        room = m_table->viewport()->width(); // scroll bars come and go with what fits
        const int others = header->length() - header->sectionSize(m_column);
        header->resizeSection(m_column, qMax(room - others, m_least));
    }
    m_isFitting = false;
}

bool FillColumn::eventFilter(QObject* watched, QEvent* event)
{
    // A viewport that is not shown yet is resized without an event.
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        fit();
    return QObject::eventFilter(watched, event);
}

} // namespace kxpanel
