// How views follow the list: rows go, change places, come, and keep selections and scrolling.

#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/tags/tag_list.h"

#include <QtCore/QSet>

#include <algorithm>

namespace kxpanel
{

namespace
{

const int MOST_RUNS = 100; // of rows that go or come at once

} // namespace

void WatchModel::onValuesChanged()
{
    removeGone();
    reorder();
    insertNew();
    refresh(0, rowCount() - 1);
}

/// In runs from the end, as people select them; of very many views begin anew, since each run
/// takes them as long as all rows.
void WatchModel::removeGone()
{
    if (runsGone() > MOST_RUNS) {
        beginResetModel();
        const auto isGone = [this](int number) { return !m_tags->find(number); };
        m_numbers.erase(std::remove_if(m_numbers.begin(), m_numbers.end(), isGone),
                        m_numbers.end());
        endResetModel();
        return;
    }
    for (int last = rowCount() - 1; last >= 0; --last) {
        if (valueAt(last))
            continue;
        int first = last;
        while (first > 0 && !valueAt(first - 1))
            --first;
        beginRemoveRows(QModelIndex(), first, last);
        m_numbers.remove(first, last - first + 1);
        endRemoveRows();
        last = first;
    }
}

int WatchModel::runsGone() const
{
    int runs = 0;
    for (int row = 0; row < rowCount(); ++row)
        runs += !valueAt(row) && (row == 0 || valueAt(row - 1)) ? 1 : 0;
    return runs;
}

void WatchModel::reorder()
{
    const QSet<int> known(m_numbers.begin(), m_numbers.end());
    QVector<int> numbers;
    QHash<int, int> rows;
    for (const WatchedValue& value : m_tags->values()) {
        if (!known.contains(value.number))
            continue;
        rows.insert(value.number, static_cast<int>(numbers.size()));
        numbers << value.number;
    }
    if (numbers == m_numbers)
        return;
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& index : before)
        after << this->index(rows.value(numberAt(index.row())), index.column());
    m_numbers = numbers;
    changePersistentIndexList(before, after);
    emit layoutChanged();
}

/// Begins anew as removeGone() does: where rows are sorted, each run sorts them all.
void WatchModel::insertNew()
{
    const QList<WatchedValue>& values = m_tags->values();
    if (runsNew() > MOST_RUNS) {
        beginResetModel();
        m_numbers.clear();
        for (const WatchedValue& value : values)
            m_numbers << value.number;
        endResetModel();
        return;
    }
    for (int first = 0; first < values.size(); ++first) {
        if (numberAt(first) == values.at(first).number)
            continue;
        // All up to the next row that is known are new, since the order is the same.
        const int next = numberAt(first);
        int end = first;
        while (end < values.size() && values.at(end).number != next)
            ++end;
        beginInsertRows(QModelIndex(), first, end - 1);
        m_numbers.insert(first, end - first, 0);
        for (int row = first; row < end; ++row)
            m_numbers[row] = values.at(row).number;
        endInsertRows();
        first = end;
    }
}

/// The rows that are known come in the order of the list.
int WatchModel::runsNew() const
{
    int runs = 0;
    int known = 0; // rows that were passed
    bool wasNew = false;
    for (const WatchedValue& value : m_tags->values()) {
        const bool isNew = numberAt(known) != value.number;
        runs += isNew && !wasNew ? 1 : 0;
        known += isNew ? 0 : 1;
        wasNew = isNew;
    }
    return runs;
}

} // namespace kxpanel
