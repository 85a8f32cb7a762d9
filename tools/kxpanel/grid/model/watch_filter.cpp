#include "kxpanel/grid/model/watch_filter.h"

#include "kxpanel/grid/model/watch_model.h"
#include "registers/register_types.h"

#include <algorithm>
#include <limits>

namespace kxpanel
{

namespace
{

/// By keys as of WatchModel::sortKey().
bool precedes(const QVariant& one, const QVariant& other, Qt::SortOrder order)
{
    if (!one.isValid() || !other.isValid()) // last in both orders
        return one.isValid() && !other.isValid();
    if (order == Qt::DescendingOrder)
        return precedes(other, one, Qt::AscendingOrder);
    const bool oneIsText = one.userType() == QMetaType::QString;
    const bool otherIsText = other.userType() == QMetaType::QString;
    if (oneIsText != otherIsText)
        return otherIsText;
    if (oneIsText)
        return QString::localeAwareCompare(one.toString(), other.toString()) < 0;
    return one.toDouble() < other.toDouble();
}

} // namespace

WatchFilter::WatchFilter(WatchModel* model, QObject* parent)
    : QSortFilterProxyModel(parent), m_model(model)
{
    setDynamicSortFilter(false);
    setSourceModel(model);
    connect(model, &QAbstractItemModel::rowsInserted, this, [this] {
        if (sortColumn() >= 0)
            invalidate(); // they go behind all others
    });
}

void WatchFilter::setText(const QString& text)
{
    m_words = text.simplified().split(QLatin1Char(' '));
    m_words.removeAll(QString());
    refilter();
}

void WatchFilter::setStates(StateFilter states)
{
    m_states = states;
    refilter();
}

void WatchFilter::setType(const QString& type)
{
    m_type = type;
    refilter();
}

bool WatchFilter::isFiltering() const
{
    return !m_words.isEmpty() || m_states != StateFilter::All || !m_type.isEmpty();
}

void WatchFilter::refreshStates()
{
    if (m_states != StateFilter::All)
        refilter();
}

/// All at once: for thousands of rows apart from each other, one after the other takes a second.
void WatchFilter::refilter()
{
    if (!isOutdated())
        return;
    emit rowsAboutToChange();
    invalidate();
    emit rowsChanged();
}

bool WatchFilter::isOutdated() const
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const bool isShown = mapFromSource(m_model->index(row, 0)).isValid();
        if (isShown != filterAcceptsRow(row, QModelIndex()))
            return true;
    }
    return false;
}

bool WatchFilter::filterAcceptsRow(int row, const QModelIndex&) const
{
    const WatchedValue* const value = m_model->valueAt(row);
    if (!value || !isFiltering())
        return true;
    if (!m_type.isEmpty() && m_type != QLatin1String(value->tag.range.type->name))
        return false;
    const auto text = [this, row](int column) {
        return m_model->index(row, column).data().toString();
    };
    for (const QString& word : m_words) {
        const bool isFound = text(WatchModel::Name).contains(word, Qt::CaseInsensitive)
                             || text(WatchModel::Address).contains(word, Qt::CaseInsensitive)
                             || text(WatchModel::Comment).contains(word, Qt::CaseInsensitive);
        if (!isFound)
            return false;
    }
    return fitsState(row);
}

bool WatchFilter::fitsState(int row) const
{
    if (m_states == StateFilter::All || m_model->numberAt(row) == m_kept)
        return true;
    switch (m_model->stateAt(row)) {
    case CellState::NoAnswer:
    case CellState::Refused:
    case CellState::NotWritten:
    case CellState::Offline:
        return m_states == StateFilter::Attention;
    case CellState::Changed:
    case CellState::Written:
    case CellState::Waiting:
        return m_states == StateFilter::Changed;
    case CellState::NeverRead:
        return m_states == StateFilter::NotRead;
    case CellState::Ok:
        break;
    }
    return false;
}

void WatchFilter::sort(int column, Qt::SortOrder order)
{
    rankRows(column, order);
    QSortFilterProxyModel::sort(column, order);
}

/// Rows that are alike stay as they were sorted before.
void WatchFilter::rankRows(int column, Qt::SortOrder order)
{
    QVector<QPair<int, QVariant>> rows; // of the model, with their keys
    for (int row = 0; column >= 0 && row < m_model->rowCount(); ++row)
        rows << qMakePair(row, m_model->sortKey(row, column));
    std::stable_sort(rows.begin(), rows.end(), [this](const auto& one, const auto& other) {
        return rankOf(one.first) < rankOf(other.first);
    });
    std::stable_sort(rows.begin(), rows.end(), [order](const auto& one, const auto& other) {
        return precedes(one.second, other.second, order);
    });
    m_ranks.clear();
    for (int rank = 0; rank < rows.size(); ++rank)
        m_ranks.insert(m_model->numberAt(rows.at(rank).first), rank);
}

int WatchFilter::rankOf(int row) const
{
    return m_ranks.value(m_model->numberAt(row), std::numeric_limits<int>::max());
}

bool WatchFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    // The base class asks the other way round for a falling order.
    return sortOrder() == Qt::AscendingOrder ? rankOf(left.row()) < rankOf(right.row())
                                             : rankOf(left.row()) > rankOf(right.row());
}

bool WatchFilter::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                  const QModelIndex& parent) const
{
    // Between rows that stand elsewhere in the list a drop would mean nothing.
    return sortColumn() < 0 && !isFiltering()
           && QSortFilterProxyModel::canDropMimeData(data, action, row, column, parent);
}

QVariant WatchFilter::headerData(int section, Qt::Orientation orientation, int role) const
{
    // Rows are numbered as they are seen.
    return orientation == Qt::Vertical
               ? m_model->headerData(section, orientation, role)
               : QSortFilterProxyModel::headerData(section, orientation, role);
}

} // namespace kxpanel
