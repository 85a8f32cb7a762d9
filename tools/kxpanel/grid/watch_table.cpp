#include "kxpanel/grid/watch_table.h"

#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"

#include <QAction> // in another module since Qt 6
#include <QtCore/QJsonArray>
#include <QtCore/QSet>
#include <QtWidgets/QHeaderView>

#include <algorithm>
#include <array>
#include <utility>

namespace kxpanel
{

namespace
{

struct ColumnShape {
    const char* key; ///< in a project
    int width;       ///< characters
};

// In the order of WatchModel::Column.
const std::array<ColumnShape, WatchModel::ColumnCount> SHAPES = {{{"name", 18},
                                                                  {"station", 8},
                                                                  {"address", 11},
                                                                  {"value", 17},
                                                                  {"unit", 7},
                                                                  {"state", 15},
                                                                  {"age", 7},
                                                                  {"format", 14},
                                                                  {"raw", 13},
                                                                  {"modbus", 20},
                                                                  {"comment", 20}}};

QString keyOf(int column)
{
    return QLatin1String(SHAPES.at(static_cast<std::size_t>(column)).key);
}

int columnOf(const QString& key)
{
    for (int column = 0; column < WatchModel::ColumnCount; ++column) {
        if (key == keyOf(column))
            return column;
    }
    return -1;
}

} // namespace

WatchTable::WatchTable(WatchModel* model, WatchFilter* filter, QWidget* parent)
    : QTableView(parent), m_model(model), m_filter(filter)
{
    setModel(filter);
    setAccessibleName(tr("Watched values"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setShowGrid(false);
    setTabKeyNavigation(false); // Tab leaves the table
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(DragDrop);
    setDragDropOverwriteMode(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    QHeaderView* const header = horizontalHeader();
    header->setSectionsMovable(true);
    header->setStretchLastSection(true);
    header->setHighlightSections(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    setUsualWidths();
    makeColumnActions();
    connect(header, &QHeaderView::sectionResized, this, &WatchTable::layoutChanged);
    connect(header, &QHeaderView::sectionMoved, this, &WatchTable::layoutChanged);
    connect(header, &QHeaderView::sortIndicatorChanged, this, &WatchTable::layoutChanged);
}

void WatchTable::setUsualWidths()
{
    for (int column = 0; column < WatchModel::ColumnCount; ++column)
        setColumnWidth(column, SHAPES.at(static_cast<std::size_t>(column)).width
                                   * fontMetrics().averageCharWidth());
}

void WatchTable::makeColumnActions()
{
    for (int column = 0; column < WatchModel::ColumnCount; ++column) {
        auto* const action =
            new QAction(m_model->headerData(column, Qt::Horizontal).toString(), this);
        action->setCheckable(true);
        action->setChecked(true);
        connect(action, &QAction::toggled, this,
                [this, column](bool isShown) { setColumnHidden(column, !isShown); });
        m_columnActions << action;
    }
    horizontalHeader()->addActions(m_columnActions);
    horizontalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
}

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

void WatchTable::select(const QList<int>& numbers)
{
    QItemSelection selection;
    for (const int number : numbers) {
        const QModelIndex index =
            m_filter->mapFromSource(m_model->index(m_model->rowOf(number), WatchModel::Value));
        if (index.isValid())
            selection.append(QItemSelectionRange(index));
    }
    if (selection.isEmpty())
        return;
    selectionModel()->setCurrentIndex(selection.first().topLeft(), QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(selection.first().topLeft());
}

int WatchTable::currentModelRow() const
{
    const QModelIndex index = m_filter->mapToSource(currentIndex());
    return index.isValid() ? index.row() : m_model->rowCount();
}

QString WatchTable::selectedText() const
{
    const auto rowText = [this](const std::function<QString(int)>& textOf) {
        QStringList cells;
        for (int place = 0; place < WatchModel::ColumnCount; ++place) {
            const int column = horizontalHeader()->logicalIndex(place);
            if (!isColumnHidden(column))
                cells << textOf(column).simplified();
        }
        return cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    };
    QString text = rowText(
        [this](int column) { return m_model->headerData(column, Qt::Horizontal).toString(); });
    for (const int row : selectedRows())
        text += rowText(
            [this, row](int column) { return m_filter->index(row, column).data().toString(); });
    return text;
}

void WatchTable::refreshVisible()
{
    const int first = rowAt(0);
    if (first < 0)
        return;
    const int lastSeen = rowAt(viewport()->height() - 1);
    const int last = lastSeen < 0 ? m_filter->rowCount() - 1 : lastSeen;
    int begin = -1; // of rows that stand together in the model, too
    int end = -1;
    for (int row = first; row <= last; ++row) {
        const int source = m_filter->mapToSource(m_filter->index(row, 0)).row();
        if (begin >= 0 && source == end + 1) {
            end = source;
            continue;
        }
        m_model->refresh(begin, end);
        begin = end = source;
    }
    m_model->refresh(begin, end);
}

QJsonObject WatchTable::layout() const
{
    QJsonArray columns;
    for (int place = 0; place < WatchModel::ColumnCount; ++place) {
        const int column = horizontalHeader()->logicalIndex(place);
        QJsonObject one{{QStringLiteral("name"), keyOf(column)}};
        if (isColumnHidden(column))
            one[QLatin1String("hidden")] = true;
        else if (place < WatchModel::ColumnCount - 1) // the last one takes what room there is
            one[QLatin1String("characters")] =
                qRound(static_cast<double>(columnWidth(column)) / fontMetrics().averageCharWidth());
        columns.append(one);
    }
    QJsonObject layout{{QStringLiteral("columns"), columns}};
    if (m_filter->sortColumn() >= 0)
        layout[QLatin1String("sort")] =
            QJsonObject{{QStringLiteral("column"), keyOf(m_filter->sortColumn())},
                        {QStringLiteral("falling"), m_filter->sortOrder() == Qt::DescendingOrder}};
    return layout;
}

void WatchTable::setLayout(const QJsonObject& layout)
{
    const int most = 200; // characters
    int place = 0;
    QSet<int> placed;
    const QJsonArray columns = layout[QLatin1String("columns")].toArray();
    for (int i = 0; i < columns.size(); ++i) {
        const QJsonObject one = columns.at(i).toObject();
        const int column = columnOf(one[QLatin1String("name")].toString());
        if (column < 0 || placed.contains(column))
            continue;
        placed.insert(column);
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), place++);
        m_columnActions.at(column)->setChecked(!one[QLatin1String("hidden")].toBool());
        const int characters = one[QLatin1String("characters")].toInt();
        if (characters >= 1 && characters <= most)
            setColumnWidth(column, characters * fontMetrics().averageCharWidth());
    }
    const QJsonObject sorted = layout[QLatin1String("sort")].toObject();
    sortByColumn(columnOf(sorted[QLatin1String("column")].toString()),
                 sorted[QLatin1String("falling")].toBool() ? Qt::DescendingOrder
                                                           : Qt::AscendingOrder);
}

} // namespace kxpanel
