// Which rows are selected, also while rows come and go.

#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_table.h"

#include <algorithm>
#include <utility>

namespace kxpanel
{

namespace
{

/// Rows that stand together as one range each: with thousands of them, each cell that is painted
/// would look through all.
QItemSelection inRuns(QModelIndexList cells)
{
    std::sort(cells.begin(), cells.end(), [](const QModelIndex& one, const QModelIndex& other) {
        return one.row() < other.row();
    });
    QItemSelection selection;
    for (int first = 0, end = 0; first < cells.size(); first = end) {
        end = first + 1;
        while (end < cells.size() && cells.at(end).row() - cells.at(end - 1).row() <= 1)
            ++end;
        selection.append(QItemSelectionRange(cells.at(first), cells.at(end - 1)));
    }
    return selection;
}

} // namespace

QList<int> WatchTable::selectedRows() const
{
    QList<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows << row;
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

QList<int> WatchTable::selectedNumbers() const
{
    QList<int> numbers;
    for (const int row : selectedRows())
        numbers << m_model->numberAt(m_filter->mapToSource(m_filter->index(row, 0)).row());
    return numbers;
}

QList<int> WatchTable::numbersFrom(int number, int count) const
{
    QList<int> numbers;
    const int first = cellOf(number).row();
    for (int row = first; row < first + count; ++row)
        numbers << m_filter->index(row, 0).data(WatchModel::NumberRole).toInt();
    return numbers.contains(0) ? QList<int>() : numbers;
}

/// Where more than 1000 cells, all of them, are selected, Qt would keep but the first and the last,
/// and select what comes between.
void WatchTable::keepSelection()
{
    m_kept = selectedNumbers();
    clearSelection();
}

void WatchTable::restoreSelection()
{
    selectionModel()->select(inRuns(cellsOf(std::exchange(m_kept, {}))),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

/// Those that the filter shows.
QModelIndexList WatchTable::cellsOf(const QList<int>& numbers) const
{
    QModelIndexList cells;
    for (const int number : numbers) {
        const QModelIndex cell = cellOf(number);
        if (cell.isValid())
            cells << cell;
    }
    return cells;
}

void WatchTable::select(const QList<int>& numbers)
{
    const QModelIndexList cells = cellsOf(numbers);
    if (cells.isEmpty())
        return;
    const QModelIndex first = cells.first();
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    clearSelection(); // see selectAll()
    selectionModel()->select(inRuns(cells),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
    scrollTo(first);
}

/// The selection model compares each range before with each one after, which takes seconds when
/// thousands of rows were selected and then sorted apart.
void WatchTable::selectAll()
{
    clearSelection();
    QTableView::selectAll();
}

QModelIndex WatchTable::cellOf(int number) const
{
    return m_filter->mapFromSource(m_model->index(m_model->rowOf(number), WatchModel::Value));
}

} // namespace kxpanel
