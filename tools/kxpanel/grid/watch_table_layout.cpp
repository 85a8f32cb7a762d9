// Which columns are shown, where and how wide, and by which one rows are sorted.

#include "kxpanel/grid/model/watch_filter.h"
#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_table.h"

#include <QAction> // in another module since Qt 6
#include <QtCore/QJsonArray>
#include <QtCore/QSet>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyle>

#include <array>

namespace kxpanel
{

namespace
{

struct ColumnShape {
    const char* key; ///< in a project
    int width;       ///< characters
};

// In the order of WatchModel::Column.
const std::array<ColumnShape, WatchModel::ColumnCount> SHAPES = {{{"name", 20},
                                                                  {"station", 7},
                                                                  {"address", 12},
                                                                  {"value", 13},
                                                                  {"unit", 5},
                                                                  {"state", 14},
                                                                  {"age", 6},
                                                                  {"every", 8},
                                                                  {"format", 16},
                                                                  {"raw", 17},
                                                                  {"modbus", 25},
                                                                  {"comment", 8}}};

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

void WatchTable::setUsualColumns()
{
    for (int column = 0; column < WatchModel::ColumnCount; ++column) {
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), column);
        setColumnWidth(column,
                       qMax(usualWidth(column), horizontalHeader()->sectionSizeHint(column)));
    }
    for (QAction* const action : columnActions())
        action->setChecked(true);
}

/// Pixels. A state is seen whole in each language, but for the reason of one.
int WatchTable::usualWidth(int column) const
{
    int width =
        SHAPES.at(static_cast<std::size_t>(column)).width * fontMetrics().averageCharWidth();
    if (column != WatchModel::State)
        return width;
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    for (const CellState state : ALL_STATES) {
        const QString text = stateSymbol(state) + QLatin1Char(' ') + stateText(state, nullptr);
        width = qMax(width, fontMetrics().horizontalAdvance(text) + 2 * margin);
    }
    return width;
}

/// Members that a newer program put into a column stay, and so do columns that only it knows.
QJsonArray WatchTable::columnsLayout() const
{
    QMap<int, QJsonObject> known;
    QJsonArray unknown;
    const QJsonArray before = m_layout[QLatin1String("columns")].toArray();
    for (int i = 0; i < before.size(); ++i) {
        const QJsonObject one = before.at(i).toObject();
        const int column = columnOf(one[QLatin1String("name")].toString());
        if (column >= 0)
            known.insert(column, one);
        else
            unknown.append(before.at(i));
    }
    QJsonArray columns;
    for (int place = 0; place < WatchModel::ColumnCount; ++place) {
        const int column = horizontalHeader()->logicalIndex(place);
        QJsonObject one = known.value(column);
        one[QLatin1String("name")] = keyOf(column);
        one.remove(QStringLiteral("hidden"));
        one.remove(QStringLiteral("characters"));
        if (isColumnHidden(column))
            one[QLatin1String("hidden")] = true;
        else if (place < WatchModel::ColumnCount - 1) // the last one takes what room there is
            one[QLatin1String("characters")] =
                qRound(static_cast<double>(columnWidth(column)) / fontMetrics().averageCharWidth());
        columns.append(one);
    }
    for (int i = 0; i < unknown.size(); ++i)
        columns.append(unknown.at(i));
    return columns;
}

QJsonObject WatchTable::layout() const
{
    QJsonObject layout{{QStringLiteral("columns"), columnsLayout()}};
    if (m_filter->sortColumn() < 0)
        return layout;
    QJsonObject sorted = m_layout[QLatin1String("sort")].toObject();
    sorted[QLatin1String("column")] = keyOf(m_filter->sortColumn());
    sorted[QLatin1String("falling")] = m_filter->sortOrder() == Qt::DescendingOrder;
    layout[QLatin1String("sort")] = sorted;
    return layout;
}

void WatchTable::setLayout(const QJsonObject& layout)
{
    m_layout = layout;
    setUsualColumns();
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
        takeColumn(column, one);
    }
    const QJsonObject sorted = layout[QLatin1String("sort")].toObject();
    sortByColumn(columnOf(sorted[QLatin1String("column")].toString()),
                 sorted[QLatin1String("falling")].toBool() ? Qt::DescendingOrder
                                                           : Qt::AscendingOrder);
}

void WatchTable::takeColumn(int column, const QJsonObject& shape)
{
    const int most = 200; // characters
    m_columnActions.at(column)->setChecked(!shape[QLatin1String("hidden")].toBool());
    const int characters = shape[QLatin1String("characters")].toInt();
    if (characters >= 1 && characters <= most)
        setColumnWidth(column, characters * fontMetrics().averageCharWidth());
}

} // namespace kxpanel
