// What a person writes from the page.

#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"

namespace kxpanel
{

void WatchPage::editCurrent()
{
    const QModelIndex index = m_table->currentIndex();
    if (!index.isValid())
        return;
    if (index.flags() & Qt::ItemIsEditable)
        m_table->edit(index);
    else
        say(tr("%1 cannot be edited")
                .arg(m_model->headerData(index.column(), Qt::Horizontal).toString()),
            true);
}

void WatchPage::writeSelected()
{
    QList<WatchedValue> values;
    for (const int number : m_table->selectedNumbers())
        values << *m_context.tags->find(number);
    if (values.size() > 1) {
        m_writeBar->ask(values);
        return;
    }
    const QModelIndex current = m_table->currentIndex();
    if (!current.isValid())
        return;
    m_table->setCurrentIndex(current.siblingAtColumn(WatchModel::Value));
    editCurrent();
}

void WatchPage::switchSelected()
{
    if (m_table->selectedNumbers().size() > 1)
        writeSelected();
    else if (m_table->currentIndex().isValid())
        switchBit(m_table->currentIndex());
}

/// What is not known now is not switched: nobody could tell what would be written.
void WatchPage::switchBit(const QModelIndex& index)
{
    const int row = m_filter->mapToSource(index).row();
    const WatchedValue* const value = m_model->valueAt(row);
    if (!value || !isSwitch(value->tag))
        return;
    const QString reason = ValueWriter::readOnlyReason(value->tag);
    if (!reason.isEmpty())
        return say(reason, true);
    if (!isKnownNow(m_context.tags->reading(value->number), m_writer.writeOf(value->number)))
        return say(tr("The value of %1 is not known now; type 0 or 1 to write it")
                       .arg(TagList::shownName(*value)),
                   true);
    const QModelIndex cell = m_model->index(row, WatchModel::Value);
    const bool isOn = cell.data().toString() == QLatin1String("1");
    m_model->setData(cell, isOn ? QStringLiteral("0") : QStringLiteral("1"));
}

} // namespace kxpanel
