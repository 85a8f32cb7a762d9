#include "kxpanel/grid/model/watch_filter.h"

#include "kxpanel/grid/model/watch_model.h"
#include "registers/register_types.h"

namespace kxpanel
{

WatchFilter::WatchFilter(WatchModel* model, QObject* parent)
    : QSortFilterProxyModel(parent), m_model(model)
{
    setDynamicSortFilter(false);
    setSourceModel(model);
}

void WatchFilter::setText(const QString& text)
{
    m_words = text.simplified().split(QLatin1Char(' '));
    m_words.removeAll(QString());
    invalidateFilter();
}

void WatchFilter::setStates(StateFilter states)
{
    m_states = states;
    invalidateFilter();
}

void WatchFilter::setType(const QString& type)
{
    m_type = type;
    invalidateFilter();
}

bool WatchFilter::isFiltering() const
{
    return !m_words.isEmpty() || m_states != StateFilter::All || !m_type.isEmpty();
}

void WatchFilter::refreshStates()
{
    if (m_states != StateFilter::All)
        invalidateFilter();
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
    m_order = order;
    m_keys.clear();
    for (int row = 0; column >= 0 && row < m_model->rowCount(); ++row)
        m_keys << m_model->sortKey(row, column);
    QSortFilterProxyModel::sort(column, order);
    m_keys.clear();
}

bool WatchFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const QVariant one = m_keys.value(left.row());
    const QVariant other = m_keys.value(right.row());
    if (!one.isValid() || !other.isValid()) // last in both orders
        return one.isValid() != other.isValid() && one.isValid() == (m_order == Qt::AscendingOrder);
    const bool oneIsText = one.userType() == QMetaType::QString;
    const bool otherIsText = other.userType() == QMetaType::QString;
    if (oneIsText != otherIsText)
        return otherIsText;
    if (oneIsText)
        return QString::localeAwareCompare(one.toString(), other.toString()) < 0;
    return one.toDouble() < other.toDouble();
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
