// What a person writes from the page.

#include "kxpanel/grid/edit/write_bar.h"
#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"

namespace kxpanel
{

namespace
{

QString failureText(const ValueWrite& write)
{
    const QString text =
        write.mayBeDone ? WatchPage::tr("%1 = %2 not confirmed: %3; the controller may have it")
                        : WatchPage::tr("%1 = %2 not written: %3");
    return text.arg(write.name, write.text, write.reason);
}

} // namespace

void WatchPage::editCurrent()
{
    const QModelIndex index = m_table->currentIndex();
    if (!index.isValid())
        return;
    if (index.flags() & Qt::ItemIsEditable) {
        m_table->edit(index);
        return;
    }
    const WatchedValue* const value = m_model->valueAt(m_filter->mapToSource(index).row());
    say(value && index.column() == WatchModel::Value
            ? ValueWriter::readOnlyReason(value->tag)
            : tr("%1 cannot be edited")
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
    if (values.isEmpty())
        return;
    m_table->select({values.first().number}); // with Ctrl held, another way would deselect it
    editCurrent();
}

/// The row that is seen to be meant, whichever the current one is.
void WatchPage::switchSelected()
{
    const QList<int> numbers = m_table->selectedNumbers();
    if (numbers.size() > 1)
        writeSelected();
    else if (!numbers.isEmpty())
        switchBit(m_table->cellOf(numbers.first()));
}

void WatchPage::switchClicked(const QModelIndex& index)
{
    if (m_table->hasJustMoved(index))
        say(tr("The rows have just moved; press the switch again"), true);
    else
        switchBit(index);
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
    if (!m_model->isOnline()
        || !isKnownNow(m_context.tags->reading(value->number), m_writer.writeOf(value->number)))
        return say(tr("The value of %1 is not known now; type 0 or 1 to write it")
                       .arg(TagList::shownName(*value)),
                   true);
    const QModelIndex cell = m_model->index(row, WatchModel::Value);
    const bool isOn = cell.data().toString() == QLatin1String("1");
    m_model->setData(cell, isOn ? QStringLiteral("0") : QStringLiteral("1"));
}

/// What was read over a line that is closed or lost may be otherwise now.
void WatchPage::onLineChanged(const LineStatus& status)
{
    if (status.state == LineState::Closed || status.state == LineState::Opening)
        followClock();
    m_model->setOnline(status.state == LineState::Open);
}

void WatchPage::onWriteEnded(const ValueWrite& write)
{
    if (write.phase == ValueWrite::Confirmed)
        say(m_writer.waiting() == 0
                ? tr("%1 = %2 written").arg(write.name, write.text)
                : tr("%1 = %2 written, %n to go; Esc calls them off", nullptr, m_writer.waiting())
                      .arg(write.name, write.text),
            false);
    else
        say(failureText(write), true);
}

/// Of several, the last message would hide what went wrong before.
void WatchPage::onWritesEnded(int written, const QList<ValueWrite>& failed)
{
    const int all = written + static_cast<int>(failed.size());
    if (all < 2)
        return;
    QStringList faults;
    for (const ValueWrite& write : failed)
        faults << failureText(write);
    showFaults(faults);
    if (failed.isEmpty())
        say(tr("%n values written", nullptr, all), false);
    else
        say(tr("%1 of %n values not confirmed", nullptr, all).arg(failed.size()), true);
}

} // namespace kxpanel
